// What runs away stays within +-16, and finite.

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

/// All taps, all filters at full resonance, all feedback at its maximum.
struct Runaway : Bench {
    Runaway() : Bench({}) {
        for (int t = 0; t < kTaps; ++t) {
            with({{Family::ActTap, 1.0f, t},
                  {Family::DelayT, 0.02f + 0.003f * float(t), t},
                  {Family::GainT, 1.0f, t},
                  {Family::AmtFBT, 1.0f, t},
                  {Family::FBPostT, 1.0f, t},
                  {Family::TypeFT, float(t) / 7.0f, t},
                  {Family::FreqFT, 0.2f + 0.1f * float(t), t},
                  {Family::ResoFT, 1.0f, t},
                  {Family::GainFT, t == 5 || t == 7 ? 0.0f : 1.0f, t},
                  {Family::ActFltT, 1.0f, t},
                  {Family::TAPtoFB, 1.0f, t},
                  {Family::SourceF, 0.3f, t},
                  {Family::DepthFT, t % 2 ? 1.0f : 0.0f, t},
                  {Family::PhaseFT, float(t % 3), t}});
        }
        with({{Family::ActMod, 1.0f},
              {Family::FreqMod, 0.6f},
              {Family::SelectFB, 1.0f},
              {Family::GainFB, 1.0f},
              {Family::ResoFFB, 1.0f},
              {Family::DepthFB, 1.0f},
              {Family::SourceFB, 0.3f},
              {Family::ActFltFB, 1.0f},
              {Family::ActiveFB, 1.0f},
              {Family::ActRev, 1.0f},
              {Family::AmtRev, 1.0f},
              {Family::DampRev, 1.0f}});
        engine.endFades();
    }
};

TEST(Overload, NeverExceedsItsLimitsInTenMinutesAtTheMaximumOfEverything) {
    Runaway rig;
    float loudest = 0.0f;
    for (int second = 0; second < 600; ++second) {
        rig.set(Family::TypeFFB, float(second / 10 % 6) / 5.0f);
        rig.set(Family::WaveMod, float(second / 7 % 5) / 4.0f);
        // The wet gain is 1 and no tap sends to the reverb: the sum of the taps itself.
        const Stereo out = rig.play(second % 60 < 10 ? noise(44100, 7) : silence(44100), {4096});
        for (const auto* side : {&out.left, &out.right}) {
            loudest = std::max(loudest, peak(*side));
            ASSERT_LE(peak(*side), 16.0f) << "after " << second << " seconds";
        }
        const Engine& e = rig.engine;
        for (size_t t = 0; t < kTaps; ++t) {
            ASSERT_LE(std::fabs(e.postFbL[t]), 16.0f) << second;
            ASSERT_LE(std::fabs(e.postFbR[t]), 16.0f) << second;
        }
        ASSERT_LE(std::fabs(e.fbSignalL), 16.0f) << second;
        ASSERT_LE(std::fabs(e.fbSignalR), 16.0f) << second;
        ASSERT_TRUE(std::isfinite(e.fbSvf.band[0]) && std::isfinite(e.fbSvf.low[0]))
            << second << " seconds, type " << second / 10 % 6;
    }
    EXPECT_EQ(16.0f, loudest);  // it did run away
}

TEST(Overload, EndsWithTheFeedbackOffOnceTheLinesHavePlayedOut) {
    Runaway rig;
    rig.play(noise(44100 * 2, 8));
    for (int t = 0; t < kTaps; ++t) {
        rig.with(
            {{Family::TAPtoFB, 0.0f, t}, {Family::AmtFBT, 0.0f, t}, {Family::ActFltT, 0.0f, t}});
    }
    rig.with({{Family::GainFB, 0.0f}, {Family::ActiveFB, 0.0f}});
    rig.engine.clear();
    EXPECT_LT(1.0f, peak(rig.left(silence(8820))));  // what stood in the lines
    rig.play(silence(44100));
    EXPECT_EQ(0.0f, peak(rig.left(silence(44100))));
}

TEST(Meters, KeepThePeakUntilItIsTakenOrCleared) {
    for (const char* how : {"taken", "mode", "reset"}) {
        Bench rig({});
        rig.play(impulse(100, 3.0f, -2.0f));
        rig.play(noise(1000, 1, 0.5f));
        for (const size_t lane : {0, 1, 2, 3}) {
            EXPECT_EQ(lane % 2 ? 2.0f : 3.0f, rig.engine.meters[lane].load());
            if (*how == 't') {
                EXPECT_EQ(lane % 2 ? 2.0f : 3.0f, rig.engine.takeMeter(lane));
            }
        }
        if (*how == 'm') {
            rig.parameters.apply(command::kMeterMode, 1.0f);
        } else if (*how == 'r') {
            rig.engine.resetState();
        }
        for (const auto& meter : rig.engine.meters) {
            EXPECT_EQ(0.0f, meter.load()) << how;
        }
    }
}

}  // namespace
}  // namespace tessel8::testing
