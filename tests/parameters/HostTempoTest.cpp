// Sync mode: the host's tempo at a change of mode, at a written tempo, and at each block's start.

#include <limits>

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

class HostTempo : public ParametersTest {
  protected:
    void expectTempo(double bpm) {
        EXPECT_EQ(applied(at::TempoBpm), float(bpm));
        EXPECT_FLOAT_EQ(applied(at::Tempo), float((bpm - 30.0) / 320.0));
    }
};

}  // namespace

TEST_F(HostTempo, IsTakenOnEnteringSyncModeAlone) {
    outside.tempo = 100.0;
    set(at::TimeMode, 0.5f);
    set(at::TimeMode, 0.0f);
    block();
    EXPECT_EQ(outside.tempoQuestions, 0);
    expectTempo(120.0);
    set(at::TimeMode, 1.0f);
    expectTempo(100.0);
    EXPECT_EQ(applied(at::Tempo), 0.21875f);
    EXPECT_EQ(outside.program[at::Tempo], 0.21875f);
    EXPECT_EQ(applied(at::WholeNotesInRing), 3.0f);
    block();
    EXPECT_EQ(stored(at::Tempo), 0.21875f);
}

TEST_F(HostTempo, IsFollowedAtABlocksStartWithoutTouchingTheStoredValue) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f);
    set(at::DelayT, 0.1f);
    block();
    outside.told.clear();
    outside.tempo = 150.0;
    block();
    expectTempo(150.0);
    EXPECT_EQ(engine.delaySamples[0], 26460);  // six steps of 4410
    EXPECT_EQ(applied(at::DelaySteps), 6.0f);
    EXPECT_FLOAT_EQ(applied(at::DelayT), 0.075f);
    EXPECT_EQ(outside.told.front(), Outside::line("program", at::Tempo, 0.375f));
    EXPECT_EQ(outside.program[at::Tempo], 0.375f);
    EXPECT_EQ(stored(at::Tempo), 0.28125f);
    EXPECT_FALSE(parameters.isDirty());
    set(at::Mix, 0.5f);
    block();
    EXPECT_EQ(stored(at::Tempo), 0.375f);
}

TEST_F(HostTempo, IsAskedForOnceABlockAndInSyncModeOnly) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f);
    for (const double bpm : {120.0, 150.0, 150.0, 500.0}) {
        outside.tempo = bpm;
        outside.tempoQuestions = 0;
        block();
        EXPECT_EQ(outside.tempoQuestions, 1) << bpm << " BPM";
    }
    set(at::TimeMode, 0.5f);
    outside.tempoQuestions = 0;
    block();
    EXPECT_EQ(outside.tempoQuestions, 0);
}

TEST_F(HostTempo, OutsideItsLimitsChangesNothing) {
    outside.tempo = 200.0;
    set(at::TimeMode, 1.0f);
    for (const double bpm :
         {321.0, 29.9, 0.0, -120.0, 1e300, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        outside.tempo = bpm;
        block();
        expectTempo(200.0);
        set(at::TimeMode, 1.0f);
        expectTempo(200.0);
    }
    outside.tempo.reset();
    block();
    expectTempo(200.0);
    for (const double bpm : {30.0, 320.0, 200.0}) {
        outside.tempo = bpm;
        block();
        expectTempo(bpm);
    }
}

TEST_F(HostTempo, AWrittenTempoInSyncModeIsNeitherForwardedNorStored) {
    set(at::TimeMode, 1.0f);
    set(at::ZoomDel, 18.0f);
    outside.told.clear();
    set(at::Tempo, 0.5f);  // the host knows no tempo
    EXPECT_EQ(outside.told, (Told{editor(at::MidiLearn, 0), editor(at::ZoomDel, 18),
                                  Outside::line("digits", at::Tempo, 0.5f)}));
    expectTempo(190.0);
    EXPECT_EQ(outside.program[at::Tempo], 0.28125f);
    EXPECT_EQ(stored(at::Tempo), 0.5f);
}

TEST_F(HostTempo, LeadsOverAWrittenTempoOnceAudioHasRun) {
    Engine freshEngine;
    Parameters fresh(freshEngine);
    fresh.connect(nullptr, &outside);
    outside.tempo = 100.0;
    fresh.apply(at::TimeMode, 1.0f);
    fresh.apply(at::Tempo, 0.5f);
    EXPECT_EQ(fresh.applied(at::TempoBpm), 190.0f);
    fresh.beginBlock();
    EXPECT_EQ(fresh.applied(at::TempoBpm), 100.0f);
    fresh.apply(at::Tempo, 0.5f);
    EXPECT_EQ(fresh.applied(at::TempoBpm), 100.0f);
    EXPECT_EQ(fresh.applied(at::Tempo), 0.21875f);
    outside.tempo = 500.0;
    fresh.apply(at::Tempo, 0.5f);
    EXPECT_EQ(fresh.applied(at::TempoBpm), 190.0f);
    outside.tempo = 100.0;
    outside.loading = true;
    fresh.connect(&outside, &outside);
    fresh.apply(at::Tempo, 0.25f);
    EXPECT_EQ(fresh.applied(at::TempoBpm), 110.0f);
}

TEST_F(HostTempo, IsLeftAloneWhileAProgramLoads) {
    outside.tempo = 100.0;
    outside.loading = true;
    set(at::TimeMode, 1.0f);
    block();
    expectTempo(120.0);
    outside.loading = false;
    block();
    expectTempo(100.0);
}

TEST_F(HostTempo, ThatShrinksTheGridTakesLongDelaysAndWideRangesDown) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f);
    set(at::DelayT, 1.0f);      // 64 steps
    set(at::DelayT + 1, 0.1f);  // 6 steps
    set(at::ZoomDel, 9.0f);
    block();
    outside.tempo = 50.0;
    block();
    // Whole notes of 211680: one in the memory, 16 steps of 13230.
    EXPECT_EQ(engine.delaySamples[0], 211680);
    EXPECT_EQ(applied(at::DelaySteps), 16.0f);
    EXPECT_EQ(applied(at::DelayMs), 4800.0f);
    EXPECT_FLOAT_EQ(applied(at::DelayT), 0.6f);
    EXPECT_EQ(outside.program[at::DelayT], applied(at::DelayT));
    EXPECT_EQ(engine.delaySamples[1], 79380);
    EXPECT_EQ(applied(at::DelayMs + 1), 1800.0f);
    EXPECT_EQ(applied(at::ZoomDel), 7.0f);
    outside.tempo = 120.0;
    block();
    EXPECT_EQ(engine.delaySamples[0], 88200);  // the steps stay down
}

TEST_F(HostTempo, ArrivingInABlockTakesTheNoteModesLfoAlong) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f);
    set(at::NoteMode, 1.0f);  // whole notes: 0.5 Hz
    block();
    outside.told.clear();
    outside.tempo = 240.0;
    block();
    EXPECT_NEAR(engine.lfo.step, 1.0 * 2.0 * kPi / 44100.0, 1e-9);
    EXPECT_NEAR(applied(at::FreqMod), std::log(2.0) / std::log(16.0), 1e-6);
    for (const std::string& line : outside.told) {
        EXPECT_EQ(line.find("knob"), std::string::npos) << "a block tells no editor: " << line;
    }
}

}  // namespace tessel8
