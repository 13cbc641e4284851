#include "Settings.h"

namespace tessel8::testing {
namespace {

class DelayLines : public ::testing::TestWithParam<LoopCase> {};
INSTANTIATE_TEST_SUITE_P(Loops, DelayLines, ::testing::ValuesIn(kLoops), nameOf);

TEST_P(DelayLines, ReturnAnImpulseAfterExactlyTheDelay) {
    const int tap = GetParam().tap;
    for (const int32_t delay : {0, 1, 5512, 8 * 44100 - 1}) {
        SCOPED_TRACE(delay);
        Rig rig;
        select(rig, GetParam());
        rig.delay(tap, delay);
        rig.settle();
        const Stereo out = rig.play(impulse(size_t(delay) + 1000));
        const double level = wetLevel(rig) * tapLevel(rig, tap);
        EXPECT_TRUE(onlyEchoes({{size_t(delay), level}}, out.left, kRounding));
        EXPECT_TRUE(onlyEchoes({{size_t(delay), level}}, out.right, kRounding));
    }
}

TEST(DelayMemory, HoldsLongDelaysWithinARingThatALowerRateMadeShorter) {
    Rig rig(192000.0f);
    rig.set(Family::ActTap, 1.0f, 6);
    rig.set(Family::DelayT, 0.9f, 0);
    rig.set(Family::DelayT, 1.0f, 6);
    rig.play(noise(3000, 5));
    rig.setRate(44100.0f);
    EXPECT_EQ(0, rig.engine.writePos);
    EXPECT_EQ(8 * 44100, rig.engine.ringLen);
    rig.settle();
    const auto longest = size_t(8 * 44100 - 1);  // a delay of the whole ring is one sample less
    const Stereo out = rig.play(impulse(longest + 1000));
    const double level = wetLevel(rig) * (tapLevel(rig, 0) + tapLevel(rig, 6));
    EXPECT_TRUE(onlyEchoes({{longest, level}}, out.left, kRounding));
}

}  // namespace
}  // namespace tessel8::testing
