// Files of programs and of MIDI settings through the panel's keys: bytes, forms and refusals.

#include <cmath>

#include "PresetFixture.h"

namespace tessel8 {

namespace {

constexpr int32_t kPreset = Instance::kLoadPreset, kBank = Instance::kLoadBank;

/// A preset ('"', '!') or bank ('8', '7') in which program 44 has a name and a mix; flat forms hold
/// some more values. A lie is added to the size of the payload.
Bytes file(char tag, const std::string& name, float mix, bool big = false, int detail = 0) {
    ImageWriter file{big}, records{big};
    if (tag == '"' || tag == '8') {
        records.program(44, name).value(44, 3, mix);
        file.image(tag, 2, 44, uint32_t(int(records.bytes.size()) + detail));
        file.bytes.insert(file.bytes.end(), records.bytes.begin(), records.bytes.end());
        return file.bytes;
    }
    file.tagged(tag);
    for (int p = 0; p < (tag == '7' ? 140 : 1); ++p) {
        file.name(name);
        for (int k = 0; k < detail; ++k) {
            file.number(k == 3 ? mix : 0.5f);
        }
    }
    return file.bytes;
}

struct FilesTest : PresetTest {
    void load(int32_t key, const Bytes& bytes, uint32_t buttons = mouse::kLeft) {
        write(home / "in", bytes);
        instance.choose(key, home / "in", buttons);
    }
    void selectAgain() {
        instance.effect.selectProgram(44);
        instance.editor.idle();
    }
    Instance instance;
};

}  // namespace

TEST_F(FilesTest, SavedOnesHaveTheTableBytesAndComeBackAnywhere) {
    selectAgain();
    instance.effect.setParameter(3, 0.25f);
    instance.choose(Instance::kSavePreset, home / "a.vtp");
    instance.choose(Instance::kSaveBank, home / "a.vtb");
    const std::string preset = contentsOf(home / "a.vtp"), bank = contentsOf(home / "a.vtb");
    EXPECT_EQ(preset.size(), 7089u);
    EXPECT_EQ(bank.size(), 986761u);
    EXPECT_EQ(preset.substr(0, 8), std::string("8LST\"\0\0\0", 8));
    const Bytes head = ImageWriter{}.image('"', 216, 0, 7048).program(0, instance.name(44)).bytes;
    EXPECT_EQ(bytesOf(preset.substr(0, 209)), head);
    EXPECT_EQ(bytesOf(preset.substr(305, 32)), ImageWriter{}.value(0, 3, 0.25f).bytes);
    EXPECT_EQ(bytesOf(bank.substr(0, 41)), ImageWriter{}.image('8', 30240, 44, 986720).bytes);
    instance.effect.selectProgram(40);
    instance.choose(kPreset, home / "a.vtp");
    EXPECT_EQ(instance.name(40), instance.name(44));
    EXPECT_EQ(instance.effect.getParameter(3), 0.25f);
    instance.choose(kBank, home / "a.vtb");
    EXPECT_NE(instance.name(40), instance.name(44));
    EXPECT_EQ(instance.current(), 0);
}

TEST_F(FilesTest, EveryFormAndByteOrderLoads) {
    const auto expectLoaded = [&](char tag, bool big, int detail, bool reversed = false) {
        const int32_t key = tag == '"' || tag == '!' ? kPreset : kBank;
        selectAgain();
        Bytes bytes = file(tag, "A name of 24 characters!", 0.75f, big, detail);
        if (reversed) {  // the identifier lies
            std::reverse(bytes.begin(), bytes.begin() + 4);
            load(key, bytes);
            selectAgain();
            EXPECT_NE(instance.effect.getParameter(3), 0.75f);
        }
        load(key, bytes, reversed ? mouse::kRight : mouse::kLeft);
        EXPECT_EQ(instance.title(44), "A name of 24 characters!");
        EXPECT_EQ(instance.name(44), "A name of 24 characters!");
        EXPECT_EQ(instance.current(), key == kBank ? 0 : 44);
        selectAgain();
        EXPECT_EQ(instance.effect.getParameter(3), 0.75f);
        EXPECT_EQ(instance.effect.getParameter(202), detail > 202 ? 0.5f : 0.0f) << "neutral";
        instance.effect.setParameter(3, 0.0f);
    };
    for (const bool big : {false, true}) {
        for (const char tag : {'"', '8', '!', '7'}) {
            for (const int detail : {4, 215, 300}) {
                expectLoaded(tag, big, tag == '!' || tag == '7' ? detail : 0);
            }
        }
        expectLoaded('"', big, 0, true);
        EXPECT_EQ(instance.window().title, "Load preset (endian-reversed)");
        expectLoaded('8', big, 0, true);
        EXPECT_EQ(instance.window().title, "Load bank (endian-reversed)");
    }
}

TEST_F(FilesTest, CutOffLyingOrBadOnesChangeNothing) {
    selectAgain();
    const Bytes before = instance.effect.writeBank();
    const std::string title = instance.title(44), first = instance.title(0);
    const auto expectRefused = [&](const Bytes& bytes, bool isOurs = true) {
        for (const int32_t key : {kPreset, kBank}) {
            load(key, bytes);
            const bool ends = isOurs && key == kBank;  // on the first program, whatever it was
            EXPECT_EQ(instance.current(), ends ? 0 : 44);
            EXPECT_EQ(instance.field(), ends ? first : title);
            EXPECT_EQ(instance.title(44), title);
            selectAgain();
            ASSERT_TRUE(instance.effect.writeBank() == before);
        }
    };
    for (const char tag : {'"', '8'}) {
        const Bytes whole = file(tag, "New", 0.1f);
        for (size_t size = 0; size < whole.size(); size += size < 64 ? 1 : 7) {
            expectRefused(Bytes(whole.begin(), whole.begin() + int(size)), size >= 5);
        }
        for (const int lie : {-1, 1, 1000000}) {
            expectRefused(file(tag, "New", 0.1f, false, lie));
        }
        // Identifier, tag and number of records.
        for (const auto& [at, byte] : {std::pair{0, 9}, {4, '#'}, {13, 3}, {15, 127}, {16, 128}}) {
            Bytes bytes = whole;
            bytes[size_t(at)] = uint8_t(byte);
            expectRefused(bytes, at != 0);
        }
        for (const float bad : {-0.5f, std::nanf("")}) {
            expectRefused(file(tag, "Bad", bad));
        }
    }
    for (const char tag : {'!', '7'}) {
        expectRefused(file(tag, "Bad", -0.5f, false, 215));
        Bytes bytes = file(tag, "Cut", 0.0f);
        bytes.pop_back();
        expectRefused(bytes);
    }
    instance.choose(kBank, home / "absent/b.vtb");
    instance.choose(kPreset, "");
    EXPECT_EQ(instance.current(), 44);
    EXPECT_EQ(contentsOf(settings / "CurrDir.str"), (home / "absent/").string());
    EXPECT_EQ(contentsOf(settings / "CurrBank.str"), "b.vtb");
    load(kPreset, file('!', "NaN", std::nanf(""), false, 215));
    EXPECT_EQ(instance.name(44), "NaN") << "the flat form judges less";
}

TEST_F(FilesTest, MidiSettingsFollowTheirTableAndAreRefusedByTwoMessages) {
    const fs::path path = home / "m.vtm";
    const auto load = [&](const Bytes& bytes) {
        write(path, bytes);
        instance.click(293, mouse::kLeft, 115);
        instance.window().endText(path);
        return std::exchange(instance.window().messages, "");
    };
    instance.click(308, mouse::kLeft, 115);
    instance.window().endText(path);
    const Bytes saved = bytesOf(contentsOf(path));
    EXPECT_EQ(saved.size(), 125u);
    EXPECT_EQ(Bytes(saved.begin(), saved.begin() + 11),
              (Bytes{'8', 'L', 'S', 'T', 11, 217, 1, 2, 3, 0, 176}));
    Bytes other = saved;
    other[4] = 10;
    EXPECT_EQ(load(other), "Error...|Not a midi settings file!;");
    EXPECT_EQ(load(file('"', "P", 0.5f)), "Error...|Not a midi settings file!;");
    other[3] = 'X';
    EXPECT_EQ(load(other), "Error...|Invalid file format!;");
    EXPECT_EQ(load(bytesOf("8LST")), "");
    EXPECT_EQ(instance.entry(1), 1);
    EXPECT_EQ(contentsOf(settings / "CurrDirMIDISet.str"), home.string() + "/");
    EXPECT_EQ(load({'8', 'L', 'S', 'T', 11, 7, 8}), "");
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(instance.entry(i), i == 0 ? 7 : i == 1 ? 8 : 217) << i;
    }
    EXPECT_EQ(load(saved), "");
    EXPECT_EQ(instance.entry(5), 176);
}

}  // namespace tessel8
