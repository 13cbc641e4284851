// What runs away stays within +-16, and finite.

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

/// All taps, all filters at full resonance, all feedback at its maximum.
struct Runaway : Bench {
    Runaway() : Bench(0, kLowestRate) {
        for (int t = 0; t < kTaps; ++t) {
            const float step = float(t) / 7.0f;
            with(t, ActTap, 1.0f, DelayT, 0.02f + 0.02f * step, GainT, 1.0f, AmtFBT, 1.0f);
            with(t, FBPostT, 1.0f, TypeFT, step, FreqFT, 0.2f + 0.7f * step, ResoFT, 1.0f);
            with(t, GainFT, t == 5 || t == 7 ? 0.0f : 1.0f, ActFltT, 1.0f, TAPtoFB, 1.0f);
            with(t, SourceF, 0.3f, DepthFT, t % 2 ? 1.0f : 0.0f, PhaseFT, float(t % 3));
        }
        with(0, ActMod, 1.0f, FreqMod, 0.6f, SelectFB, 1.0f, GainFB, 1.0f, ResoFFB, 1.0f);
        with(0, DepthFB, 1.0f, SourceFB, 0.3f, ActFltFB, 1.0f, ActiveFB, 1.0f);
        engine.endFades();
    }
};

TEST(Overload, NeverExceedsItsLimitsInTenMinutesAtTheMaximumOfEverything) {
    Runaway rig;
    float loudest = 0.0f;
    for (int second = 0; second < 600; ++second) {
        rig.with(0, TypeFFB, float(second / 10 % 6) / 5.0f, WaveMod, float(second / 7 % 5) / 4.0f);
        const Stereo out = rig.play(second % 60 < 10 ? noise(44100, 7) : silence(44100), {4096});
        const Engine& e = rig.engine;
        std::vector<float> levels{peak(out.left), peak(out.right), e.fbSignalL, e.fbSignalR};
        levels.insert(levels.end(), e.postFbL.v, e.postFbL.v + kTaps);  // the taps, amount 1
        levels.insert(levels.end(), e.postFbR.v, e.postFbR.v + kTaps);
        ASSERT_LE(peak(levels), 16.0f) << "after " << second << " seconds";
        loudest = std::max(loudest, levels[0]);
    }
    EXPECT_EQ(16.0f, loudest);  // it did run away
}

TEST(Overload, OfTheStateVariableFilterPassesWithTheSoundThatMadeIt) {
    for (const float type : {0.0f, 0.2f, 0.4f}) {
        Bench rig(4000, kLowestRate, SelectFB, 0.125f, GainFB, 0.5f, ActiveFB, 1.0f, TypeFFB, type,
                  FreqFFB, 1.0f, ActFltFB, 1.0f);
        rig.play(noise(44100, 3, 4.0f));
        rig.play(silence(44100 * 10));  // more than a hundred turns at half the level each
        EXPECT_LT(peak(rig.left(silence(44100))), 0.001f) << type;
    }
}

}  // namespace
}  // namespace tessel8::testing
