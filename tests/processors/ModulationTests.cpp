#include <optional>

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

constexpr int32_t kFrames = 256;

/// Adding a step to a phase is out by half a unit of the sum's binade, the same way as long as it
/// stays there: 1.2e-7 above 2, half of it above 1, and so on; with their shares of a cycle 6.7e-8
/// on average. Turning back by 2 pi is out by 3e-7 once a cycle, and the step itself by one
/// rounding.
double driftInRadians(double hz, double frames) {
    return frames * (6.7e-8 + kUnit * hz * 2.0 * kPi / 44100.0) + hz * frames / 44100.0 * 3e-7;
}

double shapeOf(int wave, double x) {
    return wave == 0   ? std::sin(x)
           : wave == 1 ? (std::sin(x) > 0.0 ? 1.0 : -1.0)
           : wave == 2 ? std::asin(std::sin(x)) * 2.0 / kPi
                       : std::remainder(x, 2.0 * kPi) / kPi;
}

TEST(Lfo, KeepsItsPeriodAndTheSpreadOfItsOutputsOverThreeMinutesOnEveryWave) {
    for (int turn = 0; turn < 10; ++turn) {
        const double hz = turn < 5 ? 0.37 : 14.3;
        const int wave = turn % 5, blocks = 180 * 44100 / kFrames;
        const float phaseMod = float(turn % 3) / 2.0f;
        SCOPED_TRACE(::testing::Message() << hz << " Hz, wave " << wave << " spread " << phaseMod);
        const double spread = (double(phaseMod) - 0.5) * kPi;  // the first output stands behind
        Bench rig(0, kLowestRate, FreqMod, float(std::log(hz + 1.0) / std::log(16.0)), WaveMod,
                  float(wave) / 4.0f, PhaseMod, phaseMod, ActMod, 1.0f);
        const Lfo& lfo = rig.engine.lfo;
        double turns = 0.0, mean = 0.0, square = 0.0, before = -spread;
        for (int b = 0; b < blocks; ++b) {
            const float held = lfo.outPos, heldNeg = lfo.outNeg;
            rig.play(silence(kFrames));
            const bool wrapped = double(lfo.phasePos) < before;
            before = double(lfo.phasePos);
            turns += wrapped;
            const double x = before - double(lfo.step);  // where the last outputs were taken
            const double out = double(lfo.outPos), other = x + 2.0 * spread;
            const double drift = 2.0 * driftInRadians(hz, kFrames * (b + 1.0));
            // The sine's table has 999 steps a cycle; saw and square jump at the ends of theirs.
            const double step = wave == 0 ? 2.0 * kPi / 999.0 : 1e-6;
            if (wave == 4) {
                ASSERT_EQ(wrapped, lfo.outPos != held) << b;
                ASSERT_EQ(wrapped, lfo.outNeg != heldNeg) << b;
                mean += wrapped ? out : 0.0;
                square += wrapped ? out * out : 0.0;
            } else if (std::fabs(x) < kPi) {
                ASSERT_NEAR(shapeOf(wave, x), out, step) << b;
                if (wave == 0 || wave == 2 || std::fabs(std::sin(other)) > drift) {
                    ASSERT_NEAR(shapeOf(wave, other), double(lfo.outNeg), step + drift) << b;
                }
            }
            ASSERT_TRUE(phaseMod != 0.5f || lfo.outPos == lfo.outNeg) << b;
        }
        const double frames = double(blocks) * kFrames;
        EXPECT_NEAR(2.0 * kPi * hz * frames / 44100.0, 2.0 * kPi * turns + before + spread,
                    driftInRadians(hz, frames));
        if (wave == 4 && hz > 1.0) {
            // Variances of x and x squared, uniform from -1 to 1: 1/3 and 4/45.
            EXPECT_NEAR(0.0, mean / turns, 4.0 * std::sqrt(1.0 / 3.0 / turns));
            EXPECT_NEAR(1.0 / 3.0, square / turns, 4.0 * std::sqrt(4.0 / 45.0 / turns));
        }
    }
}

struct Song : HostClock {
    std::optional<double> quarters;
    bool hostTempo(double&) override { return false; }
    bool songPosition(double& position) override {
        position = quarters.value_or(0.0);
        return quarters.has_value();
    }
};

TEST(Lfo, StandsWhereTheSongStandsAndRunsFreeWhileItStops) {
    Bench rig(0, kLowestRate, NumMod, 0.5f, DenomMod, 3.0f / 12.0f, PhaseMod, 0.6f, ActMod, 1.0f,
              NoteModeLfo, 1.0f, SyncMod, 1.0f);
    Song song;
    rig.parameters.connect(nullptr, &song);
    const Lfo& lfo = rig.engine.lfo;
    // Cycles of 3/4 notes, that is three quarters, in runs of three whole notes; with a loop,
    // jumps and a count-in.
    for (const double quarters : {0.5, 7.25, 1.0, 100.3, 11.9, 12.0, -2.5}) {
        SCOPED_TRACE(quarters);
        song.quarters = quarters;
        rig.parameters.beginBlock();
        const double phase = 2.0 * kPi * std::fmod(quarters, 12.0) / 3.0;
        // Positions up to 100 and four cycles come as floats.
        const double bound = 100.0 * kUnit * 2.0 * kPi / 3.0 + 4.0 * 2.0 * kPi * 4.0 * kUnit;
        for (const auto& [at, shift] : {std::pair{lfo.phasePos, -0.1}, {lfo.phaseNeg, 0.1}}) {
            EXPECT_NEAR(0.0, std::remainder(double(at) - phase - shift * kPi, 2.0 * kPi), bound);
            EXPECT_LE(std::fabs(at), 3.14160f);
        }
        song.quarters.reset();
        const double before = double(lfo.phasePos);
        rig.play(silence(kFrames));
        const double went =
            double(lfo.phasePos) - before - kFrames * 2.0 * kPi * (2.0 / 3.0) / 44100.0;
        EXPECT_NEAR(0.0, std::remainder(went, 2.0 * kPi), kFrames * 1.2e-7 + 3e-7);
    }
}

TEST(Follower, SwingsOverItsRangeAtAnyLevelAndRestsAtItsBottom) {
    for (const float level : {1.0f, 0.01f}) {
        Bench rig(0, kLowestRate, SourceF, 1.0f, DepthFT, 1.0f, ActMod, 1.0f);
        float low = 1.0f, high = -1.0f;
        for (int i = 0; i < 44100 * 6; i += kFrames) {
            // Noise, louder and softer by turns of half a second; two seconds to get used.
            rig.play(noise(kFrames, uint32_t(i), level * (i / 22050 % 2 ? 0.8f : 0.05f)));
            low = i < 88200 ? 1.0f : std::min(low, rig.engine.follower.out);
            high = i < 88200 ? -1.0f : std::max(high, rig.engine.follower.out);
        }
        EXPECT_LE(low, -0.9f) << level;
        EXPECT_GE(high, 0.9f) << level;
        rig.play(silence(44100 * 30));  // 45 time constants of the slow measure
        EXPECT_EQ(-1.0f, rig.engine.follower.out);
        EXPECT_EQ(0.0f, rig.engine.follower.mean);
        EXPECT_EQ(0.0f, rig.engine.follower.dev);
    }
}

}  // namespace
}  // namespace tessel8::testing
