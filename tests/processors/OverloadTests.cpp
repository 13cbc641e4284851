// What runs away stays within +-16, and finite; what is driven, under its ceiling.

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

TEST(Overload, NeverExceedsItsLimitsInTenMinutesAtTheMaximumOfEverything) {
    Bench rig(0, kLowestRate, ActMod, 1.0f, FreqMod, 0.6f, SelectFB, 1.0f, GainFB, 1.0f, ResoFFB,
              1.0f, DepthFB, 1.0f, SourceFB, 0.3f, ActFltFB, 1.0f, ActiveFB, 1.0f);
    for (int t = 0; t < kTaps; ++t) {
        const float step = float(t) / 7.0f;
        rig.with(t, ActTap, 1.0f, DelayT, 0.02f + 0.02f * step, GainT, 1.0f, AmtFBT, 1.0f, FBPostT,
                 1.0f, TypeFT, step, FreqFT, 0.2f + 0.7f * step, ResoFT, 1.0f, GainFT,
                 t == 5 || t == 7 ? 0.0f : 1.0f, ActFltT, 1.0f, TAPtoFB, 1.0f, SourceF, 0.3f,
                 DepthFT, t % 2 ? 1.0f : 0.0f, PhaseFT, float(t % 3));
    }
    rig.engine.endFades();
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

TEST(Saturator, PassesUnderItsCeilingAndNeverAboveIt) {
    // Ceilings of 100, 1 and 0.1; the feedback's saturator stands behind the limit of 16.
    const struct {
        float drive, in;
        double tap, feedback;
    } kFigures[] = {{0.0f, 1.0f, 100.0 / 101.0, 100.0 / 101.0},
                    {0.5f, 1.0f, 0.5, 0.5},
                    {0.5f, 64.0f, 64.0 / 65.0, 16.0 / 17.0},
                    {0.5f, 16.0f, 16.0 / 17.0, 16.0 / 17.0},
                    {1.0f, 0.1f, 0.05, 0.05},
                    {1.0f, 1e6f, 1e5 / 1000000.1, 1.6 / 16.1}};
    for (const auto& f : kFigures) {
        const double bound = 5.0 * kUnit;  // ceiling, product, sum, quotient, the input's decimals
        const auto check = [&](double expected, const Stereo& out, size_t at) {
            EXPECT_NEAR(expected, double(out.left[at]), expected * bound) << f.drive << " " << f.in;
            EXPECT_EQ(-out.left[at], out.right[at]);
            EXPECT_TRUE(f.drive < 1.0f || out.left[at] <= 0.1f);
        };
        for (const float before : {0.0f, 1.0f}) {
            Bench rig(0, kLowestRate, ActTap, 0.0f);
            rig.with(6, ActTap, 1.0f, DriveT, f.drive, PreDrvT, before, ActDrvT, 1.0f);
            check(f.tap, rig.play(impulse(1, f.in, -f.in)), 0);
        }
        Bench rig(100, kLowestRate, SelectFB, 0.125f, GainFB, 1.0f, ActiveFB, 1.0f, DriveFB,
                  f.drive, ActDrvFB, 1.0f);
        check(f.feedback, rig.play(impulse(201, f.in, -f.in)), 200);
    }
}

}  // namespace
}  // namespace tessel8::testing
