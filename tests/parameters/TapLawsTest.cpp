// Filters, levels, saturators and sends: what a value sets and clears besides its law.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

double db(double decibels) {
    return std::pow(10.0, decibels / 20.0);
}

struct TapLaws : ParametersTest {
    void setType(int step) { set(at::TypeFT, float(step) / 7.0f); }
    void expectTap(TapFilterKind kind, double q, double gain) {
        EXPECT_EQ(int(engine.tapFltKind[0]), int(kind));
        EXPECT_NEAR(engine.tapQ[0], q, 2e-6 * q);
        EXPECT_NEAR(engine.tapFltGainTarget[0], gain, 2e-6 * gain);
        EXPECT_NEAR(engine.tapFltRootTarget[0], std::sqrt(2.0 * gain), 4e-6 * gain);
    }
    void fill() {
        engine.beginBlock();
        engine.tapBqL.x1.fill(1.0f);
        engine.tapBqR.y2.fill(1.0f);
        engine.fbSignalL = engine.preFbL[7] = engine.postFbR[0] = 1.0f;
        engine.fbSvf.band = engine.fbBq.x1 = engine.fbBq.y2 = {1.0f, 1.0f};
    }
    /// What is left of the filters' memories after the next block's start: the first tap's, the
    /// second's, and those of the feedback path.
    std::string left() {
        engine.beginBlock();
        std::string text;
        for (const float x : {engine.tapBqL.x1[0], engine.tapBqR.y2[0], engine.tapBqL.x1[1],
                              engine.fbSignalL, engine.preFbL[7], engine.postFbR[0],
                              engine.fbSvf.band[1], engine.fbBq.x1[0], engine.fbBq.y2[1]}) {
            text += x == 0.0f ? '-' : '#';
        }
        return text;
    }
};

}  // namespace

TEST_F(TapLaws, EachTypeHasItsKindItsQAndItsGain) {
    set(at::ResoFT, 0.5f, at::GainFT, 0.75f);  // +9 dB
    // 27 dB of Q at 0.5 are 13.5 - 3, 43 dB are 21.5 - 3; a pass leaves the gain as it was.
    const double soft = db(10.5), sharp = db(18.5), up = db(9.0), down = db(-9.0);
    const struct {
        int step;
        TapFilterKind kind;
        double q, gain;
    } kTypes[] = {
        {4, TapFilterKind::LowShelfBoost, soft, up},  {0, TapFilterKind::LowPass, soft, up},
        {5, TapFilterKind::LowShelfCut, soft, down},  {2, TapFilterKind::HighPass, soft, down},
        {1, TapFilterKind::BandPass, sharp, up},      {7, TapFilterKind::HighShelfCut, soft, down},
        {6, TapFilterKind::HighShelfBoost, soft, up}, {3, TapFilterKind::PeakBoost, sharp, up}};
    for (const auto& type : kTypes) {
        SCOPED_TRACE(type.step);
        setType(type.step);
        expectTap(type.kind, type.q, type.gain);
    }
}

TEST_F(TapLaws, ABoostedPeakTakesTheSofterQUntilItsTypeIsSetAnew) {
    set(at::GainFT, 0.25f);
    setType(3);
    expectTap(TapFilterKind::PeakCut, db(2.375), db(9.0));
    set(at::GainFT, 0.75f, at::ResoFT, 1.0f);
    expectTap(TapFilterKind::PeakBoost, db(24.0), db(9.0));
    setType(3);  // unchanged
    expectTap(TapFilterKind::PeakBoost, db(24.0), db(9.0));
    outside.loading = true;
    setType(3);  // a loading program's counts even so
    expectTap(TapFilterKind::PeakBoost, db(40.0), db(9.0));
    set(at::GainFT, 0.0f, at::ResoFT, 1.0f);  // a cut takes the sharper one
    expectTap(TapFilterKind::PeakCut, db(40.0), db(18.0));
}

