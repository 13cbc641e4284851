// Delay times in the three time modes, the note table, the grid, steps and slider ranges. All
// figures are worked out by hand for 44100 Hz: a memory of 352800 samples, and at 120 BPM whole
// notes of 88200.

#include <limits>

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

constexpr float kTimeModes[] = {0.0f, 0.5f, 1.0f};
constexpr int32_t kDivisors[] = {1, 1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 48, 64, 96, 128, 192};
constexpr double kThresholds[] = {0.063, 0.126, 0.188, 0.251, 0.313, 0.376, 0.438, 0.501,
                                  0.563, 0.626, 0.688, 0.751, 0.813, 0.876, 0.938};

/// Normalised tempo of a BPM figure that a float holds exactly.
float tempoOf(double bpm) {
    return float((bpm - 30.0) / 320.0);
}

class DelayTime : public ParametersTest {
  protected:
    void expectTap(int tap, int32_t samples, int32_t ms, int32_t steps, double frac) {
        EXPECT_EQ(engine.delaySamples[tap], samples);
        EXPECT_EQ(applied(at::DelayMs + tap), float(ms));
        EXPECT_EQ(applied(at::DelaySteps + tap), float(steps));
        EXPECT_FLOAT_EQ(applied(at::DelayFrac + tap), float(frac));
    }
    void expectGrid(double wholeNote, int32_t wholeNotes, double frac) {
        EXPECT_EQ(applied(at::WholeNotesInRing), float(wholeNotes));
        EXPECT_FLOAT_EQ(applied(at::RingFracUsed), float(frac));
        EXPECT_NEAR(applied(at::RingFracUsed) * 352800.0, wholeNote * wholeNotes, 0.1);
    }
    /// The longest delay that a tap on the grid can be stepped to.
    int32_t longestDelay() {
        set(at::Note, 1.0f);
        set(at::DelayT + 7, 2.0f);
        return engine.delaySamples[7];
    }
};

}  // namespace

TEST_F(DelayTime, TimeModeHasThreeValues) {
    for (const auto& [v, mode] : {std::pair{-1.0f, 0.0f},
                                  {0.0f, 0.0f},
                                  {0.25f, 0.0f},
                                  {0.26f, 0.5f},
                                  {0.5f, 0.5f},
                                  {0.74f, 0.5f},
                                  {0.75f, 1.0f},
                                  {1.0f, 1.0f},
                                  {18.0f, 1.0f}}) {
        set(at::TimeMode, v);
        EXPECT_EQ(applied(at::TimeMode), mode) << "value " << v;
    }
}

TEST_F(DelayTime, TempoRunsFrom30To350) {
    set(at::Tempo, 0.0f);
    EXPECT_EQ(applied(at::TempoBpm), 30.0f);
    expectGrid(352800.0, 1, 1.0);
    set(at::Tempo, 0.28125f);
    EXPECT_EQ(applied(at::TempoBpm), 120.0f);
    expectGrid(88200.0, 4, 1.0);
    EXPECT_EQ(longestDelay(), 352800);
    set(at::Tempo, 1.0f);
    EXPECT_EQ(applied(at::TempoBpm), 350.0f);
    expectGrid(30240.0, 11, 332640.0 / 352800.0);
    EXPECT_EQ(longestDelay(), 332640);
}

TEST_F(DelayTime, EveryNoteHasItsDivisorUpToItsThreshold) {
    // One step of the first row is four beats, of row k 88200 / divisor samples; a tap at half the
    // memory shows the divisor as its count of steps: 2 whole notes * divisor.
    set(at::TimeMode, 0.0f);
    set(at::DelayT, 0.5f);
    const auto expectDivisor = [this](float note, int32_t divisor) {
        set(at::Note, note);
        EXPECT_EQ(applied(at::DelaySteps), float(2 * divisor)) << "Note " << note;
    };
    for (int row = 1; row <= 16; ++row) {
        expectDivisor(float(row) / 16.0f, kDivisors[row - 1]);
    }
    for (int row = 1; row <= 15; ++row) {
        expectDivisor(float(kThresholds[row - 1] - 1e-4), kDivisors[row - 1]);
        expectDivisor(float(kThresholds[row - 1] + 1e-4), kDivisors[row]);
    }
    expectDivisor(-1.0f, 1);
    expectDivisor(0.0f, 1);
    expectDivisor(5.0f, 192);
}

