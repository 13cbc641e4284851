// Delay times in the three time modes, the grid, steps and slider ranges. All figures are worked
// out by hand for 44100 Hz: a memory of 352800 samples, and at 120 BPM whole notes of 88200.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

/// Normalised tempo of a BPM figure that a float holds exactly.
float tempoOf(double bpm) {
    return float((bpm - 30.0) / 320.0);
}

struct DelayTime : ParametersTest {
    void expectTap(int tap, int32_t samples, int32_t ms, int32_t steps, double frac) {
        EXPECT_EQ(engine.delaySamples[tap], samples);
        EXPECT_EQ(applied(at::DelayMs + tap), float(ms));
        EXPECT_EQ(applied(at::DelaySteps + tap), float(steps));
        EXPECT_FLOAT_EQ(applied(at::DelayFrac + tap), float(frac));
    }
};

}  // namespace

TEST_F(DelayTime, TheGridHoldsTheWholeNotesThatFitIntoTheMemory) {
    const float kTempos[][4] = {
        {0, 30, 1, 352800}, {0.28125f, 120, 4, 352800}, {1, 350, 11, 332640}};
    for (const auto& [v, bpm, wholeNotes, longest] : kTempos) {
        set(at::Tempo, v, at::Note, 1.0f, at::DelayT + 7, 2.0f);
        EXPECT_EQ(applied(at::TempoBpm), bpm);
        EXPECT_EQ(applied(at::WholeNotesInRing), wholeNotes);
        EXPECT_FLOAT_EQ(applied(at::RingFracUsed), longest / 352800.0f);
        EXPECT_EQ(float(engine.delaySamples[7]), longest);
    }
}

TEST_F(DelayTime, AFreeDelayIsItsFractionOfTheMemoryAndStepsByMilliseconds) {
    set(at::TimeMode, 0.0f, at::DelayT, 0.1f);
    expectTap(0, 35280, 800, 6, 0.1);  // 35280 / 5512.5 = 6.4 steps
    set(at::StepUp, 0.0f);
    expectTap(0, 35324, 801, 6, 35324.0 / 352800.0);  // 801 ms are 35324.1 samples
    EXPECT_FLOAT_EQ(applied(at::DelayT), float(35324.0 / 352800.0));
    set(at::StepDown, 1.0f, at::StepDown, 1.0f);
    expectTap(0, 35236, 799, 6, 35236.0 / 352800.0);  // 35235.9
    set(at::DelayT, 1.0f, at::StepUp, 1.0f);
    expectTap(0, 352800, 8000, 64, 1.0);
    set(at::DelayT + 7, 0.0003f);
    expectTap(7, 105, 2, 0, 0.0003);  // 105.84 samples, 2.4 ms
    set(at::DelayT + 1, 0.0f, at::StepDown + 1, 1.0f);
    expectTap(1, 0, 0, 0, 0.0);
}

TEST_F(DelayTime, OnTheGridADelayGoesToTheNearestStepAndStepsByNotes) {
    set(at::DelayT + 5, 0.1f);
    expectTap(5, 33075, 750, 6, 0.09375);
    EXPECT_EQ(applied(at::DelayT + 5), 0.1f);  // until the next block
    block();
    EXPECT_EQ(applied(at::DelayT + 5), 0.09375f);
    EXPECT_EQ(outside.program[at::DelayT + 5], 0.09375f);
    set(at::StepDown + 5, 1.0f);
    expectTap(5, 27562, 624, 5, 27562.0 / 352800.0);  // 27562.5 samples, 624.99 ms
    block();
    expectTap(5, 27562, 625, 5, 27562.0 / 352800.0);  // rounded at a block's start
    for (int i = 0; i < 7; ++i) {
        set(at::StepDown + 5, 1.0f);
    }
    expectTap(5, 0, 0, 0, 0.0);
    set(at::DelayT + 5, 0.99f, at::StepUp + 5, 1.0f, at::StepUp + 5, 1.0f);
    expectTap(5, 352800, 8000, 64, 1.0);
}

