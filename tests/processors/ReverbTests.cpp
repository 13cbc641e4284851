#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

/// The reverb alone, across the output.
struct ReverbBench : Bench {
    ReverbBench(bool plate, float damping, float rate = kLowestRate)
        : Bench(0, rate, Mix, 0.0f, TypeRev, plate ? 1.0f : 0.0f, DampRev, damping, AmtRev, 1.0f,
                ModeRev, 1.0f, ActRev, 1.0f) {}
    /// Plays one sample of level 1 with neither damping nor band filter, all echoes in single
    /// samples.
    Stereo bareResponse(float ownDecay, float otherDecay, size_t frames) {
        play(silence(1));
        engine.reverb.decayA = ownDecay;
        engine.reverb.decayB = otherDecay;
        engine.reverb.dampCoef = 1.0f;
        engine.reverb.band = {.b0 = 1.0f};
        return play(impulse(frames, 1.0f, 0.0f));
    }
};

const float kRates[] = {44100.0f, 48000.0f, 96000.0f, 192000.0f};

TEST(Plate, HasTheLengthsOfItsTable) {
    constexpr double kLines[] = {3182331.25, 2662541.5,  3295698.5,
                                 2506079.0,  3064032.25, 2924268.0};
    constexpr double kDiffusers[] = {417287.72, 156341.19, 304978.84, 117807.195};
    for (const float rate : kRates) {
        const auto samples = [=](double units) {
            return size_t(std::ceil(units * double(rate) * 44.1 * 5.0 / 1445024640.0));
        };
        size_t diffuser[5] = {}, first = 0;  // the last one is none
        for (size_t k = 0; k < 4; ++k) {
            first += diffuser[k] = samples(0.75 * kDiffusers[k]);
        }
        // With diffusers that only delay, a line gives 1 - 0.7 * 0.7 and, a turn later, 0.7 of
        // that, the even ones negative; the diffusers' lengths are taps of four lines, too.
        ReverbBench rig(true, 0.5f, rate);
        const size_t frames = first + samples(0.5 * kLines[0]) + diffuser[0] + 1;
        const Stereo out = rig.bareResponse(1.0f, 0.0f, frames);
        std::vector<double> left(frames), right(frames);
        for (const auto& [k, tap] : {std::pair{4, 4}, {3, 2}, {0, 0}, {5, 4}, {2, 3}, {1, 1}}) {
            std::vector<double>& side = k == 4 || k == 3 || k == 0 ? left : right;
            const size_t at = first + diffuser[tap];
            side[at] = 0.3 * 0.51;
            side.at(std::min(at + samples(0.5 * kLines[k]), frames - 1)) =
                (k % 2 ? 0.7 : -0.7) * 0.3 * 0.51;
        }
        for (size_t i = 0; i < frames; ++i) {
            ASSERT_NEAR(left[i], double(out.left[i]), 10.0 * kUnit) << rate << " left " << i;
            ASSERT_NEAR(right[i], double(out.right[i]), 10.0 * kUnit) << rate << " right " << i;
        }
    }
}

TEST(Spring, HasTheLengthsOfItsTable) {
    for (const float rate : kRates) {
        const auto samples = [=](double units) {
            return size_t(std::ceil(units * double(rate) / 303187.5));
        };
        ReverbBench rig(false, 0.5f, rate);
        const Stereo out = rig.bareResponse(1.0f, 1.0f, size_t(rate));
        const double kPairs[][5] = {{32767.0, 515.4479, 2606.0168, 2129.1135, 1.0},
                                    {39513.066, 427.44635, 2568.4248, 2160.0713, 0.975},
                                    {47647.92, 389.2502, 2606.0168, 2129.1135, 0.95}};
        for (const auto& [units, allpassUnits, first, second, decay] : kPairs) {
            SCOPED_TRACE(::testing::Message() << rate << " line " << units);
            const size_t line = samples(units / 2.0), allpass = samples(allpassUnits);
            const std::vector<float>& side = decay == 0.975 ? out.right : out.left;
            const auto at = [&](size_t i) { return double(side[i]) / double(side[line]); };
            // Allpasses of 0.7071; a turn later line and allpass of the pair's second half come to
            // those of the first. Other echoes that fall on the same sample make less than 0.3, a
            // missing half 0.5 and more.
            EXPECT_NEAR(0.0, at(line - 1), 1e-12);
            for (const size_t echo : {allpass, samples(first), samples(second)}) {
                EXPECT_NEAR(-0.7071, at(line + echo), 0.3) << echo;
            }
            EXPECT_NEAR(-2.0 * 0.7071 * decay, at(2 * line), 0.3);
            EXPECT_NEAR(2.0 * decay, at(2 * line + allpass), 0.3);
        }
    }
}

TEST(Reverb, DecaysAsItsLoopGainSaysAndLongerTheHigherTheDamping) {
    for (const bool plate : {false, true}) {
        double last = 1e9;
        for (const double d : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            SCOPED_TRACE(::testing::Message() << (plate ? "plate " : "spring ") << d);
            const double h = std::pow(0.5, 0.01 * std::pow(100.0, 1.0 - d));
            const double f = 0.7 * h * std::sqrt(0.56), g = 0.3 * h * std::sqrt(0.56);
            // Of all loops the slowest and the fastest: a turn's gain in dB and its frames. A
            // spring's allpass takes up to (1 + c) / (1 - c) times its length.
            const auto rate = [](double gain, double frames) {
                return -20.0 * std::log10(gain) * 44100.0 / frames;
            };
            const auto pair = [&](double k) { return k * f + std::sqrt(k * f * g); };
            const double slow =
                plate ? rate(0.7 * h, 11089.0) : rate(pair(0.95), 3465.0 + 5.83 * 57.0);
            const double fast = plate ? rate(0.7 * h, 8432.0) : rate(pair(1.0), 2383.0);
            // Noise below 200 Hz, where the damping filters still pass. Fifty decibels a window;
            // its edges may hold one turn of a loop more or less.
            ReverbBench rig(plate, float(d));
            const auto window = size_t(50.0 / std::sqrt(slow * fast) * 44100.0);
            Stereo burst = noise(4410, 2);
            for (size_t i = 1; i < burst.size(); ++i) {
                burst.left[i] = 0.97f * burst.left[i - 1] + 0.03f * burst.left[i];
            }
            burst.right = burst.left;
            rig.play(burst);
            rig.play(silence(window));
            const double before = energy(rig.left(silence(window)));
            const double after = energy(rig.left(silence(window)));
            const double measured = 10.0 * std::log10(before / after) * 44100.0 / double(window);
            const double turn = rate(plate ? 0.7 * h : pair(1.0), double(window));
            EXPECT_LE(slow - turn, measured);
            EXPECT_GE(fast + turn, measured);
            EXPECT_LT(measured, last);
            last = measured;
        }
    }
}

TEST(Reverb, NeitherGrowsUnderAMinuteOfNoiseNorInItsTail) {
    for (const int turn : {0, 1, 2, 3}) {
        ReverbBench rig(turn % 2 == 1, turn < 2 ? 0.4f : 1.0f);
        const Stereo in = noise(10 * 44100, 9);
        double last = 1e20;
        for (int part = 0; part < 11; ++part) {
            // The same noise again: what differs is the tail of what came before. Then silence.
            const double now = energy(rig.left(part < 6 ? in : silence(44100)));
            EXPECT_TRUE(part < 2 || (part < 6 ? now < last * 1.01 : now < std::max(last, 1e-20)))
                << turn << ": " << now / last;
            last = now;
        }
    }
}

}  // namespace
}  // namespace tessel8::testing
