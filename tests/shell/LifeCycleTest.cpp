// The effect's states, and what a block does in each of them.

#include <limits>

#include "shell/FakeHost.h"

namespace tessel8 {

namespace {

constexpr int kRunning = 0, kNoMemory = 1, kRateRefused = 2, kSuspended = 3;

class LifeCycle : public testing::Test {
  protected:
    /// Runs at 44100 Hz in Time mode, tap 1 at 3528 samples, all wet.
    void start() {
        hosted.rate(44100.0f);
        hosted.set(4, 0.0f);
        hosted.set(3, 1.0f);
        hosted.set(24, 0.01f);
        hosted.mains(true);
    }
    HostedEffect hosted;
};

}  // namespace

TEST_F(LifeCycle, StatesFollowTheCalls) {
    const auto expectState = [&](int status, bool transparent) {
        EXPECT_EQ(hosted.status(), status);
        EXPECT_EQ(hosted.isTransparent(), transparent);
    };
    expectState(kNoMemory, true);
    hosted.mains(true);
    expectState(kNoMemory, true);
    hosted.object().requestPanic(true);  // nothing makes an engine without memory ready
    for (const float power : {1.0f, 0.0f, 1.0f}) {
        hosted.set(0, power);
        expectState(kNoMemory, true);
    }
    hosted.rate(44100.0f);
    expectState(kNoMemory, false);  // of the time before
    for (const bool on : {true, true, false, false, true}) {
        hosted.mains(on);
        expectState(on ? kRunning : kSuspended, !on);
    }
}

TEST_F(LifeCycle, RatesFrom44100To192000AreTakenAndNoOthers) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float taken : {0.0f, 44100.0f, 192000.0f, 44100.7f}) {
        const bool hasMemory = taken != 0.0f;
        if (hasMemory) {
            hosted.rate(taken);
            EXPECT_FALSE(hosted.isTransparent()) << taken;
            hosted.mains(true);
            EXPECT_EQ(hosted.status(), kRunning) << taken;
            EXPECT_EQ(hosted.get(421), float(8 * int32_t(taken))) << taken;
            EXPECT_EQ(hosted.get(422), taken);
        }
        for (const float refused :
             {22050.0f, 44099.99f, 192000.1f, 0.0f, -44100.0f, 1e30f, kNan, kInfinity}) {
            hosted.rate(refused);
            EXPECT_EQ(hosted.status(), kRateRefused) << refused;
            EXPECT_TRUE(hosted.isTransparent()) << refused;
            hosted.mains(true);  // says first what it lacks most
            EXPECT_EQ(hosted.status(), hasMemory ? kRateRefused : kNoMemory) << refused;
            EXPECT_TRUE(hosted.isTransparent()) << refused;
        }
    }
}

TEST_F(LifeCycle, SuspendLeavesNothingThatResumeCouldBringBack) {
    constexpr int32_t kWholeMemory = 352800 / HostedEffect::kFrames + 2;
    start();
    for (int i = 0; i < 20; ++i) {
        hosted.noise();
    }
    EXPECT_GT(hosted.peakOfSilence(8), 0.1f);  // the echo is there
    for (int i = 0; i < kWholeMemory; ++i) {
        hosted.noise();
    }
    hosted.mains(false);
    hosted.mains(true);
    EXPECT_EQ(hosted.peakOfSilence(kWholeMemory), 0.0f);
    hosted.noise();
    EXPECT_GT(hosted.peakOfSilence(8), 0.1f);
}

TEST_F(LifeCycle, ARateChangeWithoutSuspendStartsSilentWithinTheNewMemory) {
    hosted.rate(96000.0f);
    hosted.set(4, 0.0f);
    hosted.set(3, 1.0f);
    hosted.set(24, 1.0f);  // 768000 samples
    hosted.mains(true);
    for (int i = 0; i < 100; ++i) {
        hosted.noise();
    }
    hosted.rate(44100.0f);
    hosted.rate(44100.0f);
    EXPECT_EQ(hosted.peakOfSilence(4), 0.0f);
    // One loud frame comes back after the longest delay that the new memory has.
    float impulse[HostedEffect::kFrames] = {1.0f};
    hosted.process(impulse, impulse, HostedEffect::kFrames);
    EXPECT_EQ(hosted.peakOfSilence(688), 0.0f);
    // Frame 352799 is the 31st of block 689.
    float silence[HostedEffect::kFrames] = {};
    hosted.process(silence, silence, HostedEffect::kFrames);
    for (int32_t i = 0; i < 31; ++i) {
        EXPECT_EQ(hosted.outL[i], 0.0f) << "frame " << 352768 + i;
    }
    EXPECT_NE(hosted.outL[31], 0.0f);
}

TEST_F(LifeCycle, PowerOffIsTransparentAndMetersTheInputOnBothPairs) {
    start();
    hosted.noise();
    hosted.set(0, 0.0f);
    hosted.inL[100] = -2.0f;
    hosted.inR[511] = 3.0f;
    EXPECT_TRUE(hosted.isTransparent());
    for (const auto take : {&Tessel8::takeInputPeaks, &Tessel8::takeOutputPeaks}) {
        float left = 9.0f, right = 9.0f;
        (hosted.object().*take)(&left, &right);
        EXPECT_TRUE(left == 2.0f && right == 3.0f);
        (hosted.object().*take)(&left, &right);
        EXPECT_TRUE(left == 0.0f && right == 0.0f);
    }
    hosted.set(0, 0.3f);
    EXPECT_FALSE(hosted.isTransparent());
}

TEST_F(LifeCycle, PanicIsOneTransparentBlockAndOneWithoutFramesDoesTheWorkBehindIt) {
    start();
    hosted.object().requestPanic(true);
    EXPECT_TRUE(hosted.isTransparent());
    EXPECT_FALSE(hosted.isTransparent());
    hosted.object().requestPanic(true);
    hosted.mains(true);  // takes the request back
    EXPECT_FALSE(hosted.isTransparent());
    hosted.set(0, 0.3f);
    EXPECT_EQ(hosted.get(0), 0.3f);
    hosted.effect->processReplacing(hosted.effect, nullptr, nullptr, 0);
    EXPECT_EQ(hosted.get(0), 1.0f);
}

}  // namespace tessel8
