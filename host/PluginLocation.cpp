#include "PluginLocation.h"

#include "UserError.h"

namespace tessel8::host {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPluginName = "VantorTesselEcho.so";

}  // namespace

fs::path pluginFile(const fs::path& chosen) {
    if (!chosen.empty()) {
        return chosen;
    }
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    const fs::path beside = folder / kPluginName;
    const fs::path installed = (folder / "../lib/vst").lexically_normal() / kPluginName;
    for (const fs::path& candidate : {beside, installed}) {
        if (fs::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    throw UserError("cannot find " + beside.string() + " or " + installed.string() +
                    ": name the plug-in with --plugin FILE");
}

}  // namespace tessel8::host
