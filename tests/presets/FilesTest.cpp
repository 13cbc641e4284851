// Files of programs and of MIDI settings through the panel's keys: bytes, forms and refusals.

#include <cmath>

#include "PresetFixture.h"

namespace tessel8 {

namespace {

/// A preset ('"', '!') or bank ('8', '7') in which program 44 has a name and a mix; flat forms have
/// some more values. A lie is added to the size of the payload.
std::string programs(char tag, const std::string& name, float mix, bool big = false, int count = 0,
                     int lie = 0) {
    ImageWriter file{big}, records{big};
    if (tag == '"' || tag == '8') {
        records.program(44, name).value(44, 3, mix);
        return file.image(tag, 2, 44, uint32_t(200 + lie)).text() + records.text();
    }
    file.tagged(tag);
    for (int p = 0; p < (tag == '7' ? 140 : 1); ++p) {
        file.name(name);
        for (int k = 0; k < count; ++k) {
            file.number(k == 3 ? mix : 0.5f);
        }
    }
    return file.text();
}

struct FilesTest : PresetTest {
    void load(int32_t key, const std::string& contents, uint32_t buttons = mouse::kLeft,
              int32_t y = 556) {
        std::ofstream(home / "in", std::ios::binary) << contents;
        instance.choose(key, home / "in", buttons, y);
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
    instance.choose(kSavePreset, home / "a.vtp");
    instance.choose(kSaveBank, home / "a.vtb");
    const std::string preset = contentsOf(home / "a.vtp"), bank = contentsOf(home / "a.vtb");
    EXPECT_EQ(preset.size() + bank.size(), 7089u + 986761u);
    EXPECT_EQ(preset.substr(0, 209),
              ImageWriter{}.image('"', 216, 0, 7048).program(0, instance.name(44)).text());
    EXPECT_EQ(preset.substr(305, 32), ImageWriter{}.value(0, 3, 0.25f).text());
    EXPECT_EQ(bank.substr(0, 41), ImageWriter{}.image('8', 30240, 44, 986720).text());
    instance.effect.selectProgram(40);
    instance.choose(kLoadPreset, home / "a.vtp");
    EXPECT_EQ(instance.name(40), instance.name(44));
    EXPECT_EQ(instance.effect.getParameter(3), 0.25f);
    instance.choose(kLoadBank, home / "a.vtb");
    EXPECT_NE(instance.name(40), instance.name(44));
}

TEST_F(FilesTest, EveryFormAndByteOrderLoads) {
    const auto expectLoaded = [&](char tag, bool big, int count, bool reversed) {
        const int32_t key = tag == '"' || tag == '!' ? kLoadPreset : kLoadBank;
        std::string file = programs(tag, "A name of 24 characters!", 0.75f, big, count);
        selectAgain();
        if (reversed) {
            std::reverse(file.begin(), file.begin() + 4);  // the identifier lies
            load(key, file);
            selectAgain();
            EXPECT_NE(instance.effect.getParameter(3), 0.75f);
        }
        load(key, file, reversed ? mouse::kRight : mouse::kLeft);
        EXPECT_EQ(instance.editor.window->told.ends_with("(endian-reversed)"), reversed);
        EXPECT_EQ(instance.title(44), "A name of 24 characters!");
        EXPECT_EQ(instance.current(), key == kLoadBank ? 0 : 44);
        selectAgain();
        EXPECT_EQ(instance.effect.getParameter(3), 0.75f);
        EXPECT_EQ(instance.effect.getParameter(202), count > 202 ? 0.5f : 0.0f) << "neutral";
        instance.effect.setParameter(3, 0.0f);
    };
    for (const bool big : {false, true}) {
        for (const int count : {4, 215, 300}) {
            expectLoaded('!', big, count, false);
            expectLoaded('7', big, count, false);
        }
        for (const bool reversed : {false, true}) {
            expectLoaded('"', big, 0, reversed);
            expectLoaded('8', big, 0, reversed);
        }
    }
}

TEST_F(FilesTest, CutOffLyingOrBadOnesChangeNothing) {
    selectAgain();
    const Bytes before = instance.effect.writeBank();
    const std::string title = instance.title(44), first = instance.title(0);
    const auto expectRefused = [&](const std::string& file, bool isOurs = true) {
        for (const int32_t key : {kLoadPreset, kLoadBank}) {
            load(key, file);
            const bool ends = isOurs && key == kLoadBank;  // on the first program, whatever it was
            EXPECT_EQ(instance.current(), ends ? 0 : 44);
            EXPECT_EQ(instance.field(), ends ? first : title);
            EXPECT_EQ(instance.title(44), title);
            selectAgain();
            ASSERT_TRUE(instance.effect.writeBank() == before);
        }
    };
    for (const char tag : {'"', '8'}) {
        const std::string whole = programs(tag, "New", 0.1f);
        for (size_t size = 0; size < whole.size(); size += size < 64 ? 1 : 7) {
            expectRefused(whole.substr(0, size), size >= 5);
        }
        // Identifier, tag, number of records, size of the payload.
        for (const auto& [at, byte] : {std::pair{0, 9}, {4, '#'}, {13, 3}, {15, 127}, {16, 128}}) {
            std::string file = whole;
            file[size_t(at)] = char(byte);
            expectRefused(file, at != 0);
        }
        for (const int lie : {-1, 1, 1000000}) {
            expectRefused(programs(tag, "New", 0.1f, false, 0, lie));
        }
        expectRefused(programs(tag, "Bad", -0.5f));
        expectRefused(programs(tag, "Bad", std::nanf("")));
    }
    for (const char tag : {'!', '7'}) {
        expectRefused(programs(tag, "Bad", -0.5f, false, 215));
        const std::string names = programs(tag, "Cut", 0.0f);
        expectRefused(names.substr(0, names.size() - 1));
    }
    instance.choose(kLoadBank, home / "absent/b.vtb");
    instance.choose(kLoadPreset, "");
    EXPECT_EQ(instance.current(), 44);
    EXPECT_EQ(contentsOf(settings / "CurrDir.str"), home.string() + "/absent/");
    EXPECT_EQ(contentsOf(settings / "CurrBank.str"), "b.vtb");
    load(kLoadPreset, programs('!', "NaN", std::nanf(""), false, 215));
    EXPECT_EQ(instance.name(44), "NaN") << "the flat form judges less";
}

TEST_F(FilesTest, MidiSettingsFollowTheirTableAndAreRefusedByTwoMessages) {
    const auto said = [&](const std::string& file) {
        load(293, file, mouse::kLeft, 115);
        return instance.editor.window->told;
    };
    instance.choose(308, home / "m.vtm", mouse::kLeft, 115);
    const std::string saved = contentsOf(home / "m.vtm");
    EXPECT_EQ(saved.size(), 125u);
    EXPECT_EQ(saved.substr(0, 11), std::string("8LST\x0b\xd9\1\2\3\0\xb0", 11));
    EXPECT_EQ(said("8LST\x0a"), "Error...|Not a midi settings file!");
    EXPECT_EQ(said(programs('"', "P", 0.5f)), "Error...|Not a midi settings file!");
    EXPECT_EQ(said("8LSX\x0b"), "Error...|Invalid file format!");
    EXPECT_EQ(said("8LST"), "Select midi settings to load...") << "no message";
    EXPECT_EQ(instance.entry(1), 1);
    EXPECT_EQ(contentsOf(settings / "CurrDirMIDISet.str"), home.string() + "/");
    said("8LST\x0b\7\x8");
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(instance.entry(i), i == 0 ? 7 : i == 1 ? 8 : 217) << i;
    }
    said(saved);
    EXPECT_EQ(instance.entry(5), 176);
}

}  // namespace tessel8
