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

TEST_P(DelayLines, GoRoundManyTimesWithoutASeam) {
    const int tap = GetParam().tap;
    for (const int32_t delay : {33, 5512, 8 * 44100 - 1}) {
        SCOPED_TRACE(delay);
        Rig rig;
        select(rig, GetParam());
        rig.delay(tap, delay);
        plainStereo(rig, tap);
        rig.settle();
        const size_t frames = size_t(rig.engine.ringLen) * 3 + 12345;
        const Stereo in = noise(frames, 7);
        const Stereo out = rig.play(in, {499, 1024, 31});
        const double level = wetLevel(rig) * tapLevel(rig, tap);
        std::vector<Echo> left, right;
        for (size_t i = 0; i < frames; ++i) {
            left.push_back({i + size_t(delay), level * double(in.left[i])});
            right.push_back({i + size_t(delay), level * double(in.right[i])});
        }
        EXPECT_TRUE(onlyEchoes(left, out.left, kRounding));
        EXPECT_TRUE(onlyEchoes(right, out.right, kRounding));
    }
}

TEST(DelayMemory, GivesADelayOfItsWholeLengthOneSampleLess) {
    Rig rig;
    rig.set(Family::DelayT, 1.0f, 0);
    ASSERT_EQ(rig.engine.ringLen, rig.engine.delaySamples[0]);
    rig.settle();
    const auto longest = size_t(rig.engine.ringLen - 1);
    const Stereo out = rig.play(impulse(longest + 1000));
    EXPECT_TRUE(onlyEchoes({{longest, wetLevel(rig) * tapLevel(rig, 0)}}, out.left, kRounding));
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
    const auto longest = size_t(8 * 44100 - 1);
    const Stereo out = rig.play(impulse(longest + 1000));
    const double level = wetLevel(rig) * (tapLevel(rig, 0) + tapLevel(rig, 6));
    EXPECT_TRUE(onlyEchoes({{longest, level}}, out.left, kRounding));
}

TEST(DelayMemory, KeepsItsSignalWhenTheProcessorsAreCleared) {
    Rig rig;
    rig.delay(0, 1000);
    rig.settle();
    rig.play(impulse(600));
    rig.engine.clear();
    EXPECT_TRUE(rig.engine.ready);
    const Stereo kept = rig.play(silence(1000));
    EXPECT_TRUE(onlyEchoes({{400, wetLevel(rig) * tapLevel(rig, 0)}}, kept.left, kRounding));
    rig.play(impulse(600));
    rig.engine.clearRings();
    const Stereo emptied = rig.play(silence(1000));
    EXPECT_TRUE(onlyEchoes({}, emptied.left, 0.0));
}

TEST(DelayMemory, RecordsForTapsThatTheLoopDoesNotCompute) {
    Rig rig;
    rig.set(Family::GainT, 0.0f, 0);
    rig.set(Family::ActTap, 1.0f, 5);
    rig.delay(5, 300);
    rig.settle();
    rig.set(Family::ActTap, 0.0f, 5);
    const Stereo before = rig.play(impulse(200));
    EXPECT_TRUE(onlyEchoes({}, before.left, 0.0));
    rig.set(Family::ActTap, 1.0f, 5);
    const Stereo after = rig.play(silence(1000));
    EXPECT_TRUE(onlyEchoes({{100, wetLevel(rig) * tapLevel(rig, 5)}}, after.left, kRounding));
}

TEST(PassThrough, CopiesItsInputAndRecordsSilence) {
    Rig rig;
    rig.delay(0, 1000);
    rig.settle();
    rig.play(impulse(500));
    const Stereo in = noise(300, 3);
    Stereo out(300);
    const float* const from[] = {in.left.data(), in.right.data()};
    float* const to[] = {out.left.data(), out.right.data()};
    rig.engine.passThrough(from, to, 300);
    EXPECT_TRUE(sameSound(in, out));
    const Stereo after = rig.play(silence(2000));
    EXPECT_TRUE(onlyEchoes({{200, wetLevel(rig) * tapLevel(rig, 0)}}, after.left, kRounding));
}

TEST(PassThrough, RecordsSilenceAcrossTheEndOfTheRing) {
    Rig rig;
    rig.delay(0, 400);
    rig.settle();
    rig.engine.writePos = rig.engine.ringLen - 100;
    Stereo sound = noise(300, 3);
    float* const both[] = {sound.left.data(), sound.right.data()};
    rig.play(sound);
    rig.engine.writePos = rig.engine.ringLen - 100;
    rig.engine.passThrough(both, both, 300);
    EXPECT_EQ(200, rig.engine.writePos);
    EXPECT_TRUE(onlyEchoes({}, rig.play(silence(1000)).left, 0.0));
}

TEST(PassThrough, WorksWithoutMemory) {
    Engine engine;
    Stereo sound = noise(300, 3);
    const Stereo before = sound;
    float* const both[] = {sound.left.data(), sound.right.data()};
    engine.passThrough(both, both, 300);
    EXPECT_TRUE(sameSound(before, sound));
}

}  // namespace
}  // namespace tessel8::testing
