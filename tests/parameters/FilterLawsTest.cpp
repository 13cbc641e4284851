// Filters of the taps and of the master feedback: laws, kinds, and what each value clears.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

double db(double decibels) {
    return std::pow(10.0, decibels / 20.0);
}

class FilterLaws : public ParametersTest {
  protected:
    void setType(int step) { set(at::TypeFT, float(step) / 7.0f); }
    void expectTap(TapFilterKind kind, double q, double gain) {
        EXPECT_EQ(int(engine.tapFltKind[0]), int(kind));
        EXPECT_NEAR(engine.tapQ[0], q, 2e-6 * q);
        EXPECT_NEAR(engine.tapFltGainTarget[0], gain, 2e-6 * gain);
        EXPECT_NEAR(engine.tapFltRootTarget[0], std::sqrt(2.0 * gain), 4e-6 * gain);
    }
    /// Whether a filter's memories are silent after the next block's start.
    bool tapCleared() {
        engine.beginBlock();
        return engine.tapBqL.x1[0] == 0 && engine.tapBqL.y2[0] == 0 && engine.tapBqR.x2[0] == 0 &&
               engine.tapBqR.y1[0] == 0;
    }
    void fillTap() {
        engine.beginBlock();
        for (Biquad<TapBlock>* bq : {&engine.tapBqL, &engine.tapBqR}) {
            for (TapBlock* memory : {&bq->x1, &bq->x2, &bq->y1, &bq->y2}) {
                memory->fill(1.0f);
            }
        }
    }
};

}  // namespace

TEST_F(FilterLaws, FrequenciesRunFrom20To20000Hertz) {
    for (const auto& [v, hz] : {std::pair{0.0f, 20.0}, {0.5f, 632.4555}, {1.0f, 20000.0}}) {
        set(at::FreqFT + 2, v);
        set(at::FreqFFB, v);
        EXPECT_NEAR(engine.tapFreqBase[2], hz, 1e-5 * hz) << "value " << v;
        EXPECT_NEAR(engine.fbFreqBase, hz, 1e-5 * hz) << "value " << v;
    }
}

TEST_F(FilterLaws, EachTypeHasItsKindItsQAndItsGain) {
    set(at::ResoFT, 0.5f);
    set(at::GainFT, 0.75f);  // +9 dB
    // 27 dB of Q at 0.5 are 13.5 - 3, 43 dB are 21.5 - 3.
    const double soft = db(10.5), sharp = db(18.5), up = db(9.0), down = db(-9.0);
    setType(4);
    expectTap(TapFilterKind::LowShelfBoost, soft, up);
    setType(0);
    expectTap(TapFilterKind::LowPass, soft, up);  // a pass leaves the gain as it was
    setType(5);
    expectTap(TapFilterKind::LowShelfCut, soft, down);
    setType(2);
    expectTap(TapFilterKind::HighPass, soft, down);
    setType(1);
    expectTap(TapFilterKind::BandPass, sharp, up);
    setType(7);
    expectTap(TapFilterKind::HighShelfCut, soft, down);
    setType(6);
    expectTap(TapFilterKind::HighShelfBoost, soft, up);
    setType(3);
    expectTap(TapFilterKind::PeakBoost, sharp, up);
}

TEST_F(FilterLaws, APeaksSignLiesInItsKind) {
    set(at::GainFT, 0.25f);
    setType(3);
    const double q = db(43.0 * 0.125 - 3.0);
    expectTap(TapFilterKind::PeakCut, q, std::pow(10.0, 0.45));
    set(at::GainFT, 0.75f);
    expectTap(TapFilterKind::PeakBoost, q, std::pow(10.0, 0.45));
    set(at::GainFT, 0.5f);
    expectTap(TapFilterKind::PeakBoost, q, 1.0);
    set(at::GainFT, 0.0f);
    expectTap(TapFilterKind::PeakCut, q, db(18.0));
}

TEST_F(FilterLaws, ABoostedPeakTakesTheSofterQUntilItsTypeChangesAgain) {
    set(at::GainFT, 0.75f);
    setType(3);
    EXPECT_NEAR(engine.tapQ[0], db(43.0 * 0.125 - 3.0), 1e-5);
    set(at::ResoFT, 1.0f);
    EXPECT_NEAR(engine.tapQ[0], db(24.0), 1e-4);
    setType(3);  // unchanged
    EXPECT_NEAR(engine.tapQ[0], db(24.0), 1e-4);
    set(at::GainFT, 0.25f);
    set(at::ResoFT, 1.0f);  // a cut takes the sharper one
    EXPECT_NEAR(engine.tapQ[0], db(40.0), 1e-3);
    setType(1);
    set(at::ResoFT, 0.0f);
    EXPECT_NEAR(engine.tapQ[0], db(-3.0), 1e-6);
}