TEST_F(DelayTime, AFreeDelayIsItsFractionOfTheMemory) {
    set(at::TimeMode, 0.0f);
    set(at::DelayT, 0.1f);
    expectTap(0, 35280, 800, 6, 0.1);  // 35280 / 5512.5 = 6.4 steps
    set(at::DelayT, 1.0f);
    expectTap(0, 352800, 8000, 64, 1.0);
    set(at::DelayT + 7, 0.0003f);
    expectTap(7, 105, 2, 0, 0.0003);  // 105.84 samples, 2.4 ms
}

TEST_F(DelayTime, OnTheGridADelayGoesToTheNearestStep) {
    set(at::DelayT, 0.1f);
    expectTap(0, 33075, 750, 6, 0.09375);
    EXPECT_EQ(applied(at::DelayT), 0.1f);  // until the next block
    block();
    EXPECT_EQ(applied(at::DelayT), 0.09375f);
    EXPECT_EQ(stored(at::DelayT), 0.09375f);
    EXPECT_EQ(outside.program[at::DelayT], 0.09375f);
}

TEST_F(DelayTime, MillisecondsAreCutOnApplyingAndRoundedAtABlocksStart) {
    set(at::DelayT, 0.0156f);  // one step of 5512.5: 5512 samples, 124.99 ms
    expectTap(0, 5512, 124, 1, 5512.0 / 352800.0);
    block();
    expectTap(0, 5512, 125, 1, 5512.0 / 352800.0);
    EXPECT_FLOAT_EQ(applied(at::DelayT), float(5512.0 / 352800.0));
    set(at::StepUp, 0.0f);  // 11025 samples are 250 ms
    set(at::StepDown, 0.0f);
    expectTap(0, 5512, 124, 1, 5512.0 / 352800.0);
}

TEST_F(DelayTime, ANewNoteCarriesTheDelayOverToItsNearestStep) {
    set(at::DelayT, 0.1f);
    set(at::Note, 0.3125f);  // steps of 22050; 33075 stands halfway between 1 and 2
    expectTap(0, 44100, 1000, 2, 0.125);
    set(at::TimeMode, 0.0f);
    set(at::DelayT, 0.1f);
    set(at::Note, 0.5625f);
    expectTap(0, 35280, 800, 6, 0.1);  // free delays keep their samples
    set(at::TimeMode, 0.5f);
    expectTap(0, 33075, 750, 6, 0.09375);
}

TEST_F(DelayTime, ANewTempoMovesTheTapsWithTheGrid) {
    set(at::DelayT + 2, 0.1f);
    set(at::Tempo, tempoOf(240.0));  // steps of 2756.25
    expectTap(2, 16537, 375, 6, 16537.0 / 352800.0);
    set(at::TimeMode, 0.0f);
    set(at::Tempo, tempoOf(60.0));
    EXPECT_EQ(engine.delaySamples[2], 16537);
}

TEST_F(DelayTime, ADelayLongerThanTheGridComesDownToItsLastStep) {
    set(at::DelayT, 1.0f);  // 64 steps at 120 BPM
    set(at::Tempo, tempoOf(100.0));
    // Whole notes of 105840: 3 in the memory, 317520 samples, 48 steps of 6615.
    expectTap(0, 317520, 7200, 48, 0.9);
    block();
    EXPECT_FLOAT_EQ(applied(at::DelayT), 0.9f);
}

TEST_F(DelayTime, EachApplicationOfADelayFadesTheTapIn) {
    for (const float mode : kTimeModes) {
        set(at::TimeMode, mode);
        set(at::DelayT + 4, 0.25f);
        engine.beginBlock();
        engine.tapFade.fill(1.0f);
        engine.fadeHoldCount = 1000;
        set(at::DelayT + 4, 0.25f);  // the same value again
        engine.beginBlock();
        EXPECT_EQ(engine.tapFade[4], 0.0f) << "mode " << mode;
        EXPECT_EQ(engine.tapFade[3], 1.0f) << "mode " << mode;
        EXPECT_EQ(engine.fadeHoldCount, 0) << "mode " << mode;
        for (const int32_t step : {int32_t(at::StepUp), int32_t(at::StepDown)}) {
            engine.tapFade[4] = 1.0f;
            set(step + 4, 1.0f);
            engine.beginBlock();
            EXPECT_EQ(engine.tapFade[4], 0.0f) << "mode " << mode << " step " << step;
        }
    }
}

