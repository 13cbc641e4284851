// Whether a state that one build of the plug-in saved comes back in another: `save` gives every
// parameter a value of its own and writes the chunk with what the effect then shows; `check`
// loads it and compares all of it, to the bit.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

#include "host/Plugin.h"

namespace {

using tessel8::host::Plugin;

constexpr int32_t kPrograms = 140;

/// Values of steps of 1/1024 that no program has in this order, and a name.
void changeEverything(Plugin& plugin) {
    for (int32_t i = 0; i < plugin.record().numParams; ++i) {
        plugin.setParameter(i, float((i * 389 + 17) % 1025) / 1024.0f);
    }
    char name[] = "As it was saved";
    plugin.dispatch(effSetProgramName, 0, 0, name);
}

std::string chunkOf(const Plugin& plugin) {
    void* data = nullptr;
    const intptr_t size = plugin.dispatch(effGetChunk, 0, 0, &data);
    return {static_cast<char*>(data), size_t(size)};
}

bool load(const Plugin& plugin, std::string chunk) {
    return plugin.dispatch(effSetChunk, 0, intptr_t(chunk.size()), chunk.data()) == 0;
}

/// Everything that a host can ask for, a line each.
std::string shownBy(const Plugin& plugin) {
    std::ostringstream lines;
    for (int32_t i = 0; i < plugin.record().numParams; ++i) {
        lines << std::hexfloat << plugin.parameter(i) << '\n';
    }
    for (int32_t i = 0; i < kPrograms; ++i) {
        lines << plugin.text(effGetProgramNameIndexed, i) << '\n';
    }
    return lines.str();
}

std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void save(Plugin& plugin, const std::string& path) {
    changeEverything(plugin);
    load(plugin, chunkOf(plugin));  // a switch takes its two values when it is restored
    write(path, chunkOf(plugin));
    write(path + ".shown", shownBy(plugin));
}

/// What differs, nothing where all is as it was.
std::string difference(const Plugin& plugin, const std::string& path) {
    const std::string saved = read(path);
    if (!load(plugin, saved)) {
        return "refused";
    }
    std::istringstream now(shownBy(plugin)), then(read(path + ".shown"));
    std::string a, b;
    for (int line = 0; std::getline(then, a); ++line) {
        if (!std::getline(now, b) || a != b) {
            std::ostringstream what;
            what << "line " << line << ": " << a << " became " << b;
            return what.str();
        }
    }
    return chunkOf(plugin) == saved ? "" : "saved again, the bytes differ";
}

}  // namespace

int main(int argc, char** argv) try {
    const std::string command = argc == 4 ? argv[1] : "";
    if (command != "save" && command != "check") {
        std::fprintf(stderr, "usage: %s save|check PLUGIN.so FILE\n", argv[0]);
        return 2;
    }
    tessel8::host::Transport transport;
    Plugin plugin(argv[2], transport);
    plugin.prepare(48000.0f, 512);
    if (command == "save") {
        save(plugin, argv[3]);
        return 0;
    }
    const std::string what = difference(plugin, argv[3]);
    std::puts(what.empty() ? "came back" : what.c_str());
    return what.empty() ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