TEST_F(FilterLaws, ShelvesFollowTheirGainUpOrDownAndPassesDoNot) {
    const auto expectGain = [this](int step, float v, double gain) {
        setType(step);
        set(at::GainFT, v);
        EXPECT_NEAR(engine.tapFltGainTarget[0], gain, 2e-6 * gain) << "step " << step;
        EXPECT_NEAR(engine.tapFltRootTarget[0], std::sqrt(2.0 * gain), 4e-6 * gain);
    };
    expectGain(4, 1.0f, db(18.0));
    expectGain(0, 0.1f, db(18.0));
    expectGain(2, 0.2f, db(18.0));
    expectGain(5, 1.0f, db(-18.0));
    expectGain(6, 0.25f, db(-9.0));
    expectGain(7, 0.25f, db(9.0));
    expectGain(1, 0.0f, db(-18.0));
}

TEST_F(FilterLaws, ATypeJumpsToItsGainAndAGainGlides) {
    setType(4);
    engine.beginBlock();
    set(at::GainFT, 1.0f);
    engine.beginBlock();
    EXPECT_NEAR(engine.tapFltGainSmooth[0], 1.0, 1e-6);
    setType(4);
    engine.beginBlock();
    EXPECT_EQ(engine.tapFltGainSmooth[0], engine.tapFltGainTarget[0]);
    EXPECT_EQ(engine.tapFltRootSmooth[0], engine.tapFltRootTarget[0]);
}

TEST_F(FilterLaws, OnlyAChangeOfTypeAndEverySwitchingClearTheTapsFilter) {
    fillTap();
    setType(0);
    EXPECT_FALSE(tapCleared());
    set(at::FreqFT, 0.1f);
    set(at::ResoFT, 0.1f);
    set(at::GainFT, 0.1f);
    EXPECT_FALSE(tapCleared());
    setType(1);
    EXPECT_TRUE(tapCleared());
    for (const float v : {0.0f, 0.3f, 1.0f, 0.0f}) {
        fillTap();
        set(at::ActFltT, v);
        EXPECT_TRUE(tapCleared()) << "ActFltT1 " << v;
        EXPECT_EQ(engine.tapFilterOn[0], v == 0.0f ? 0.0f : 1.0f);
        EXPECT_EQ(engine.tapBqL.x1[1], 1.0f) << "another tap's filter";
    }
}

TEST_F(FilterLaws, ALoadingProgramsTypeTakesEffectEvenIfUnchanged) {
    set(at::GainFT, 0.75f);
    setType(3);
    set(at::ResoFT, 0.125f);  // softer Q now
    fillTap();
    outside.loading = true;
    setType(3);
    EXPECT_NEAR(engine.tapQ[0], db(43.0 * 0.125 - 3.0), 1e-5);
    EXPECT_TRUE(tapCleared());
}

TEST_F(FilterLaws, TheFeedbackFiltersResonanceFollowsItsType) {
    const auto expectReso = [this](int step, double reso) {
        set(at::TypeFFB, float(step) / 5.0f);
        EXPECT_EQ(int(engine.fbFltType), step);
        EXPECT_NEAR(engine.fbReso, reso, 2e-6 * reso) << "step " << step;
        set(at::ResoFFB, 0.0625f);
        EXPECT_NEAR(engine.fbReso, reso, 2e-6 * reso) << "step " << step;
    };
    set(at::ResoFFB, 0.0625f);  // its fourth root is 0.5
    for (const int svf : {1, 2, 0}) {
        expectReso(svf, 1.7488 * 0.5 + 0.2512);
    }
    expectReso(3, db(15.0 * 0.0625 - 3.0));
    expectReso(4, db(27.0 * 0.0625 - 3.0));
    expectReso(5, db(15.0 * 0.0625 - 3.0));
}

TEST_F(FilterLaws, TheFeedbackTypeClearsTheWholePathAndItsSwitchTheBiquadOnly) {
    const auto fill = [this] {
        engine.beginBlock();
        engine.fbSignalL = engine.fbSignalR = 1.0f;
        for (TapBlock* block : {&engine.preFbL, &engine.preFbR, &engine.postFbL, &engine.postFbR}) {
            block->fill(1.0f);
        }
        engine.fbSvf.low = engine.fbSvf.band = engine.fbBq.x1 = engine.fbBq.y2 = {1.0f, 1.0f};
    };
    const auto left = [this] {
        engine.beginBlock();
        return std::array<float, 6>{engine.fbSignalL,     engine.preFbL[7],  engine.postFbR[0],
                                    engine.fbSvf.band[1], engine.fbBq.x1[0], engine.fbBq.y2[1]};
    };
    fill();
    set(at::TypeFFB, 0.0f);  // unchanged
    EXPECT_EQ(left(), (std::array<float, 6>{}));
    fill();
    set(at::ActFltFB, 0.5f);
    EXPECT_EQ(left(), (std::array<float, 6>{1, 1, 1, 1, 0, 0}));
    EXPECT_NE(engine.fbFilterOn, 0);
}

}  // namespace tessel8
