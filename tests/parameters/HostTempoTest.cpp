// Sync mode: the host's tempo at a change of mode, at a written tempo, and at each block's start.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

struct HostTempo : ParametersTest {
    void hostBlock(double bpm) {
        outside.tempo = bpm;
        outside.tempoQuestions = 0;
        block();
    }
    void expectTempo(double bpm) {
        EXPECT_EQ(applied(at::TempoBpm), float(bpm));
        EXPECT_FLOAT_EQ(applied(at::Tempo), float((bpm - 30.0) / 320.0));
    }
};

}  // namespace

TEST_F(HostTempo, IsTakenOnEnteringSyncModeAndAskedForOnceABlockThere) {
    set(at::TimeMode, 0.5f, at::TimeMode, 0.0f);
    hostBlock(100.0);
    EXPECT_EQ(outside.tempoQuestions, 0);
    expectTempo(120.0);
    set(at::TimeMode, 1.0f);
    expectTempo(100.0);
    EXPECT_EQ(applied(at::WholeNotesInRing), 3.0f);
    for (const double bpm : {100.0, 150.0, 150.0, 500.0}) {
        hostBlock(bpm);
        EXPECT_EQ(outside.tempoQuestions, 1) << bpm << " BPM";
    }
}

TEST_F(HostTempo, IsFollowedAtABlocksStartWithoutTouchingTheStoredValue) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f, at::DelayT, 0.1f, at::NoteMode, 1.0f);  // an LFO of 0.5 Hz
    block();
    outside.told.clear();
    hostBlock(150.0);
    expectTempo(150.0);
    EXPECT_EQ(engine.delaySamples[0], 26460);  // six steps of 4410
    EXPECT_FLOAT_EQ(applied(at::DelayT), 0.075f);
    EXPECT_NEAR(engine.lfo.step, 0.625 * 2.0 * kPi / 44100.0, 1e-9);
    EXPECT_EQ(outside.told.find(" 5="), std::string::npos) << "a block tells no editor";
    EXPECT_EQ(outside.told.find('k'), std::string::npos);
    EXPECT_EQ(outside.program[at::Tempo], 0.375f);
    EXPECT_EQ(stored(at::Tempo), 0.28125f);
    EXPECT_FALSE(parameters.isDirty());
}

TEST_F(HostTempo, OutsideItsLimitsOrWhileAProgramLoadsChangesNothing) {
    outside.tempo = 200.0;
    set(at::TimeMode, 1.0f);
    for (const double bpm : {320.1, 29.9, -120.0, HUGE_VAL, std::nan("")}) {
        hostBlock(bpm);
        expectTempo(200.0);
        set(at::TimeMode, 1.0f);
        expectTempo(200.0);
    }
    outside.tempo.reset();
    block();
    expectTempo(200.0);
    for (const double bpm : {30.0, 320.0, 100.0}) {
        hostBlock(bpm);
        expectTempo(bpm);
    }
    outside.loading = true;
    hostBlock(150.0);
    set(at::TimeMode, 1.0f);
    expectTempo(100.0);
}

TEST_F(HostTempo, AWrittenTempoInSyncModeIsNeitherForwardedNorStoredAndGivesWayToTheHosts) {
    set(at::TimeMode, 1.0f, at::ZoomDel, 18.0f);
    EXPECT_EQ(toldBy(at::Tempo, 0.5f), " 332=0 7=18 d5=0.5");  // the host knows no tempo
    expectTempo(190.0);
    EXPECT_EQ(outside.program[at::Tempo], 0.28125f);
    hostBlock(100.0);
    set(at::Tempo, 0.5f);
    expectTempo(100.0);
    outside.tempo = 500.0;
    set(at::Tempo, 0.5f);
    expectTempo(190.0);
    outside.tempo = 100.0;
    outside.loading = true;
    set(at::Tempo, 0.25f);
    expectTempo(110.0);
}

TEST_F(HostTempo, ThatShrinksTheGridTakesLongDelaysAndWideRangesDown) {
    outside.tempo = 120.0;
    set(at::TimeMode, 1.0f, at::DelayT, 1.0f, at::DelayT + 1, 0.1f);  // 64 and 6 steps
    set(at::ZoomDel, 9.0f);
    block();
    hostBlock(50.0);
    // Whole notes of 211680: one in the memory, 16 steps of 13230.
    EXPECT_EQ(engine.delaySamples[0], 211680);
    EXPECT_FLOAT_EQ(applied(at::DelayT), 0.6f);
    EXPECT_EQ(engine.delaySamples[1], 79380);
    EXPECT_EQ(applied(at::ZoomDel), 7.0f);
}

}  // namespace tessel8