TEST_F(DelayTime, NoteAndTempoCarryTheDelaysOver) {
    set(at::DelayT, 0.1f, at::Note, 0.3125f);  // steps of 22050; 33075 lies halfway from 1 to 2
    expectTap(0, 44100, 1000, 2, 0.125);
    set(at::TimeMode, 0.0f, at::DelayT, 0.1f, at::Note, 0.5625f);
    expectTap(0, 35280, 800, 6, 0.1);  // free delays keep their samples
    set(at::TimeMode, 0.5f);
    expectTap(0, 33075, 750, 6, 0.09375);
    set(at::Tempo, tempoOf(240.0));  // steps of 2756.25
    expectTap(0, 16537, 375, 6, 16537.0 / 352800.0);
    set(at::Tempo, tempoOf(120.0), at::DelayT, 1.0f, at::Tempo, tempoOf(100.0));
    // Whole notes of 105840: 3 in the memory, 317520 samples, 48 steps of 6615.
    expectTap(0, 317520, 7200, 48, 0.9);
    set(at::TimeMode, 0.0f, at::Tempo, tempoOf(60.0));
    EXPECT_EQ(engine.delaySamples[0], 317520);
}

TEST_F(DelayTime, SliderRangesMoveToTheNearestOneOfTheOtherKind) {
    // Mode, BPM (whole notes of 2, 1 and 8 seconds), from, to.
    const float kMoves[][4] = {{0.5f, 120, 0, 6},  {0.5f, 120, 3, 7}, {0.5f, 120, 4, 8},
                               {0.5f, 120, 5, 18}, {0.5f, 240, 2, 7}, {0.5f, 240, 4, 10},
                               {0.5f, 30, 1, 10},  {0.5f, 30, 3, 6},  {0.5f, 120, 9, 9},
                               {0, 120, 6, 1},     {0, 120, 8, 4},    {0, 120, 18, 5},
                               {0, 240, 10, 4},    {0, 240, 11, 5},   {0, 30, 6, 3},
                               {0, 350, 6, 1},     {0, 120, 2, 2}};
    for (const auto& [mode, bpm, from, to] : kMoves) {
        set(at::TimeMode, 0.5f - mode, at::Tempo, tempoOf(double(bpm)), at::ZoomDel, from);
        EXPECT_EQ(toldBy(at::TimeMode, mode), " 332=0" + Outside::line("", at::ZoomDel, to) +
                                                  " 5=0" + Outside::line("", at::TimeMode, mode) +
                                                  " all");
        EXPECT_EQ(applied(at::ZoomDel), to) << bpm << " BPM from " << from;
    }
    set(at::TimeMode, 0.5f, at::ZoomDel, 12.0f);  // six bars; at 120 BPM four fit
    EXPECT_EQ(toldBy(at::Tempo, 0.28125f), " 332=0 7=10 5=0.28125 all");
    for (const float stays : {10.0f, 18.0f, 6.0f}) {
        set(at::ZoomDel, stays, at::Tempo, 0.28125f);
        EXPECT_EQ(applied(at::ZoomDel), stays);
    }
}

TEST_F(DelayTime, ALoadingProgramHoldsBackWhatWouldRewriteIt) {
    set(at::DelayT, 0.1f);
    outside.loading = true;
    set(at::Note, 0.3125f);
    expectTap(0, 33075, 750, 6, 0.09375);  // not carried over
    set(at::ZoomDel, 3.0f, at::TimeMode, 0.5f);
    EXPECT_EQ(applied(at::ZoomDel), 3.0f);
    expectTap(0, 132300, 3000, 6, 0.375);  // but set anew by the steps that are there
    set(at::ZoomDel, 17.0f, at::Tempo, tempoOf(60.0));
    EXPECT_EQ(applied(at::ZoomDel), 17.0f);
    set(at::ZoomDel, 18.0f);
    EXPECT_EQ(toldBy(at::TimeMode, 0.0f), " 332=0 5=0 4=0");
    EXPECT_EQ(applied(at::ZoomDel), 18.0f);
    set(at::TimeMode, 0.5f, at::DelayT, 0.1f);
    outside.told.clear();
    block();
    EXPECT_EQ(applied(at::DelayT), 0.1f);  // nothing is written back either
    EXPECT_EQ(outside.told, "");
}

}  // namespace tessel8