TEST_F(DelayTime, InTimeModeAStepIsAMillisecondAndStopsAtBothEnds) {
    set(at::TimeMode, 0.0f);
    set(at::DelayT, 0.1f);
    set(at::StepUp, 0.0f);
    expectTap(0, 35324, 801, 6, 35324.0 / 352800.0);  // 801 ms are 35324.1 samples
    EXPECT_FLOAT_EQ(applied(at::DelayT), float(35324.0 / 352800.0));
    EXPECT_EQ(outside.program[at::DelayT], applied(at::DelayT));
    set(at::StepDown, 1.0f);
    set(at::StepDown, 1.0f);
    expectTap(0, 35236, 799, 6, 35236.0 / 352800.0);  // 35235.9
    set(at::DelayT, 1.0f);
    set(at::StepUp, 1.0f);
    expectTap(0, 352800, 8000, 64, 1.0);
    set(at::DelayT + 1, 0.0f);
    set(at::StepDown + 1, 1.0f);
    expectTap(1, 0, 0, 0, 0.0);
}

TEST_F(DelayTime, OnTheGridAStepIsANoteStepAndStopsAtBothEnds) {
    set(at::DelayT + 5, 0.1f);
    set(at::StepDown + 5, 1.0f);
    expectTap(5, 27562, 624, 5, 27562.0 / 352800.0);  // 27562.5 samples, 624.99 ms
    EXPECT_FLOAT_EQ(applied(at::DelayT + 5), float(27562.0 / 352800.0));
    for (int i = 0; i < 7; ++i) {
        set(at::StepDown + 5, 1.0f);
    }
    expectTap(5, 0, 0, 0, 0.0);
    set(at::DelayT + 5, 0.99f);
    set(at::StepUp + 5, 1.0f);
    expectTap(5, 352800, 8000, 64, 1.0);
    set(at::StepUp + 5, 1.0f);
    expectTap(5, 352800, 8000, 64, 1.0);
}

TEST_F(DelayTime, AStepBelowAHundredMillisecondsLeavesPostFeedback) {
    set(at::TimeMode, 0.0f);
    set(at::DelayT, 0.012625f);  // 101 ms
    set(at::FBPostT, 1.0f);
    set(at::StepDown, 1.0f);
    set(at::StepUp, 1.0f);
    EXPECT_EQ(applied(at::FBPostT), 1.0f);
    set(at::StepDown, 1.0f);
    set(at::StepDown, 1.0f);  // 99 ms
    EXPECT_EQ(applied(at::FBPostT), 0.0f);
}

TEST_F(DelayTime, SliderRangesMoveToTheNearestOneOfTheOtherKind) {
    const struct {
        double bpm;  // whole notes of 2, 1 and 8 seconds
        float from, to;
    } kToNotes[] = {{120, 0, 6},  {120, 1, 7}, {120, 2, 7}, {120, 3, 7},  {120, 4, 8},
                    {120, 5, 18}, {240, 0, 6}, {240, 1, 6}, {240, 2, 7},  {240, 3, 8},
                    {240, 4, 10}, {30, 0, 6},  {30, 1, 10}, {30, 2, 7},   {30, 3, 6},
                    {30, 5, 18},  {120, 6, 6}, {120, 9, 9}, {120, 18, 18}},
      kToTime[] = {{120, 6, 1}, {120, 7, 3}, {120, 8, 4}, {120, 9, 5},  {120, 18, 5},
                   {240, 6, 1}, {240, 7, 2}, {240, 8, 3}, {240, 10, 4}, {240, 11, 5},
                   {30, 6, 3},  {30, 7, 5},  {350, 6, 1}, {120, 5, 5},  {120, 2, 2}};
    for (const auto& move : kToNotes) {
        set(at::TimeMode, 0.0f);
        set(at::Tempo, tempoOf(move.bpm));
        set(at::ZoomDel, move.from);
        outside.told.clear();
        set(at::TimeMode, 0.5f);
        EXPECT_EQ(applied(at::ZoomDel), move.to) << move.bpm << " BPM from " << move.from;
        EXPECT_EQ(outside.told,
                  (Told{editor(at::MidiLearn, 0), editor(at::ZoomDel, move.to),
                        editor(at::Tempo, 0), editor(at::TimeMode, 0.5f), "program all"}));
    }
    for (const auto& move : kToTime) {
        set(at::TimeMode, 0.5f);
        set(at::Tempo, tempoOf(move.bpm));
        set(at::ZoomDel, move.from);
        outside.told.clear();
        set(at::TimeMode, 0.0f);
        EXPECT_EQ(applied(at::ZoomDel), move.to) << move.bpm << " BPM from " << move.from;
        EXPECT_EQ(outside.told,
                  (Told{editor(at::MidiLearn, 0), editor(at::ZoomDel, move.to),
                        editor(at::Tempo, 0), editor(at::TimeMode, 0), "program all"}));
    }
}

