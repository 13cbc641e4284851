// The strip's gestures.

#include <thread>

#include "PresetFixture.h"

namespace tessel8 {

struct StripTest : PresetTest {
    Instance instance;
    AnsweringWindow& window = *instance.editor.window;
};

TEST_F(StripTest, TheListHasAllProgramsAndSelectsOne) {
    instance.effect.setParameter(3, 0.375f);
    instance.click(kList, mouse::kRight);
    ASSERT_EQ(window.menu.entries.size(), 140u);
    EXPECT_EQ(window.menu.entriesPerColumn, 35);
    EXPECT_EQ(window.menu.entries[139], instance.name(139));
    window.endMenu(41);
    EXPECT_EQ(instance.current(), 41);
    EXPECT_EQ(instance.field(), instance.name(41));
    instance.click(kList);
    window.endMenu(0);
    EXPECT_EQ(instance.effect.getParameter(3), 0.375f) << "programs keep what was edited";
}

TEST_F(StripTest, ALongNameIsCutTo23InTheStoreAnd24OnThePanel) {
    const std::string typed = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234";
    instance.choose(kField, typed);
    instance.editor.idle();
    EXPECT_EQ(instance.name(0), typed.substr(0, 23));
    EXPECT_EQ(instance.field(), typed.substr(0, 24));
    EXPECT_EQ(instance.title(0), typed.substr(0, 24));
    instance.choose(kField, "ABCDEFGHIJKLMNOPQRSTUVäXYZ");
    EXPECT_EQ(instance.name(0) + "ä", instance.field()) << "no character is cut in two";
}

TEST_F(StripTest, TheRockerStepsAndStaysAtTheEnds) {
    for (const auto& [side, from, to] : {std::tuple{kUp, 1, 2}, {kUp, 139, 139}, {kDown, 0, 0}}) {
        instance.effect.selectProgram(from);
        instance.click(side);
        EXPECT_EQ(instance.current(), to);
        EXPECT_EQ(instance.field(), instance.name(to));
        EXPECT_EQ(instance.at<COptionMenu>(kList).getCurrent(), to);
    }
}

TEST_F(StripTest, OneDialogStandsUntilItsAnswerOrTheWindowsEnd) {
    instance.click(kSaveBank);
    instance.click(kLoadPreset);
    EXPECT_EQ(window.told, "Save bank");
    instance.editor.close();
    instance.editor.open(nullptr);
    instance.choose(kSaveBank, home / "b.vtb");
    EXPECT_TRUE(fs::exists(home / "b.vtb"));
}

TEST_F(StripTest, TheStoredKeyboardFocusIsTheFramesAndTheManualIsMissing) {
    instance.click(kFocus);
    Instance next;
    EXPECT_EQ(next.at<CVTOnOffButton>(kFocus).getValue(), 1.0f);
    EXPECT_EQ(next.editor.window->focusTaken, 1);
    next.click(kFocus);
    next.click(kManual);
    EXPECT_EQ(next.editor.window->focusTaken, 2) << "by the press that switched it off";
    EXPECT_EQ(next.editor.window->told, "|Could not open user manual");
}

TEST_F(StripTest, WhatOtherThreadsDoToTheStoreIsShownAtTheNextIdle) {
    const std::string before = instance.field();
    Bytes chunk = ImageWriter{}.word(0x02000000).word(0x54534C38).image('8', 1, 9, 0).bytes;
    const Bytes head = ImageWriter{}.program(0, "Other").bytes;
    chunk.insert(chunk.end(), head.begin(), head.end());
    std::thread([&] {
        instance.effect.setChunk(chunk.data(), int32_t(chunk.size()), false);
    }).join();
    EXPECT_EQ(instance.field(), before);
    instance.editor.idle();
    EXPECT_EQ(instance.field(), instance.name(9));
    EXPECT_EQ(instance.at<COptionMenu>(kList).getCurrent(), 9);
    EXPECT_EQ(instance.title(0), "Other");
}

}  // namespace tessel8
