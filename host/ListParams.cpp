#include "ListParams.h"

#include <cstdio>
#include <string>

#include "Numbers.h"
#include "Plugin.h"
#include "PluginLocation.h"

namespace tessel8::host {

namespace {

/// The label comes last and is mostly empty, so its column has no blanks in front of nothing.
void printRow(const std::string& index, const std::string& name, const std::string& value,
              const std::string& display, const std::string& label) {
    std::printf("%5s  %-10s  %-12s  ", index.c_str(), name.c_str(), value.c_str());
    if (label.empty()) {
        std::printf("%s\n", display.c_str());
    } else {
        std::printf("%-12s  %s\n", display.c_str(), label.c_str());
    }
}

}  // namespace

void listParams(const std::filesystem::path& file) {
    Transport transport;
    const Plugin plugin(pluginFile(file), transport);
    printRow("index", "name", "value", "display", "label");
    for (int32_t index = 0; index < plugin.record().numParams; ++index) {
        printRow(std::to_string(index), plugin.text(effGetParamName, index),
                 shortest(plugin.parameter(index)), plugin.text(effGetParamDisplay, index),
                 plugin.text(effGetParamLabel, index));
    }
}

}  // namespace tessel8::host
