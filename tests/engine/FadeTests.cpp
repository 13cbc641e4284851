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

TEST(Fade, StartsWithEveryDelayThatIsAppliedEvenTheSameAndOnTheGrid) {
    for (const bool onTheGrid : {false, true}) {
        Faders rig;
        onTheGrid ? rig.parameters.apply(command::kStepDelayUp, 0.0f)
                  : rig.set(Family::DelayT, rig.delayValue(100), 0);
        EXPECT_TRUE(onlyEchoes({}, rig.run(kHold).left, 0.0));
        EXPECT_NEAR(2.0 / 44100.0, double(rig.run(1).left[0] / rig.fullL), 1e-9);
    }
}

TEST(Fade, OfOneTapHoldsTheOthersThatStillWaitOrAreOnTheirWay) {
    for (const size_t before : {size_t(10000), kHold + kFadeIn / 2}) {
        SCOPED_TRACE(before);
        Faders rig;
        rig.set(Family::DelayT, rig.delayValue(100), 0);
        const float held = rig.run(before).left.back();
        EXPECT_NEAR(before > kHold ? 0.5 : 0.0, double(held / rig.fullL), kDrift);
        rig.set(Family::DelayT, rig.delayValue(200), 1);
        const Stereo out = rig.run(kHold);
        EXPECT_TRUE(sameSamples(std::vector<float>(kHold, held), out.left));
        EXPECT_TRUE(onlyEchoes({}, out.right, 0.0));
        EXPECT_GT(rig.run(1).right.back(), 0.0f);
        EXPECT_EQ(rig.fullL, rig.run(kFadeIn + 100).left.back());
    }
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

/// One tap with feedback, played an impulse of which the first echo has come.
struct Gated : Rig {
    Gated(int tap, float mode) {
        set(Family::GainT, 0.0f, tap == 0 ? 1 : 0);
        set(Family::GainT, 0.0f, 7);
        set(Family::ActTap, 1.0f, 7);
        set(Family::ActTap, 1.0f, tap);
        set(Family::ModeFB, mode);
        set(Family::AmtFBT, 0.5f, tap);
        set(Family::TAPtoFB, 1.0f, tap);
        delay(tap, 300);
        settle();
        level = wetLevel(*this) * tapLevel(*this, tap);
        EXPECT_TRUE(onlyEchoes({{300, level}}, play(impulse(450)).left, kRounding));
        set(Family::ActTap, 0.0f, tap);
    }
    double level;
};

TEST(Gate, SilencesATapAtOnceWhileItsLineKeepsRunning) {
    for (const int tap : {1, 4}) {
        SCOPED_TRACE(tap);
        Gated rig(tap, kMultiEcho);
        EXPECT_TRUE(onlyEchoes({}, rig.play(silence(500)).left, 0.0));
        rig.set(Family::ActTap, 1.0f, tap);
        EXPECT_TRUE(onlyEchoes({{250, rig.level / 8.0}, {550, rig.level / 16.0}},
                               rig.play(silence(600)).left, kRounding));
    }
}

TEST(Gate, InMultiFbLetsATapRingOutWithoutNewInput) {
    for (const int tap : {0, 5}) {
        SCOPED_TRACE(tap);
        Gated rig(tap, kMultiFb);
        EXPECT_TRUE(
            onlyEchoes({{150, rig.level / 2.0}, {450, rig.level / 4.0}, {750, rig.level / 8.0}},
                       rig.play(impulse(1000)).left, kRounding));
    }
}

}  // namespace
}  // namespace tessel8::testing
