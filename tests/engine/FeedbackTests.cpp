#include "Settings.h"

namespace tessel8::testing {
namespace {

/// Echoes number `from` and on, one every `period` frames, each `ratio` times the one before.
std::vector<Echo> series(size_t first, size_t period, double level, double ratio, size_t end) {
    std::vector<Echo> echoes;
    for (size_t at = first; at < end; at += period) {
        echoes.push_back({at, level});
        level *= ratio;
    }
    return echoes;
}

/// One rounding more at every turn of the loop, thirty turns at most.
constexpr double kLoopRounding = kRounding + 30.0 * 3.0 * 6.0e-8;

void sendToFeedback(Rig& rig, int tap, float amount) {
    rig.set(Family::AmtFBT, amount, tap);
    rig.set(Family::TAPtoFB, 1.0f, tap);
}

class OwnFeedback : public ::testing::TestWithParam<LoopCase> {};
INSTANTIATE_TEST_SUITE_P(Loops, OwnFeedback,
                         ::testing::Values(LoopCase{"FourTaps", kMultiEcho, 3},
                                           LoopCase{"EightTaps", kMultiEcho, 5},
                                           LoopCase{"GatedInput", kMultiFb, 6}),
                         nameOf);

TEST_P(OwnFeedback, OfTheRawReadRepeatsWithThePeriodOfTheDelay) {
    const int tap = GetParam().tap;
    for (const int32_t delay : {1, 3, 17, 31, 32, 33, 1000}) {
        SCOPED_TRACE(delay);
        Rig rig;
        select(rig, GetParam());
        rig.delay(tap, delay);
        rig.set(Family::GainT, 0.25f, tap);  // no part of the loop
        sendToFeedback(rig, tap, 0.75f);
        rig.settle();
        const auto period = size_t(delay);
        const size_t frames = period * 30;
        const Stereo out = rig.play(impulse(frames));
        const double level = wetLevel(rig) * tapLevel(rig, tap);
        EXPECT_NEAR(0.25, level, 1e-3);
        const auto echoes = series(period, period, level, 0.75, frames);
        EXPECT_TRUE(onlyEchoes(echoes, out.left, kLoopRounding));
        EXPECT_TRUE(onlyEchoes(echoes, out.right, kLoopRounding));
    }
}

TEST_P(OwnFeedback, OfTheProcessedTapRepeatsOneFrameLaterAndWithTheGainOfTheTap) {
    const int tap = GetParam().tap;
    Rig rig;
    select(rig, GetParam());
    rig.delay(tap, 4410);
    rig.set(Family::GainT, 0.6f, tap);
    sendToFeedback(rig, tap, 0.5f);
    rig.set(Family::FBPostT, 1.0f, tap);
    rig.settle();
    const size_t frames = 4411 * 10;
    const Stereo out = rig.play(impulse(frames));
    const double gain = tapLevel(rig, tap);
    EXPECT_NEAR(1.44, gain, 1e-3);
    const auto echoes = series(4410, 4411, wetLevel(rig) * gain, gain * 0.5, frames);
    EXPECT_TRUE(onlyEchoes(echoes, out.left, kLoopRounding));
}

TEST_P(OwnFeedback, WithoutDelayAddsACopyAndWithoutSendingIsOff) {
    const int tap = GetParam().tap;
    for (const size_t delay : {0, 50}) {
        Rig rig;
        select(rig, GetParam());
        rig.delay(tap, int32_t(delay));
        sendToFeedback(rig, tap, 0.5f);
        rig.set(Family::TAPtoFB, delay == 0 ? 1.0f : 0.0f, tap);
        rig.settle();
        const double level = wetLevel(rig) * tapLevel(rig, tap) * (delay == 0 ? 1.5 : 1.0);
        EXPECT_TRUE(onlyEchoes({{delay, level}}, rig.play(impulse(500)).left, kRounding));
    }
}

/// The first tap listens, any tap may be selected.
struct MasterRig : Rig {
    MasterRig() {
        for (int t = 0; t < kTaps; ++t) {
            delay(t, 100 * (t + 1));
            plainStereo(*this, t);
            set(Family::ActTap, 1.0f, t);
        }
        set(Family::GainFB, 0.5f);
        set(Family::ActiveFB, 1.0f);
        settle();
        for (int t = 1; t < kTaps; ++t) {
            set(Family::ActTap, 0.0f, t);
        }
    }
};

TEST(MasterFeedback, FeedsTheReadOfTheSelectedTapIntoAllLines) {
    MasterRig rig;
    for (int selected = 0; selected < kTaps; ++selected) {
        SCOPED_TRACE(selected);
        rig.engine.clearRings();
        rig.set(Family::SelectFB, float(selected + 1) / 8.0f);
        const Stereo out = rig.play(impulse(2500));
        const double level = wetLevel(rig) * tapLevel(rig, 0);
        const auto echoes = series(100, 100 * size_t(selected + 1), level, 0.5, out.size());
        EXPECT_TRUE(onlyEchoes(echoes, out.left, kLoopRounding));
        EXPECT_TRUE(onlyEchoes(echoes, out.right, kLoopRounding));
    }
}

TEST(MasterFeedback, PansEachChannelByItsOwnAmount) {
    MasterRig rig;
    rig.set(Family::SelectFB, 0.125f);
    rig.set(Family::PanFBL, 0.25f);
    rig.set(Family::PanFBR, 0.375f);
    const double level = wetLevel(rig) * tapLevel(rig, 0);
    const Stereo fromLeft = rig.play(impulse(250, 1.0f, 0.0f));
    EXPECT_TRUE(onlyEchoes({{100, level}, {200, level * 0.375}}, fromLeft.left, kRounding));
    EXPECT_TRUE(onlyEchoes({{200, level * 0.125}}, fromLeft.right, kRounding));
    rig.engine.clearRings();
    const Stereo fromRight = rig.play(impulse(250, 0.0f, 1.0f));
    EXPECT_TRUE(onlyEchoes({{200, level * 0.3125}}, fromRight.left, kRounding));
    EXPECT_TRUE(onlyEchoes({{100, level}, {200, level * 0.1875}}, fromRight.right, kRounding));
}

TEST(MasterFeedback, OfATapWithoutDelayAddsACopyAndIsOffInMultiFb) {
    MasterRig rig;
    rig.set(Family::SelectFB, 0.125f);
    rig.engine.delaySamples[0] = 0;
    const double level = wetLevel(rig) * tapLevel(rig, 0);
    EXPECT_TRUE(onlyEchoes({{0, level * 1.5}}, rig.play(impulse(500)).left, kRounding));
    rig.engine.clearRings();
    rig.set(Family::ModeFB, kMultiFb);
    rig.set(Family::ActiveFB, 1.0f);
    EXPECT_TRUE(onlyEchoes({{0, level}}, rig.play(impulse(500)).left, kRounding));
}

struct BusRig : MasterRig {
    BusRig() { set(Family::ModeFB, kMultiTap); }

