// The strip's gestures.

#include <thread>

#include "PresetFixture.h"

namespace tessel8 {

namespace {

struct StripTest : PresetTest {
    Instance instance;
    AnsweringWindow& window = instance.window();
};

}  // namespace

TEST_F(StripTest, TheListHasAllProgramsAndSelectsOne) {
    instance.effect.selectProgram(3);
    instance.effect.setParameter(3, 0.375f);
    instance.click(Instance::kList, mouse::kRight);
    EXPECT_EQ(window.menu.entriesPerColumn, 35);
    ASSERT_EQ(window.menu.entries.size(), 140u);
    EXPECT_EQ(window.menu.entries[139], instance.name(139));
    window.endMenu(41);
    EXPECT_EQ(instance.current(), 41);
    EXPECT_EQ(instance.field(), instance.name(41));
    instance.click(Instance::kList);
    EXPECT_EQ(window.menu.current, 41);
    window.endMenu(3);
    EXPECT_EQ(instance.effect.getParameter(3), 0.375f) << "programs keep what was edited";
}

TEST_F(StripTest, ALongNameIsCutTo23InTheStoreAnd24OnThePanel) {
    const std::string typed = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234";
    instance.choose(Instance::kField, typed);
    EXPECT_EQ(instance.name(0), typed.substr(0, 23));
    instance.editor.idle();
    EXPECT_EQ(instance.field(), typed.substr(0, 24));
    EXPECT_EQ(instance.title(0), typed.substr(0, 24));
    instance.choose(Instance::kField, "ABCDEFGHIJKLMNOPQRSTUVäXYZ");
    EXPECT_EQ(instance.name(0) + "ä", instance.field()) << "no character is cut in two";
}

TEST_F(StripTest, TheRockerStepsAndStaysAtTheEnds) {
    const auto expectStep = [&](int32_t side, int32_t from, int32_t to) {
        instance.effect.selectProgram(from);
        instance.click(side);
        EXPECT_EQ(instance.current(), to);
        EXPECT_EQ(instance.field(), instance.name(to));
        EXPECT_EQ(instance.at<COptionMenu>(Instance::kList).getCurrent(), to);
    };
    expectStep(Instance::kUp, 1, 2);
    expectStep(Instance::kUp, 139, 139);
    expectStep(Instance::kDown, 2, 1);
    expectStep(Instance::kDown, 0, 0);
}

TEST_F(StripTest, OneDialogStandsAtATimeAndClosingTheWindowEndsIt) {
    instance.click(Instance::kSaveBank);
    instance.click(Instance::kLoadPreset);
    EXPECT_EQ(window.title, "Save bank");
    const auto answer = window.endText;
    instance.editor.close();
    answer(home / "late.vtb");
    EXPECT_FALSE(fs::exists(home / "late.vtb"));
    instance.editor.open(nullptr);
    instance.choose(Instance::kSaveBank, home / "in time.vtb");
    EXPECT_TRUE(fs::exists(home / "in time.vtb"));
}

TEST_F(StripTest, TheStoredKeyboardFocusIsTheFramesAndTheManualIsMissing) {
    instance.click(Instance::kFocus);
    EXPECT_EQ(contentsOf(settings / "KeyboardFocus.int"), "1\n");
    Instance next;
    EXPECT_EQ(next.at<CVTOnOffButton>(Instance::kFocus).getValue(), 1.0f);
    EXPECT_EQ(next.window().focusTaken, 1);
    next.click(Instance::kFocus);
    EXPECT_EQ(contentsOf(settings / "KeyboardFocus.int"), "0\n");
    next.click(Instance::kManual);
    EXPECT_EQ(next.window().focusTaken, 2) << "with the press that switched it off";
    EXPECT_EQ(next.window().messages, "|Could not open user manual;");
}

TEST_F(StripTest, WhatOtherThreadsDoToTheStoreIsShownAtTheNextIdle) {
    const std::string before = instance.field();
    Bytes bank = instance.effect.writeBank();
    bank[17] = 9, bank[41 + 12] = 'X';
    Bytes chunk = ImageWriter{}.word(0x02000000).word(0x54534C38).bytes;
    chunk.insert(chunk.end(), bank.begin(), bank.end());
    std::thread([&] {
        instance.effect.setChunk(chunk.data(), int32_t(chunk.size()), false);
    }).join();
    EXPECT_EQ(instance.field(), before);
    instance.editor.idle();
    EXPECT_EQ(instance.field(), instance.name(9));
    EXPECT_EQ(instance.at<COptionMenu>(Instance::kList).getCurrent(), 9);
    EXPECT_EQ(instance.title(0), "Xinit");
}

}  // namespace tessel8
