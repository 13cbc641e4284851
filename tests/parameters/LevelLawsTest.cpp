// Master, gain, width, balance and saturator laws, at their ends and where their pieces meet.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

TEST_F(ParametersTest, AGainIsUnityInTheMiddleAndTwelveDecibelsAtTheTop) {
    for (const auto& [v, gain] :
         {std::pair{0.0f, 0.0f}, {0.25f, 0.25f}, {0.5f, 1.0f}, {0.75f, 2.25f}, {1.0f, 4.0f}}) {
        set(at::Input, v);
        EXPECT_EQ(engine.mixTarget[0], gain) << "Input " << v;
        set(at::GainT + 6, v);
        EXPECT_EQ(engine.tapGainTarget[6], gain) << "GainT7 " << v;
    }
}

TEST_F(ParametersTest, MixSharesTheOutputGainBetweenWetAndDry) {
    set(at::Output, 1.0f);
    set(at::Mix, 0.25f);
    EXPECT_EQ(engine.mixTarget[1], 1.0f);
    EXPECT_EQ(engine.mixTarget[2], 3.0f);
    set(at::Output, 0.5f);
    EXPECT_EQ(engine.mixTarget[1], 0.25f);
    EXPECT_EQ(engine.mixTarget[2], 0.75f);
    EXPECT_EQ(engine.mixTarget[3], 0.0f);
}

TEST_F(ParametersTest, PowerOffAsksForAClearedEngineAndPowerOnTakesThatBack) {
    set(at::Power, 0.0f);
    EXPECT_FALSE(parameters.isPowered());
    EXPECT_TRUE(engine.clearPending);
    set(at::Power, 0.3f);
    EXPECT_TRUE(parameters.isPowered());
    EXPECT_FALSE(engine.clearPending);
}

TEST_F(ParametersTest, WidthRunsFromReversedOverMonoToWide) {
    // mid and side by hand: -6 dB is 0.501187, +6 dB is 1.995262.
    const struct {
        float v;
        double mid, side;
    } kPoints[] = {
        {0.0f, 0.501187, -1.995262},
        {0.0625f, 0.7505935, -1.497631},
        {0.125f, 1.0, -1.0},
        {0.25f, 1.0, -0.66666625},
        {0.5f, 1.0, 0.0},
        {0.75f, 1.0, 0.66666725},
        {0.875f, 1.0, 1.0},
        {0.9375f, 0.7505935, 1.497631},
        {1.0f, 0.501187, 1.995262},
    };
    for (const auto& p : kPoints) {
        set(at::WidthT + 1, p.v);
        EXPECT_NEAR(engine.widthDirect[1], p.mid + p.side, 2e-6) << "v " << p.v;
        EXPECT_NEAR(engine.widthCross[1], p.mid - p.side, 2e-6) << "v " << p.v;
        EXPECT_NEAR(applied(at::SideLevel + 1), p.side, 2e-6) << "v " << p.v;
    }
    set(at::WidthT + 1, 0.5f);
    EXPECT_EQ(engine.widthDirect[1], 1.0f);
    EXPECT_EQ(engine.widthCross[1], 1.0f);
}

TEST_F(ParametersTest, WidthHasNoStepWhereItsPiecesMeet) {
    for (const float join : {0.125f, 0.5f, 0.875f}) {
        set(at::WidthT, std::nextafter(join, 0.0f));
        const float below = engine.widthDirect[0];
        set(at::WidthT, std::nextafter(join, 1.0f));
        EXPECT_NEAR(engine.widthDirect[0], below, 3e-6) << "at " << join;
    }
}

TEST_F(ParametersTest, AWidthAboveOneKeepsTheLastLevels) {
    set(at::WidthT, 0.25f);
    const float direct = engine.widthDirect[0];
    set(at::WidthT, 1.25f);
    EXPECT_EQ(engine.widthDirect[0], direct);
    EXPECT_EQ(applied(at::WidthT), 1.25f);
    EXPECT_NEAR(applied(at::SideLevel), -0.66666625, 2e-6);
}

TEST_F(ParametersTest, BalanceTakesFromOneSideOnly) {
    const struct {
        float v, left, right;
    } kPoints[] = {{0.0f, 0.5f, 0.0f},
                   {0.25f, 0.5f, 0.25f},
                   {0.5f, 0.5f, 0.5f},
                   {0.75f, 0.25f, 0.5f},
                   {1.0f, 0.0f, 0.5f}};
    for (const auto& p : kPoints) {
        set(at::PanTap + 2, p.v);
        EXPECT_EQ(engine.panGainTargetL[2], p.left) << "v " << p.v;
        EXPECT_EQ(engine.panGainTargetR[2], p.right) << "v " << p.v;
    }
}

TEST_F(ParametersTest, CeilingsFallFromAHundredOverOneToATenth) {
    const struct {
        float v;
        double ceiling;
    } kPoints[] = {{0.0f, 100.0}, {0.25f, 10.0}, {0.5f, 1.0}, {0.75f, 0.31622777}, {1.0f, 0.1}};
    for (const auto& p : kPoints) {
        set(at::DriveT + 5, p.v);
        EXPECT_NEAR(engine.tapCeiling[5], p.ceiling, 2e-6 * p.ceiling) << "v " << p.v;
        set(at::DriveFB, p.v);
        for (size_t lane = 0; lane < 4; ++lane) {
            EXPECT_NEAR(engine.fbCeiling[lane], p.ceiling, 2e-6 * p.ceiling) << "v " << p.v;
        }
    }
}

TEST_F(ParametersTest, ASaturatorStandsBeforeOrBehindTheFilterOrNowhere) {
    for (const float pre : {0.0f, 1.0f}) {
        for (const float on : {0.0f, 1.0f}) {
            set(at::PreDrvT + 3, pre);
            set(at::ActDrvT + 3, on);
            EXPECT_EQ(engine.tapSaturatorPre[3], on * pre) << pre << on;
            EXPECT_EQ(engine.tapSaturatorPost[3], on * (1.0f - pre)) << pre << on;
        }
    }
    set(at::PreDrvT + 3, 0.0f);  // while it is on
    EXPECT_EQ(engine.tapSaturatorPre[3], 0.0f);
    EXPECT_EQ(engine.tapSaturatorPost[3], 1.0f);
    EXPECT_EQ(engine.tapSaturatorPost[2], 0.0f);
}

TEST_F(ParametersTest, OnlyTapsFiveToEightAskForTheLargerLoop) {
    for (int32_t tap = 0; tap < 8; ++tap) {
        set(at::ActTap + tap, 0.0f);
    }
    for (int32_t tap = 0; tap < 8; ++tap) {
        set(at::ActTap + tap, 0.5f);
        EXPECT_EQ(engine.tapGate[size_t(tap)], 1.0f);
        EXPECT_EQ(engine.anyTapHigh != 0, tap >= 4) << "tap " << tap + 1;
        set(at::ActTap + tap, 0.0f);
        EXPECT_EQ(engine.tapGate[size_t(tap)], 0.0f);
        EXPECT_EQ(engine.anyTapHigh, 0) << "tap " << tap + 1;
    }
}

}  // namespace tessel8
