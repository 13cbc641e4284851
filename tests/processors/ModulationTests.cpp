#include <optional>

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

constexpr int32_t kFrames = 256;

float frequencyOfLfo(double hz) {
    return float(std::log(hz + 1.0) / std::log(16.0));
}

/// Adding a step to a phase is out by half a unit of the sum's binade, the same way as long as it
/// stays there: 1.2e-7 above 2, half of it above 1, and so on; with their shares of a cycle 6.7e-8
/// on average. Turning back by 2 pi is out by 3e-7 once a cycle, and the step itself by one
/// rounding.
double driftInRadians(double hz, double frames) {
    return frames * (6.7e-8 + kUnit * hz * 2.0 * kPi / 44100.0) + hz * frames / 44100.0 * 3e-7;
}

TEST(Lfo, KeepsItsPeriodOverThreeMinutesOnEveryWave) {
    for (const double hz : {0.37, 14.3}) {
        for (int wave = 0; wave < 5; ++wave) {
            SCOPED_TRACE(::testing::Message() << hz << " Hz, wave " << wave);
            Bench rig({{Family::FreqMod, frequencyOfLfo(hz)},
                       {Family::WaveMod, float(wave) / 4.0f},
                       {Family::PhaseMod, 0.3f},
                       {Family::ActMod, 1.0f}});
            const Lfo& lfo = rig.engine.lfo;
            const int blocks = 180 * 44100 / kFrames;
            double turns = 0.0, mean = 0.0, square = 0.0;
            int changes = 0;
            double before = 0.2 * kPi;  // the spread turns the first output back by as much
            for (int b = 0; b < blocks; ++b) {
                const float held = lfo.outPos, heldNeg = lfo.outNeg;
                rig.play(silence(kFrames));
                const double now = double(lfo.phasePos);
                const bool wrapped = now < before;
                turns += wrapped;
                const double x = now - double(lfo.step);  // where the last output was taken
                const double shape = wave == 0   ? std::sin(x)
                                     : wave == 1 ? (x > 0.0 ? 1.0 : -1.0)
                                     : wave == 2 ? std::asin(std::sin(x)) * 2.0 / kPi
                                                 : x / kPi;
                if (wave < 4 && std::fabs(x) < kPi) {
                    // The sine's table has 999 steps a cycle.
                    ASSERT_NEAR(shape, double(lfo.outPos), wave == 0 ? 2.0 * kPi / 999.0 : 1e-6);
                } else if (wave == 4) {
                    ASSERT_EQ(wrapped, lfo.outPos != held) << b;
                    ASSERT_EQ(wrapped, lfo.outNeg != heldNeg) << b;
                    changes += wrapped;
                    mean += wrapped ? double(lfo.outPos) : 0.0;
                    square += wrapped ? double(lfo.outPos) * double(lfo.outPos) : 0.0;
                }
                before = now;
            }
            const double frames = double(blocks) * kFrames;
            const double radians = 2.0 * kPi * turns + before - 0.2 * kPi;
            printf("R %g %d %g %g\n", hz, wave, radians - 2.0 * kPi * hz * frames / 44100.0,
                   driftInRadians(hz, frames));
            EXPECT_NEAR(2.0 * kPi * hz * frames / 44100.0, radians, driftInRadians(hz, frames));
            if (changes > 1000) {
                // Variances of x and x squared, uniform from -1 to 1: 1/3 and 4/45.
                printf("U %d %g %g\n", changes, mean / changes * std::sqrt(3.0 * changes),
                       (square / changes - 1.0 / 3) * std::sqrt(45.0 * changes / 4));
                EXPECT_NEAR(0.0, mean / changes, 4.0 * std::sqrt(1.0 / 3.0 / changes));
                EXPECT_NEAR(1.0 / 3.0, square / changes, 4.0 * std::sqrt(4.0 / 45.0 / changes));
            }
        }
    }
}