    /// Makes `tap` the one that feeds the bus, on or off.
    void feedFrom(int tap, bool on) {
        for (int t = 1; t < kTaps; ++t) {
            set(Family::ActTap, on && t == tap ? 1.0f : 0.0f, t);
        }
        sendToFeedback(*this, tap, 0.75f);
        play(silence(1));  // the bus forgets the tap before
        engine.clearRings();
    }
};

TEST(Bus, RunsOneFrameBehindTheTapThatFeedsItOnOrOff) {
    BusRig rig;
    for (int tap = 0; tap < kTaps; ++tap) {
        for (const bool on : {false, true}) {
            SCOPED_TRACE(::testing::Message() << "tap " << tap + 1 << (on ? " on" : " off"));
            rig.feedFrom(tap, on);
            const Stereo out = rig.play(impulse(3000));
            const auto delay = 100 * (size_t(tap) + 1);
            const double ratio = 0.75 * 0.5;
            auto echoes =
                series(100, delay + 1, wetLevel(rig) * tapLevel(rig, 0), ratio, out.size());
            if (on && tap != 0) {
                const double level = wetLevel(rig) * tapLevel(rig, tap);
                const auto own = series(delay, delay + 1, level, ratio, out.size());
                echoes.insert(echoes.end(), own.begin(), own.end());
            }
            EXPECT_TRUE(onlyEchoes(echoes, out.left, kLoopRounding));
            EXPECT_TRUE(onlyEchoes(echoes, out.right, kLoopRounding));
        }
    }
}

}  // namespace
}  // namespace tessel8::testing
