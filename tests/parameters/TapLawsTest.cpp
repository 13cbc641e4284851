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

TEST_F(TapLaws, WidthRunsFromReversedOverMonoToWideAndBalanceTakesFromOneSideOnly) {
    // mid and side by hand: -6 dB is 0.501187, +6 dB is 1.995262; above 1 the last ones stay.
    const struct {
        float v;
        double mid, side;
    } kPoints[] = {{0.0f, 0.501187, -1.995262}, {0.125f, 1.0, -1.0},
                   {0.25f, 1.0, -0.66666625},   {0.5f, 1.0, 0.0},
                   {0.875f, 1.0, 1.0},          {0.9375f, 0.7505935, 1.497631}};
    for (const auto& p : kPoints) {
        set(at::WidthT + 1, p.v, at::PanTap + 1, p.v);
        EXPECT_NEAR(engine.widthDirect[1], p.mid + p.side, 2e-6) << "v " << p.v;
        EXPECT_NEAR(engine.widthCross[1], p.mid - p.side, 2e-6) << "v " << p.v;
        EXPECT_EQ(engine.panGainTargetL[1], std::min(0.5f, 1.0f - p.v)) << "v " << p.v;
        EXPECT_EQ(engine.panGainTargetR[1], std::min(0.5f, p.v)) << "v " << p.v;
    }
    set(at::WidthT + 1, 1.0f, at::WidthT + 1, 1.25f);
    EXPECT_NEAR(applied(at::SideLevel + 1), 1.995262, 2e-6);
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
