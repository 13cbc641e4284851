// Laws that depend on other values: note mode, peak filters, reverb sends.

#include <tuple>

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

struct Modulation : ParametersTest {
    double lfoHz() const { return double(engine.lfo.step) * 44100.0 / (2.0 * kPi); }
    /// Note mode at two eighths a cycle: 2 Hz at 120 BPM.
    void setNoteMode() { set(at::NumMod, 0.25f, at::DenomMod, 5.0f / 12.0f, at::NoteMode, 1.0f); }
};

}  // namespace

TEST_F(Modulation, NoteModeDerivesTheFrequencyFromTempoAndNote) {
    for (const auto& [v, hz] : {std::pair{-1.0f, 0.01}, {0.5f, 3.0}, {1.0f, 15.0}}) {
        set(at::FreqMod, v);
        EXPECT_NEAR(lfoHz(), hz, 1e-6 * hz + 1e-9) << "value " << v;
    }
    setNoteMode();
    EXPECT_NEAR(lfoHz(), 2.0, 1e-5);  // 120 * 8 / (2 * 240)
    EXPECT_NEAR(applied(at::FreqMod), std::log(3.0) / std::log(16.0), 1e-6);
    EXPECT_NE(outside.told.find(" k11=0.396"), std::string::npos) << outside.told;
    set(at::Tempo, 1.0f, at::DenomMod, 1.0f);  // 350 * 96 / (2 * 240) would be 70 Hz
    EXPECT_NEAR(lfoHz(), 15.0, 1e-4);
    outside.tempo = 60.0;
    set(at::DenomMod, 0.42f, at::TimeMode, 1.0f);  // near the eighths
    EXPECT_NEAR(lfoHz(), 1.0, 1e-5);
    EXPECT_NEAR(applied(at::DenomMod), 5.0 / 12.0, 1e-7);
    set(at::NoteMode, 0.0f, at::NumMod, 0.5f);
    EXPECT_EQ(applied(at::NoteFreqMod), 10.0f);
}

TEST_F(Modulation, MovingTheFrequencyEndsNoteModeAndSync) {
    set(at::SyncMod, 1.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.0f);  // it needs note mode to be turned on
    setNoteMode();
    set(at::SyncMod, 0.7f, at::FreqMod, applied(at::NoteFreqMod));  // not moved
    EXPECT_EQ(applied(at::NoteMode), 1.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.7f);
    EXPECT_EQ(toldBy(at::FreqMod, 0.5f), " 332=0 332=0 8=0 all 15=0 11=0.5 all");
    EXPECT_EQ(applied(at::NoteMode), 0.0f);
    EXPECT_EQ(applied(at::SyncMod), 0.0f);
}

TEST_F(ParametersTest, ABoostedPeakTakesTheSofterQUntilItsTypeIsSetAnew) {
    const auto expectPeak = [this](TapFilterKind kind, double q) {
        EXPECT_EQ(int(engine.tapFltKind[0]), int(kind));
        EXPECT_NEAR(20.0 * std::log10(engine.tapQ[0]), q, 1.7e-5);
        EXPECT_NEAR(20.0 * std::log10(engine.tapFltGainTarget[0]), 9.0, 1.7e-5);
    };
    set(at::GainFT, 0.25f, at::TypeFT, 3 / 7.0f);
    expectPeak(TapFilterKind::PeakCut, 2.375);
    set(at::GainFT, 0.75f, at::ResoFT, 1.0f, at::TypeFT, 3 / 7.0f);  // unchanged
    expectPeak(TapFilterKind::PeakBoost, 24.0);
    outside.loading = true;
    set(at::TypeFT, 3 / 7.0f);  // a loading program's counts even so
    expectPeak(TapFilterKind::PeakBoost, 40.0);
    set(at::GainFT, 0.25f, at::ResoFT, 1.0f);  // a cut takes the sharper one
    expectPeak(TapFilterKind::PeakCut, 40.0);
}

TEST_F(ParametersTest, ATapSendsOnlyWhileReverbAndTapAreOnAndTheReverbStandsOnTheTaps) {
    const std::tuple<int32_t, float, float> kSteps[] = {
        {at::RevTap, 0.25f, 0.0f},  {at::ActRevT, 0.1f, 0.0f}, {at::ActRev, 1.0f, 0.25f},
        {at::RevTap, 0.75f, 0.75f}, {at::ModeRev, 0.2f, 0.0f}, {at::ActRevT, 1.0f, 0.0f},
        {at::ModeRev, 0.0f, 0.75f}, {at::ActRevT, 0.0f, 0.0f}, {at::ActRevT, 1.0f, 0.75f},
        {at::ActRev, 0.0f, 0.0f}};
    for (const auto& [index, v, send] : kSteps) {
        set(index, v);
        EXPECT_EQ(engine.revSend[0], send) << index << " = " << v;
        EXPECT_EQ(engine.revDirect[0], 1.0f - send) << index << " = " << v;
    }
}

}  // namespace tessel8
