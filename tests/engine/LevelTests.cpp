#include "Settings.h"

namespace tessel8::testing {
namespace {

/// A smoother at 44.1 kHz stops short of its target once a step is smaller than what a float of
/// its size can show: up to two units of 2^-24 against a pull of 1.07e-3 a sample.
constexpr double kShort = 2.0 / 16777216.0 / 1.07e-3;

TEST(Gains, ApproachTheirTargetsWithTheThirtyHertzSmoother) {
    Rig rig;
    plainStereo(rig, 0);
    const Stereo out = rig.play(constant(40000, 1.0f, 0.5f));
    const double keep = std::exp(-3.14159265358979 / 2.0 * 30.0 / 44100.0);
    for (const size_t i : {0, 10, 100, 1000, 5000, 39999}) {
        SCOPED_TRACE(i);
        // Input, tap, pan and wet gain all rise from zero.
        const double rise = 1.0 - std::pow(keep, double(i + 1));
        const double level = std::pow(rise, 4.0);
        EXPECT_NEAR(level, double(out.left[i]), level * 4.0 * kShort);
        EXPECT_NEAR(level / 2.0, double(out.right[i]), level * 4.0 * kShort);
    }
}

TEST(Gains, OfInputOutputAndMixMakeTheDryAndTheWetLevel) {
    Rig rig;
    rig.set(Family::Input, 0.25f);   // a quarter
    rig.set(Family::Output, 0.75f);  // nine quarters
    rig.set(Family::Mix, 0.3f);
    rig.delay(0, 100);
    rig.settle();
    const Stereo out = rig.play(impulse(200, 0.5f, 0.5f));
    EXPECT_NEAR(0.5 * 0.25 * 0.7 * 2.25, double(out.left[0]), 3.0 * kShort);
    EXPECT_NEAR(0.5 * 0.25 * 0.3 * 2.25, double(out.left[100]), 5.0 * kShort);
}

class Limit : public ::testing::TestWithParam<LoopCase> {};
INSTANTIATE_TEST_SUITE_P(Loops, Limit, ::testing::ValuesIn(kLoops), nameOf);

TEST_P(Limit, CutsATapAtSixteen) {
    Rig rig;
    select(rig, GetParam());
    rig.settle();
    const Stereo out = rig.play(constant(10, 100.0f, -100.0f));
    EXPECT_EQ(16.0f * rig.engine.mixSmooth[1], out.left[9]);
    EXPECT_EQ(-16.0f * rig.engine.mixSmooth[1], out.right[9]);
}

TEST(Limit, CutsTheSumOfTheTapsAtSixteen) {
    Rig rig;
    for (int t = 0; t < kTaps; ++t) {
        rig.set(Family::ActTap, 1.0f, t);
    }
    rig.settle();
    const Stereo out = rig.play(constant(10, 10.0f, -1.0f));
    EXPECT_EQ(16.0f * rig.engine.mixSmooth[1], out.left[9]);
    EXPECT_NEAR(-8.0, double(out.right[9]), 8.0 * 4.0 * kShort);
}

TEST(Meters, ShowTheInputAsItCameAndTheOutputOneFrameLate) {
    Rig rig;
    rig.settle();
    const Stereo out = rig.play(impulse(100, -2.0f, 0.25f, 99), {33});
    const float expected[] = {2.0f, 0.25f, -out.left[99], out.right[99]};
    EXPECT_GT(expected[3], 0.2f);
    for (const size_t lane : {0, 1}) {
        EXPECT_EQ(expected[lane], rig.engine.takeMeter(lane));
        EXPECT_EQ(0.0f, rig.engine.takeMeter(2 + lane));
    }
    rig.play(silence(1));
    for (const size_t lane : {0, 1}) {
        EXPECT_EQ(0.0f, rig.engine.takeMeter(lane));
        EXPECT_EQ(expected[2 + lane], rig.engine.takeMeter(2 + lane));
    }
}

}  // namespace
}  // namespace tessel8::testing