TEST_F(DelayTime, ASlowerTempoTakesASliderRangeOfTooManyBarsDown) {
    set(at::ZoomDel, 12.0f);  // six bars; four fit
    outside.told.clear();
    set(at::Tempo, 0.28125f);
    EXPECT_EQ(applied(at::ZoomDel), 10.0f);
    EXPECT_EQ(outside.told, (Told{editor(at::MidiLearn, 0), editor(at::ZoomDel, 10),
                                  editor(at::Tempo, 0.28125f), "program all"}));
    for (const float stays : {9.0f, 18.0f, 6.0f}) {
        set(at::ZoomDel, stays);
        set(at::Tempo, 0.28125f);
        EXPECT_EQ(applied(at::ZoomDel), stays);
    }
    parameters.connect(static_cast<EditorLink*>(nullptr));
    set(at::ZoomDel, 12.0f);
    set(at::Tempo, 0.28125f);
    EXPECT_EQ(applied(at::ZoomDel), 12.0f);
}

TEST_F(DelayTime, ALoadingProgramHoldsBackWhatWouldRewriteIt) {
    set(at::DelayT, 0.1f);
    outside.loading = true;
    set(at::Note, 0.3125f);
    expectTap(0, 33075, 750, 6, 0.09375);  // not carried over
    set(at::ZoomDel, 3.0f);
    set(at::TimeMode, 0.5f);
    EXPECT_EQ(applied(at::ZoomDel), 3.0f);
    expectTap(0, 132300, 3000, 6, 0.375);  // but set anew by the steps that are there
    set(at::Tempo, tempoOf(240.0));
    expectTap(0, 66150, 1500, 6, 0.1875);
    set(at::ZoomDel, 17.0f);
    set(at::Tempo, tempoOf(60.0));
    EXPECT_EQ(applied(at::ZoomDel), 17.0f);
    set(at::ZoomDel, 18.0f);
    outside.told.clear();
    set(at::TimeMode, 0.0f);
    EXPECT_EQ(applied(at::ZoomDel), 18.0f);
    EXPECT_EQ(outside.told,
              (Told{editor(at::MidiLearn, 0), editor(at::Tempo, 0), editor(at::TimeMode, 0)}));
    set(at::TimeMode, 0.5f);
    set(at::DelayT, 0.1f);
    outside.told.clear();
    block();
    EXPECT_EQ(applied(at::DelayT), 0.1f);  // nothing is written back either
    EXPECT_EQ(outside.told, Told{});
}

TEST_F(DelayTime, ANewRateMovesTheGridButNoTap) {
    set(at::DelayT, 0.1f);
    parameters.setSampleRate(88200.0f);
    engine.ringLen = 705600;
    parameters.recalculateForRate();
    expectGrid(88200.0, 4, 1.0);
    EXPECT_EQ(applied(at::RingLen), 705600.0f);
    EXPECT_EQ(engine.delaySamples[0], 33075);
    set(at::DelayT, 0.1f);
    EXPECT_EQ(engine.delaySamples[0], 66150);
}

TEST_F(DelayTime, AbsurdDelaysStayCountable) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float mode : kTimeModes) {
        set(at::TimeMode, mode);
        for (const float v : {1e30f, kInfinity, std::numeric_limits<float>::quiet_NaN(), -1e30f}) {
            set(at::DelayT, v);
            block();
            EXPECT_GE(engine.readDelay[0], 0) << "value " << v;
            EXPECT_LT(engine.readDelay[0], engine.ringLen) << "value " << v;
        }
    }
}

}  // namespace tessel8
