#include "Settings.h"

namespace tessel8::testing {
namespace {

constexpr size_t kHold = 22050;  ///< half a second at 44.1 kHz
constexpr size_t kFadeIn = 22050;

/// 22050 additions of 1/22050, each rounded to 24 bits below 1: the worst that they can add up
/// to is half a unit of the last place of each binary order times the additions made in it.
constexpr double kDrift = 4.5e-4;

/// Two taps on a constant signal, the first on the left alone and the second on the right.
struct Faders : Rig {
    Faders() {
        set(Family::ActTap, 1.0f, 1);
        set(Family::PanTap, 0.0f, 0);
        set(Family::PanTap, 1.0f, 1);
        delay(0, 100);
        delay(1, 200);
        settle();
        const Stereo rest = run(1000);
        fullL = rest.left.back();
        fullR = rest.right.back();
        EXPECT_GT(fullL, 0.9f);
        EXPECT_GT(fullR, 0.9f);
    }
    Stereo run(size_t frames) { return play(constant(frames, 1.0f, 1.0f), {301, 64, 1}); }
    float fullL = 0.0f, fullR = 0.0f;
};

TEST(Fade, HoldsATapSilentForHalfASecondAndThenRaisesItLinearly) {
    Faders rig;
    rig.set(Family::DelayT, rig.delayValue(150), 0);
    const Stereo out = rig.run(kHold + kFadeIn + 100);
    for (size_t i = 0; i < kHold; ++i) {
        ASSERT_EQ(0.0f, out.left[i]) << "at " << i;
    }
    for (size_t i = kHold; i < out.size(); ++i) {
        const double fade = std::min(1.0, double(i - kHold + 1) / double(kFadeIn));
        ASSERT_NEAR(fade, double(out.left[i]) / double(rig.fullL), kDrift) << "at " << i;
    }
    EXPECT_EQ(rig.fullL, out.left.back());
    EXPECT_TRUE(sameSamples(std::vector<float>(out.size(), rig.fullR), out.right));
}

TEST(Fade, StartsWithEveryDelayThatIsAppliedEvenTheSame) {
    Faders rig;
    rig.set(Family::DelayT, rig.delayValue(100), 0);
    EXPECT_TRUE(onlyEchoes({}, rig.run(kHold).left, 0.0));
    EXPECT_NEAR(2.0 / 44100.0, double(rig.run(1).left[0] / rig.fullL), 1e-9);
}

TEST(Fade, StartsWhenADelayIsSteppedOnTheGrid) {
    Faders rig;
    rig.parameters.apply(command::kStepDelayUp, 0.0f);
    EXPECT_TRUE(onlyEchoes({}, rig.run(kHold).left, 0.0));
    EXPECT_GT(rig.run(1).left[0], 0.0f);
}

TEST(Fade, OfOneTapHoldsTheOthersThatStillWait) {
    Faders rig;
    rig.set(Family::DelayT, rig.delayValue(100), 0);
    rig.run(10000);
    rig.set(Family::DelayT, rig.delayValue(200), 1);
    const Stereo out = rig.run(kHold + 1);
    const Stereo held = [&] {
        Stereo s = out;
        s.left.pop_back();
        s.right.pop_back();
        return s;
    }();
    EXPECT_TRUE(onlyEchoes({}, held.left, 0.0));
    EXPECT_TRUE(onlyEchoes({}, held.right, 0.0));
    EXPECT_GT(out.left.back(), 0.0f);
    EXPECT_GT(out.right.back(), 0.0f);
}

TEST(Fade, OfOneTapStopsAnotherHalfWayUntilTheHoldIsOver) {
    Faders rig;
    rig.set(Family::DelayT, rig.delayValue(100), 0);
    const float half = rig.run(kHold + kFadeIn / 2).left.back();
    EXPECT_NEAR(0.5, double(half / rig.fullL), kDrift);
    rig.set(Family::DelayT, rig.delayValue(200), 1);
    EXPECT_TRUE(sameSamples(std::vector<float>(kHold, half), rig.run(kHold).left));
    EXPECT_EQ(rig.fullL, rig.run(kFadeIn / 2 + 100).left.back());
}

TEST(Fade, LeavesTheFeedbackOfTheRawReadAlone) {
    Rig rig;
    rig.delay(0, 4000);
    rig.set(Family::AmtFBT, 0.5f, 0);
    rig.set(Family::TAPtoFB, 1.0f, 0);
    rig.settle();
    rig.set(Family::DelayT, rig.delayValue(4000), 0);
    rig.play(impulse(kHold + kFadeIn + 100));
    const double level = wetLevel(rig) * tapLevel(rig, 0) / 2048.0;
    const Stereo out = rig.play(silence(4000));
    const size_t played = kHold + kFadeIn + 100;
    EXPECT_TRUE(onlyEchoes({{12 * 4000 - played, level}}, out.left, kRounding));
}

TEST(Fade, DoesNotActInMultiFbButRunsFromZeroAfterwards) {
    Faders rig;
    rig.set(Family::ModeFB, kMultiFb);
    rig.run(500);
    rig.set(Family::DelayT, rig.delayValue(150), 0);
    const Stereo out = rig.run(kHold + 10);
    EXPECT_TRUE(sameSamples(std::vector<float>(out.size(), rig.fullL), out.left));
    rig.set(Family::ModeFB, kMultiEcho);
    EXPECT_NEAR(2.0 / 44100.0, double(rig.run(1).left[0] / rig.fullL), 1e-9);
}

TEST(Fade, IsOverWhenTheProcessorsAreCleared) {
    Faders rig;
    rig.set(Family::DelayT, rig.delayValue(100), 0);
    rig.run(100);
    rig.set(Family::DelayT, rig.delayValue(200), 1);
    rig.engine.clear();
    const Stereo out = rig.run(100);
    EXPECT_TRUE(sameSamples(std::vector<float>(100, rig.fullL), out.left));
    EXPECT_TRUE(sameSamples(std::vector<float>(100, rig.fullR), out.right));
}

TEST(Gate, SilencesATapAtOnceWhileItsLineKeepsRunning) {
    for (const int tap : {1, 4}) {
        SCOPED_TRACE(tap);
        Rig rig;
        rig.set(Family::GainT, 0.0f, 0);
        rig.set(Family::GainT, 0.0f, 7);
        rig.set(Family::ActTap, 1.0f, 7);
        rig.set(Family::ActTap, 1.0f, tap);
        rig.set(Family::AmtFBT, 0.5f, tap);
        rig.set(Family::TAPtoFB, 1.0f, tap);
        rig.delay(tap, 300);
        rig.settle();
        const double level = wetLevel(rig) * tapLevel(rig, tap);
        EXPECT_TRUE(onlyEchoes({{300, level}}, rig.play(impulse(450)).left, kRounding));
        rig.set(Family::ActTap, 0.0f, tap);
        EXPECT_TRUE(onlyEchoes({}, rig.play(silence(500)).left, 0.0));
        rig.set(Family::ActTap, 1.0f, tap);
        const Stereo out = rig.play(silence(600));
        EXPECT_TRUE(onlyEchoes({{250, level / 8.0}, {550, level / 16.0}}, out.left, kRounding));
    }
}

TEST(Gate, InMultiFbLetsATapRingOutWithoutNewInput) {
    for (const int tap : {0, 5}) {
        SCOPED_TRACE(tap);
        Rig rig;
        rig.set(Family::ActTap, 0.0f, 0);
        rig.set(Family::ActTap, 1.0f, tap);
        rig.set(Family::ModeFB, kMultiFb);
        rig.set(Family::AmtFBT, 0.5f, tap);
        rig.set(Family::TAPtoFB, 1.0f, tap);
        rig.delay(tap, 300);
        rig.settle();
        const double level = wetLevel(rig) * tapLevel(rig, tap);
        EXPECT_TRUE(onlyEchoes({{300, level}}, rig.play(impulse(450)).left, kRounding));
        rig.set(Family::ActTap, 0.0f, tap);
        const Stereo out = rig.play(impulse(1000));
        EXPECT_TRUE(onlyEchoes({{150, level / 2.0}, {450, level / 4.0}, {750, level / 8.0}},
                               out.left, kRounding));
    }
}

}  // namespace
}  // namespace tessel8::testing