TEST(Lfo, SpreadsItsOutputsByPlusAndMinusAQuarterTurnAtMost) {
    for (const float wave : {0.0f, 0.5f, 1.0f}) {
        for (const float spread : {0.0f, 0.5f, 1.0f}) {
            SCOPED_TRACE(::testing::Message() << "wave " << wave << ", spread " << spread);
            Bench rig({{Family::FreqMod, frequencyOfLfo(5.0)},
                       {Family::WaveMod, wave},
                       {Family::PhaseMod, spread},
                       {Family::ActMod, 1.0f}});
            const Lfo& lfo = rig.engine.lfo;
            rig.play(silence(1));
            // From the middle of the cycle the first output stands a quarter behind the master
            // phase at spread 1: at the trough of a sine or triangle.
            EXPECT_NEAR(wave == 1.0f ? 0.0 : 1.0 - 2.0 * double(spread), double(lfo.outPos), 0.01);
            for (int frames = kFrames; frames < 441000; frames += kFrames) {
                rig.play(silence(kFrames));
                if (spread == 0.5f) {
                    ASSERT_EQ(lfo.outPos, lfo.outNeg);
                } else if (wave < 1.0f) {
                    const double slope = wave == 0.0f ? 1.0 : 2.0 / kPi;
                    ASSERT_NEAR(-double(lfo.outPos), double(lfo.outNeg),
                                (wave == 0.0f ? 2.0 * kPi / 999.0 : 0.0) +
                                    slope * 2.0 * driftInRadians(5.0, frames));
                } else {
                    ASSERT_TRUE(lfo.outPos != lfo.outNeg || lfo.outPos == 0.0f);
                }
            }
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
    Bench rig({{Family::NumMod, 0.5f},
               {Family::DenomMod, 3.0f / 12.0f},
               {Family::PhaseMod, 0.6f},
               {Family::ActMod, 1.0f},
               {Family::NoteModeLfo, 1.0f},
               {Family::SyncMod, 1.0f}});
    Song song;
    rig.parameters.connect(nullptr, &song);
    const Lfo& lfo = rig.engine.lfo;
    // Cycles of 3/4 notes, that is three quarters, in runs of three whole notes; with a loop,
    // jumps and a count-in.
    for (const double quarters :
         {0.5, 1.5, 2.9, 7.25, 1.0, 1.4, 100.3, 11.9, 12.0, 13.7, -2.5, 0.25}) {
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
        for (const bool known : {true, false}) {  // the host stands still, or has no position
            const double before = double(lfo.phasePos);
            song.quarters = known ? std::optional(quarters) : std::nullopt;
            rig.play(silence(kFrames));
            const double step = 2.0 * kPi * (2.0 / 3.0) / 44100.0;
            EXPECT_NEAR(0.0,
                        std::remainder(double(lfo.phasePos) - before - kFrames * step, 2.0 * kPi),
                        kFrames * 1.2e-7 + 3e-7);
        }
    }
}

TEST(Follower, SwingsOverItsRangeAtAnyLevelAndFallsWithASilentSource) {
    for (const float level : {1.0f, 0.01f}) {
        for (const float source : {0.0f, 2.0f / 9.0f}) {  // the input; a tap without signal
            Bench rig({{Family::SourceF, 1.0f},
                       {Family::DepthFT, 1.0f},
                       {Family::ActMod, 1.0f},
                       {Family::SourceEF, source},
                       {Family::DelayT, 0.9f, 1}});
            float low = 1.0f, high = -1.0f;
            const auto play = [&](const Stereo& in) {
                rig.play(in);
                low = std::min(low, rig.engine.follower.out);
                high = std::max(high, rig.engine.follower.out);
            };
            for (int i = 0; i < 44100 * 6; i += kFrames) {
                // Noise, louder and softer by turns of half a second.
                play(noise(kFrames, uint32_t(i), level * (i / 22050 % 2 ? 0.8f : 0.05f)));
                low = i < 88200 ? 1.0f : low;
                high = i < 88200 ? -1.0f : high;
            }
            printf("F %g %g %g %g\n", double(level), double(source), double(low), double(high));
            EXPECT_LE(low, -0.9f);
            EXPECT_TRUE(source == 0.0f ? high >= 0.9f : high == -1.0f) << high;
            rig.play(silence(44100));
            high = -1.0f;
            for (int i = 0; i < 44100 * 30; i += 44100) {
                play(silence(44100));
            }
            EXPECT_EQ(-1.0f, high);
        }
    }
}

TEST(Modulation, LeavesEveryFilterAtItsKnobWhileItIsOff) {
    Stereo sound[3];
    for (const int depth : {0, 1, 2}) {  // none; both, but off; both
        Bench rig({{Family::WaveMod, 0.5f},
                   {Family::FreqMod, 0.9f},
                   {Family::SelectFB, 0.125f},
                   {Family::GainFB, 0.5f},
                   {Family::ActiveFB, 1.0f},
                   {Family::ActFltFB, 1.0f},
                   {Family::DepthFB, depth ? 1.0f : 0.5f},
                   {Family::ActMod, depth == 2 ? 1.0f : 0.0f}},
                  50);
        for (int t = 0; t < kTaps; ++t) {
            rig.with({{Family::ActTap, 1.0f, t},
                      {Family::ActFltT, 1.0f, t},
                      {Family::FreqFT, float(t + 1) / 9.0f, t},
                      {Family::ResoFT, 0.8f, t},
                      {Family::SourceF, float(t) / 7.0f, t},
                      {Family::DepthFT, depth ? 0.1f : 0.5f, t}});
        }
        sound[depth] = rig.play(noise(44100, 6));
        for (size_t t = 0; t < kTaps && depth < 2; ++t) {
            // A smoother stops where a pull of 8.9e-3 of the rest no longer shows: one unit.
            const double knob = 20.0 * std::exp2(double(t + 1) / 9.0 * 9.965784);
            EXPECT_NEAR(knob, double(rig.engine.tapFreqSmooth[t]), knob * 2.0 * kUnit / 8.9e-3)
                << t;
        }
    }
    EXPECT_TRUE(sameSound(sound[0], sound[1]));
    EXPECT_FALSE(sameSound(sound[0], sound[2]));
}

}  // namespace
}  // namespace tessel8::testing