TEST_F(TapLaws, ATypeJumpsToItsGainAndAGainGlides) {
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

TEST_F(TapLaws, OnlyATypeAndASwitchClearAFilter) {
    const struct {
        int32_t index;
        float v;
        const char* left;
    } kSteps[] = {{at::TypeFT, 0.0f, "#########"},  // unchanged
                  {at::FreqFT, 0.1f, "#########"},  {at::ResoFT, 0.1f, "#########"},
                  {at::GainFT, 0.1f, "#########"},  {at::TypeFT, 1 / 7.0f, "--#######"},
                  {at::ActFltT, 0.0f, "--#######"}, {at::ActFltT, 0.3f, "--#######"},
                  {at::TypeFFB, 0.0f, "###------"},  // the whole path, if unchanged, too
                  {at::ActFltFB, 0.5f, "#######--"}};
    for (const auto& step : kSteps) {
        fill();
        set(step.index, step.v);
        EXPECT_EQ(left(), step.left) << step.index << " = " << step.v;
    }
}

TEST_F(TapLaws, TheFeedbackFiltersResonanceFollowsItsType) {
    const double svf = 1.7488 * 0.5 + 0.2512;  // the fourth root of 0.0625 is 0.5
    const double kWanted[] = {svf, svf, svf, db(-2.0625), db(-1.3125), db(-2.0625)};
    set(at::ResoFFB, 0.0625f);
    for (const int type : {3, 0, 4, 1, 5, 2}) {
        set(at::TypeFFB, float(type) / 5.0f);
        EXPECT_EQ(int(engine.fbFltType), type);
        EXPECT_NEAR(engine.fbReso, kWanted[type], 2e-6 * kWanted[type]) << type;
    }
}

TEST_F(TapLaws, WidthRunsFromReversedOverMonoToWideAndBalanceTakesFromOneSideOnly) {
    // mid and side by hand: -6 dB is 0.501187, +6 dB is 1.995262; above 1 the last ones stay.
    const struct {
        float v;
        double mid, side, left, right;
    } kPoints[] = {
        {0.0f, 0.501187, -1.995262, 0.5, 0.0}, {0.125f, 1.0, -1.0, 0.5, 0.125},
        {0.25f, 1.0, -0.66666625, 0.5, 0.25},  {0.5f, 1.0, 0.0, 0.5, 0.5},
        {0.875f, 1.0, 1.0, 0.125, 0.5},        {0.9375f, 0.7505935, 1.497631, 0.0625, 0.5},
        {1.0f, 0.501187, 1.995262, 0.0, 0.5}};
    for (const auto& p : kPoints) {
        set(at::WidthT + 1, p.v, at::PanTap + 1, p.v);
        EXPECT_NEAR(engine.widthDirect[1], p.mid + p.side, 2e-6) << "v " << p.v;
        EXPECT_NEAR(engine.widthCross[1], p.mid - p.side, 2e-6) << "v " << p.v;
        EXPECT_EQ(engine.panGainTargetL[1], float(p.left)) << "v " << p.v;
        EXPECT_EQ(engine.panGainTargetR[1], float(p.right)) << "v " << p.v;
    }
    set(at::WidthT + 1, 1.25f);
    EXPECT_NEAR(applied(at::SideLevel + 1), 1.995262, 2e-6);
}

TEST_F(TapLaws, OnlyTapsFiveToEightAskForTheLargerLoop) {
    set(at::ActTap, 0.0f);
    for (int32_t tap = 0; tap < 8; ++tap) {
        set(at::ActTap + tap, 0.5f);
        EXPECT_EQ(engine.anyTapHigh != 0, tap >= 4) << "tap " << tap + 1;
        set(at::ActTap + tap, 0.0f);
        EXPECT_EQ(engine.anyTapHigh, 0) << "tap " << tap + 1;
    }
}

TEST_F(TapLaws, ATapSendsOnlyWhileReverbAndTapAreOnAndTheReverbStandsOnTheTaps) {
    const struct {
        int32_t index;
        float v, send;
    } kSteps[] = {{at::RevTap, 0.25f, 0.0f},  {at::ActRevT, 0.1f, 0.0f}, {at::ActRev, 1.0f, 0.25f},
                  {at::RevTap, 0.75f, 0.75f}, {at::ModeRev, 0.2f, 0.0f}, {at::ActRevT, 1.0f, 0.0f},
                  {at::ModeRev, 0.0f, 0.75f}, {at::ActRevT, 0.0f, 0.0f}, {at::ActRevT, 1.0f, 0.75f},
                  {at::ActRev, 0.0f, 0.0f}};
    for (const auto& step : kSteps) {
        set(step.index, step.v);
        EXPECT_EQ(engine.revSend[0], step.send) << step.index << " = " << step.v;
        EXPECT_EQ(engine.revDirect[0], 1.0f - step.send) << step.index << " = " << step.v;
    }
}

}  // namespace tessel8
