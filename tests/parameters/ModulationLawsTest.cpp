// LFO, note mode, song position and envelope follower.

#include <algorithm>

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

class Modulation : public ParametersTest {
  protected:
    double lfoHz() const { return double(engine.lfo.step) * 44100.0 / (2.0 * kPi); }

    /// Note mode at two eighths a cycle: 2 Hz at 120 BPM.
    void setNoteMode() {
        set(at::NumMod, 0.25f);
        set(at::DenomMod, 5.0f / 12.0f);
        set(at::NoteMode, 1.0f);
    }
};

}  // namespace

TEST_F(Modulation, TheFreeLfoRunsFromAHundredthTo15Hertz) {
    for (const auto& [v, hz] :
         {std::pair{0.0f, 0.01}, {0.5f, 3.0}, {1.0f, 15.0}, {0.25f, 1.0}, {-1.0f, 0.01}}) {
        set(at::FreqMod, v);
        EXPECT_NEAR(lfoHz(), hz, 1e-6 * hz + 1e-9) << "value " << v;
    }
    set(at::FreqMod, 0.5f);
    parameters.setSampleRate(88200.0f);
    parameters.recalculateForRate();
    EXPECT_NEAR(engine.lfo.step, 3.0 * 2.0 * kPi / 88200.0, 1e-9);
}

TEST_F(Modulation, NoteModeDerivesTheFrequencyFromTempoAndNote) {
    setNoteMode();
    EXPECT_NEAR(lfoHz(), 2.0, 1e-5);  // 120 * 8 / (2 * 240)
    EXPECT_NEAR(applied(at::FreqMod), std::log(3.0) / std::log(16.0), 1e-6);
    EXPECT_EQ(applied(at::NoteFreqMod), applied(at::FreqMod));
    const float derived = applied(at::FreqMod);
    EXPECT_NE(std::find(outside.told.begin(), outside.told.end(),
                        Outside::line("knob", at::FreqMod, derived)),
              outside.told.end());
    set(at::Tempo, 0.65625f);  // 240 BPM
    EXPECT_NEAR(lfoHz(), 4.0, 1e-5);
    outside.tempo = 60.0;
    set(at::TimeMode, 1.0f);
    EXPECT_NEAR(lfoHz(), 1.0, 1e-5);
}

TEST_F(Modulation, NumeratorsAndDenominatorsSnapToTheirSteps) {
    const double kNumerators[] = {1, 2, 3, 4, 8};
    const double kDenominators[] = {1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 48, 64, 96};
    set(at::Tempo, 0.0f);  // 30 BPM: denominator / (8 * numerator) Hz
    set(at::NoteMode, 1.0f);
    for (int num = 0; num < 5; ++num) {
        for (int den = 0; den < 13; ++den) {
            set(at::NumMod, float(num) / 4.0f + 0.1f);
            set(at::DenomMod, float(den) / 12.0f - 0.04f);
            EXPECT_FLOAT_EQ(applied(at::NumMod), float(num) / 4.0f);
            EXPECT_NEAR(applied(at::DenomMod), den / 12.0, 1e-7);
            const double hz = kDenominators[den] / (8.0 * kNumerators[num]);
            EXPECT_NEAR(lfoHz(), hz, 1e-5 * hz + 1e-6) << num << "/" << den;
        }
    }
}

TEST_F(Modulation, NoteModeGoesNoFasterThan15Hertz) {
    set(at::Tempo, 1.0f);
    set(at::DenomMod, 1.0f);
    set(at::NoteMode, 1.0f);  // 350 * 96 / 240 would be 140 Hz
    EXPECT_NEAR(lfoHz(), 15.0, 1e-4);
    EXPECT_NEAR(applied(at::FreqMod), 1.0, 1e-6);
}

TEST_F(Modulation, MovingTheFrequencyEndsNoteModeAndSync) {
    setNoteMode();
    set(at::SyncMod, 1.0f);
    outside.told.clear();
    set(at::FreqMod, 0.5f);
    EXPECT_EQ(applied(at::NoteMode), 0.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.0f);
    EXPECT_NEAR(lfoHz(), 3.0, 1e-5);
    EXPECT_EQ(outside.told, (Told{editor(at::MidiLearn, 0), editor(at::MidiLearn, 0),
                                  editor(at::NoteMode, 0), "program all", editor(at::SyncMod, 0),
                                  editor(at::FreqMod, 0.5f), "program all"}));
}

TEST_F(Modulation, TheFrequencyThatTheNoteGaveLeavesNoteModeOn) {
    setNoteMode();
    set(at::SyncMod, 1.0f);
    set(at::FreqMod, applied(at::NoteFreqMod));
    EXPECT_EQ(applied(at::NoteMode), 1.0f);
    EXPECT_EQ(applied(at::SyncMod), 1.0f);
}

TEST_F(Modulation, SyncNeedsNoteModeToBeTurnedOnButNotToStay) {
    set(at::SyncMod, 1.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.0f);
    block();
    EXPECT_EQ(stored(at::SyncMod), 0.0f);
    set(at::NoteMode, 0.4f);
    set(at::SyncMod, 0.7f);
    EXPECT_EQ(applied(at::NoteMode), 0.4f);
    EXPECT_EQ(applied(at::SyncMod), 0.7f);
    set(at::NoteMode, 0.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.7f);
}

TEST_F(Modulation, ANoteChangedWithoutNoteModeForgetsTheNotesFrequency) {
    const float before = applied(at::FreqMod);
    set(at::NumMod, 0.5f);
    EXPECT_EQ(applied(at::NoteFreqMod), 10.0f);
    EXPECT_EQ(applied(at::FreqMod), before);
}

