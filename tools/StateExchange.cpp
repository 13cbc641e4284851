// Whether a state that one build of the plug-in saved comes back in another: `save` gives every
// parameter a value of its own and writes the chunk with what the effect then shows; `check`
// loads it and compares all of it, to the bit.

#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

#include "vst/Vst24.h"

namespace {

constexpr int32_t kPrograms = 140;

intptr_t VST_CALL hostCallback(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

class Plugin {
  public:
    explicit Plugin(const char* path) {
        void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        if (!library) {
            throw std::runtime_error(dlerror());
        }
        using Entry = AEffect*(VST_CALL*)(audioMasterCallback);
        effect = reinterpret_cast<Entry>(dlsym(library, "VSTPluginMain"))(hostCallback);
        send(effSetSampleRate, 0, 0, nullptr, 48000.0f);
    }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;
    ~Plugin() { send(effClose); }

    /// Values of steps of 1/1024 that no program has in this order, and a name.
    void changeEverything() {
        for (int32_t i = 0; i < effect->numParams; ++i) {
            effect->setParameter(effect, i, float((i * 389 + 17) % 1025) / 1024.0f);
        }
        char name[] = "As it was saved";
        send(effSetProgramName, 0, 0, name);
    }
    std::string chunk() {
        void* data = nullptr;
        const intptr_t size = send(effGetChunk, 0, 0, &data);
        return {static_cast<char*>(data), size_t(size)};
    }
    bool load(std::string chunk) {
        return send(effSetChunk, 0, intptr_t(chunk.size()), chunk.data()) == 0;
    }
    /// Everything that a host can ask for, a line each.
    std::string shown() {
        std::ostringstream lines;
        for (int32_t i = 0; i < effect->numParams; ++i) {
            lines << std::hexfloat << effect->getParameter(effect, i) << '\n';
        }
        for (int32_t i = 0; i < kPrograms; ++i) {
            char name[64] = {};
            send(effGetProgramNameIndexed, i, 0, name);
            lines << name << '\n';
        }
        return lines.str();
    }

  private:
    intptr_t send(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                  float opt = 0.0f) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }
    AEffect* effect = nullptr;
};

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
    plugin.changeEverything();
    plugin.load(plugin.chunk());  // a switch takes its two values when it is restored
    write(path, plugin.chunk());
    write(path + ".shown", plugin.shown());
}

/// What differs, nothing where all is as it was.
std::string difference(Plugin& plugin, const std::string& path) {
    const std::string saved = read(path);
    if (!plugin.load(saved)) {
        return "refused";
    }
    std::istringstream now(plugin.shown()), then(read(path + ".shown"));
    std::string a, b;
    for (int line = 0; std::getline(then, a); ++line) {
        if (!std::getline(now, b) || a != b) {
            std::ostringstream what;
            what << "line " << line << ": " << a << " became " << b;
            return what.str();
        }
    }
    return plugin.chunk() == saved ? "" : "saved again, the bytes differ";
}

}  // namespace

int main(int argc, char** argv) try {
    const std::string command = argc == 4 ? argv[1] : "";
    if (command == "save") {
        Plugin plugin(argv[2]);
        save(plugin, argv[3]);
        return 0;
    }
    if (command == "check") {
        Plugin plugin(argv[2]);
        const std::string what = difference(plugin, argv[3]);
        std::puts(what.empty() ? "came back" : what.c_str());
        return what.empty() ? 0 : 1;
    }
    std::fprintf(stderr, "usage: %s save|check PLUGIN.so FILE\n", argv[0]);
    return 2;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
