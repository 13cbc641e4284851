// What stands in the user's settings, whoever has written it: an instance starts with it, and
// leaves only values behind that can be read.

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "editor/Tessel8Editor.h"
#include "platform/SettingsFolder.h"
#include "shell/Tessel8.h"

namespace tessel8 {

namespace {

struct Value {
    const char* file;  ///< within the store
    bool isImage;
};
constexpr Value kValues[] = {
    {"DefaultBank.bin", true},
    {"DefaultPreset.bin", true},
    {"MemoA.bin", true},
    {"MemoB.bin", true},
    {"CurrDir.str", false},
    {"CurrBank.str", false},
    {"CurrPreset.str", false},
    {"CurrDirMIDISet.str", false},
    {"ManualPath.str", false},
    {"KeyboardFocus.int", false},
    {"MIDI/MIDI CC - 001.int", false},
};

/// The store of this run alone, which is removed at its end.
struct OwnStore {
    OwnStore() {
        std::string pattern = std::filesystem::temp_directory_path() / "tessel8-fuzz-XXXXXX";
        home = mkdtemp(pattern.data());
        setenv("XDG_CONFIG_HOME", home.c_str(), 1);
        folder = home / "Vantor-audio/Vantor Tessel Echo";
        const Tessel8 first(nullptr);
    }
    ~OwnStore() { std::filesystem::remove_all(home); }

    std::filesystem::path home, folder;
};

void require(bool truth) {
    if (!truth) {
        std::abort();
    }
}

void readAll() {
    const SettingsFolder folder;
    for (const char* name : {"CurrDir", "CurrBank", "CurrPreset", "CurrDirMIDISet", "ManualPath"}) {
        const auto text = folder.readText(name);
        require(!text || text->find('\0') == std::string::npos);
    }
    const auto focus = folder.readInteger("KeyboardFocus");
    require(!focus || (*focus >= INT32_MIN && *focus <= UINT32_MAX));
}

void startWithThem() {
    Tessel8 effect(nullptr);
    auto& editor = *static_cast<Tessel8Editor*>(effect.getEditor());
    for (int pass = 0; pass < 2; ++pass) {
        require(effect.getCurrentProgramIndex() == 0);
        for (int32_t index = 0; index < kParameterCount; ++index) {
            require(!std::signbit(effect.getParameter(index)) || effect.getParameter(index) == 0 ||
                    std::isnan(effect.getParameter(index)));
        }
        editor.recallMemoA();
        editor.recallMemoB();
    }
}

}  // namespace

}  // namespace tessel8

/// The first byte chooses the value, the rest is what stands in its file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    using namespace tessel8;
    static const OwnStore store;
    if (size == 0) {
        return 0;
    }
    const Value& value = kValues[bytes[0] % std::size(kValues)];
    std::ofstream(store.folder / value.file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes + 1), std::streamsize(size - 1));
    readAll();
    startWithThem();
    if (value.isImage) {
        std::filesystem::remove(store.folder / value.file);
    }
    return 0;
}