TEST_F(Modulation, TheSongPositionSetsThePhase) {
    setNoteMode();  // a cycle is one beat
    set(at::PhaseMod, 0.5f);
    for (const auto& [beats, phase] : {std::pair{5.25, kPi / 2.0},
                                       {5.75, -kPi / 2.0},
                                       {5.0, 0.0},
                                       {8.125, kPi / 4.0},
                                       {-0.25, -kPi / 2.0}}) {
        outside.position = beats;
        block();
        EXPECT_EQ(engine.lfo.phase, 0.0f) << "sync is off";
        set(at::SyncMod, 1.0f);
        block();
        EXPECT_NEAR(engine.lfo.phase, phase, 1e-4) << "at " << beats;
        EXPECT_NEAR(engine.lfo.phasePos, phase, 1e-4) << "at " << beats;
        engine.lfo.phase = 1.0f;
        block();  // a stopped transport leaves the LFO alone
        EXPECT_EQ(engine.lfo.phase, 1.0f);
        outside.loading = true;
        outside.position = beats + 0.3;
        block();
        EXPECT_EQ(engine.lfo.phase, 1.0f);
        outside.loading = false;
        outside.position.reset();
        block();
        EXPECT_EQ(engine.lfo.phase, 1.0f);
        engine.lfo.phase = 0.0f;
        set(at::SyncMod, 0.0f);
    }
}

TEST_F(Modulation, TheWaveSurvivesWhileModulationIsOff) {
    EXPECT_EQ(engine.lfo.wave, LfoWave::Off);
    set(at::WaveMod, 0.8f);  // step 3.2 + 0.5
    EXPECT_EQ(engine.lfo.wave, LfoWave::Off);
    set(at::ActMod, 0.1f);
    EXPECT_EQ(engine.lfo.wave, LfoWave::Saw);
    for (int step = 0; step < 5; ++step) {
        set(at::WaveMod, float(step) / 4.0f);
        EXPECT_EQ(int(engine.lfo.wave), step);
    }
    set(at::ActMod, 0.0f);
    EXPECT_EQ(engine.lfo.wave, LfoWave::Off);
    set(at::ActMod, 1.0f);
    EXPECT_EQ(engine.lfo.wave, LfoWave::Random);
}

TEST_F(Modulation, ThePhaseOffsetSpreadsTheOutputsAroundTheMasterPhase) {
    engine.lfo.phase = 3.0f;
    set(at::PhaseMod, 1.0f);
    engine.beginBlock();
    EXPECT_NEAR(engine.lfo.phasePos, 3.0 - kPi / 2.0, 1e-6);
    EXPECT_NEAR(engine.lfo.phaseNeg, 3.0 + kPi / 2.0 - 2.0 * kPi, 1e-6);
    set(at::PhaseMod, 0.5f);
    engine.beginBlock();
    EXPECT_EQ(engine.lfo.phasePos, 3.0f);
    EXPECT_EQ(engine.lfo.phaseNeg, 3.0f);
}

TEST_F(Modulation, SourceFadesFromLfoToFollowerAndDepthTurnsBoth) {
    const struct {
        float source, depth;
        double lfo, follower;
    } kPoints[] = {{0.0f, 1.0f, 1.0, 0.0},
                   {1.0f, 1.0f, 0.0, 1.0},
                   {0.25f, 0.0f, -0.75, -0.25},
                   {0.25f, 0.75f, 0.375, 0.125},
                   {0.5f, 0.5f, 0.0, 0.0}};
    for (const auto& p : kPoints) {
        set(at::SourceF + 7, p.source);
        set(at::DepthFT + 7, p.depth);
        EXPECT_FLOAT_EQ(engine.tapLfoAmount[7], float(p.lfo));
        EXPECT_FLOAT_EQ(engine.tapEfAmount[7], float(p.follower));
        set(at::DepthFB, p.depth);
        set(at::SourceFB, p.source);
        EXPECT_FLOAT_EQ(engine.fbLfoAmount, float(p.lfo));
        EXPECT_FLOAT_EQ(engine.fbEfAmount, float(p.follower));
    }
    set(at::PhaseFT + 7, 0.1f);
    EXPECT_NE(engine.tapLfoNegative[7], 0);
    EXPECT_EQ(engine.tapLfoNegative[6], 0);
}

TEST_F(Modulation, TheFollowersSourceSnapsToOneOfTen) {
    for (int step = 0; step < 10; ++step) {
        set(at::SourceEF, float(step) / 9.0f + 0.04f);
        EXPECT_EQ(engine.follower.source, step);
        EXPECT_NEAR(applied(at::SourceEF), step / 9.0, 1e-7);
    }
}

TEST_F(Modulation, TheFollowersTimeRunsFromAMillisecondToASecond) {
    for (const auto& [v, seconds] :
         {std::pair{0.0f, 0.001024}, {0.125f, 0.153 * 0.153}, {0.5f, 0.516 * 0.516}, {1.0f, 1.0}}) {
        set(at::SpeedEF, v);
        for (const double rate : {44100.0, 192000.0}) {
            parameters.setSampleRate(float(rate));
            parameters.recalculateForRate();
            // sqrt(2)^(1 / n) - 1 by its series: n is at least 45, so three terms are plenty.
            const auto coefficient = [](double n) {
                const double x = std::log(2.0) / 2.0 / n;
                return x + x * x / 2.0 + x * x * x / 6.0;
            };
            const double fast = coefficient(rate * seconds);
            const double slow = coefficient(rate * seconds * 10.0);
            EXPECT_NEAR(engine.follower.fastCoef, fast, 1e-6 * fast) << v << " at " << rate;
            EXPECT_NEAR(engine.follower.slowCoef, slow, 1e-6 * slow) << v << " at " << rate;
        }
    }
}

}  // namespace tessel8
