// The filters' responses against analogue prototypes under the bilinear transform.

#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

/// Coefficients of 1, s and s squared; the filter's frequency is s = i.
using Polynomial = std::array<double, 3>;
enum Shape { kLow, kBand, kHigh, kPeak, kLowBoost, kLowCut, kHighBoost, kHighCut };

double ratio(double db) {
    return std::pow(10.0, db / 20.0);
}

struct Filter {
    Polynomial top, bottom;

    /// The prototype for values of resonance (over a span in dB) and gain from 0 to 1.
    Filter(Shape shape, double resonance, double span, double gain) {
        const double q = ratio(span * resonance - 3.0);
        const bool cut = shape == kLowCut || shape == kHighCut || (shape == kPeak && gain < 0.5);
        const double g = ratio((cut ? -1.0 : 1.0) * (36.0 * gain - 18.0));
        top = {1.0, g / q, 1.0};
        bottom = {1.0, 1.0 / q, 1.0};
        if (shape > kPeak) {
            const bool low = shape == kLowBoost || shape == kLowCut;
            top = {low ? g : 1.0, std::sqrt(2.0 * g), low ? 1.0 : g};
        } else if (shape < kPeak) {
            top = {};
            top[shape] = shape == kBand ? g / q : 1.0;
        }
        if (cut) {
            std::swap(top, bottom);
        }
    }

    /// Compares the response to one sample of level 1 at six frequencies around the filter's.
    ///
    /// The bound: each coefficient carries up to six roundings relative to a full scale of 4, and
    /// each output sample six roundings of at most four times itself, which add up like noise
    /// (four sigma). Both act through the poles: divided by the bottom's value there.
    void expectIn(const std::vector<float>& got, size_t first, double hz, double rate) const {
        const double w = std::tan(kPi * hz / rate);
        const auto mapped = [=](const Polynomial& p) {
            const double a = p[0] * w * w, b = p[1] * w, c = p[2];
            return Polynomial{a + b + c, 2.0 * (a - c), a - b + c};
        };
        const Polynomial t = mapped(top), b = mapped(bottom);
        for (const double f : {0.05 * hz, 0.5 * hz, 0.9 * hz, hz, 1.1 * hz, 1.35 * hz}) {
            const auto z = std::polar(1.0, -2.0 * kPi * f / rate);
            const auto at = [&](const Polynomial& p) { return (p[0] + (p[1] + p[2] * z) * z); };
            const double error = std::abs(spectrum(got, f, rate, first) - at(t) / at(b));
            const double full = std::max({std::fabs(t[0]), std::fabs(t[1]) / 2, std::fabs(t[2])});
            EXPECT_LE(error,
                      24.0 * kUnit / std::abs(at(b)) *
                          (full + std::abs(at(t) / at(b)) * b[0] + std::sqrt(energy(got)) * b[0]))
                << f << " Hz";
        }
    }
};

struct Setting {
    Shape shape;
    float resonance, gain;
};
constexpr float kButterworth = -0.0103f / 27.0f;  // Q = 0.7071
// clang-format off
constexpr Setting kSettings[] = {
    {kLow, 0.2f, 0.5f}, {kLow, 0.8f, 0.1f}, {kBand, 0.8f, 0.3f}, {kHigh, 0.8f, 0.9f},
    {kPeak, 0.7f, 0.0f}, {kPeak, 0.1f, 0.75f}, {kLowBoost, 0.6f, 0.2f}, {kLowCut, 0.1f, 0.8f},
    {kLowCut, 0.6f, 0.2f}, {kHighBoost, 0.1f, 0.8f}, {kHighCut, 0.6f, 0.2f}, {kPeak, 0.4f, 0.5f},
    {kLowBoost, kButterworth, 0.5f}};
// clang-format on

/// The type comes from another one and last, so that it works out everything anew.
void setFilter(Rig& rig, const Setting& s, double hz) {
    rig.set(TypeFT, s.shape == kHighCut ? 0.0f : 1.0f);
    rig.set(ResoFT, s.resonance);
    rig.set(GainFT, s.gain);
    rig.set(TypeFT, float(s.shape) / 7.0f);
    rig.set(FreqFT, frequencyValue(hz));
}

TEST(TapFilter, HasTheResponseOfItsAnaloguePrototype) {
    for (const float rate : {44100.0f, 192000.0f}) {
        Bench rig(100, rate, ActFltT, 1.0f);
        for (const double hz : {300.0, 4000.0, rate < 50000.0f ? 16000.0 : 8000.0}) {
            for (const Setting& s : kSettings) {
                SCOPED_TRACE(::testing::Message() << rate << " setting " << &s - kSettings);
                // The tables' steps are half a hertz and truncate; the smoothed frequency stops
                // up to 0.24 Hz short of its target, from either side.
                setFilter(rig, s, hz + 0.25);
                rig.play(silence(size_t(rate) / 10));
                // 20 time constants of the narrowest, 40 ms each.
                const auto got = rig.left(impulse(size_t(rate) * 8 / 10));
                const double span = s.shape == kBand || s.shape == kPeak ? 43.0 : 27.0;
                Filter(s.shape, double(s.resonance), span, double(s.gain))
                    .expectIn(got, 100, hz, double(rate));
                if (s.shape == kPeak && s.gain == 0.5f) {
                    EXPECT_TRUE(onlyEchoes({{100, 1.0}}, got, 0.0));  // exactly, by equal terms
                }
            }
        }
    }
}

TEST(TapFilter, BeginsFromSilenceWhenSwitchedOnOrGivenAnotherType) {
    for (const int change : {0, 1, 2}) {  // none, the type, the switch
        Bench rig(100, kLowestRate, ActFltT, 1.0f);
        setFilter(rig, {kLow, 0.9f, 0.5f}, 500.0);
        rig.play(noise(10000, 5));
        rig.engine.clearRings();
        rig.set(TypeFT, change == 1 ? 1.0f / 7.0f : 0.05f);
        if (change == 2) {
            rig.with(0, ActFltT, 0.0f, ActFltT, 1.0f);
        }
        const float rest = peak(rig.left(silence(1000)));
        EXPECT_TRUE(change == 0 ? rest > 0.01f : rest == 0.0f) << change << ": " << rest;
    }
}

constexpr size_t kTurn = 20000;

/// What the master feedback's filter makes of one sample: the second echo of a tap that feeds
/// everything back once.
std::vector<float> feedbackResponse(int type, float resonance, double hz, float level, float rate) {
    Bench rig(kTurn, rate, SelectFB, 0.125f, GainFB, 1.0f, ActiveFB, 1.0f, TypeFFB,
              float(type) / 5.0f, ResoFFB, resonance, FreqFFB, frequencyValue(hz + 0.25), ActFltFB,
              1.0f);
    rig.play(silence(kTurn));
    rig.play(impulse(2 * kTurn, level, -level));
    return rig.left(silence(kTurn));
}

TEST(FeedbackBiquad, HasTheResponseOfItsAnaloguePrototype) {
    for (const double rate : {44100.0, 192000.0}) {
        for (const Shape shape : {kLow, kBand, kHigh}) {
            SCOPED_TRACE(shape);
            Filter(shape, 0.8, shape == kBand ? 27.0 : 15.0, 0.5)
                .expectIn(feedbackResponse(3 + shape, 0.8f, 3000.0, 1.0f, float(rate)), 0, 3000.0,
                          rate);
        }
    }
}

TEST(FeedbackStateVariable, RunsFivePassesASampleAtEveryRate) {
    for (const auto& [rate, steps] : {std::pair{44100.0, 4.0}, {96000.0, 3.0}, {192000.0, 2.0}}) {
        for (const auto& [hz, level] : {std::pair{700.0, 4.0}, {12000.0, 1.0}}) {
            for (const int type : {0, 1, 2}) {
                SCOPED_TRACE(::testing::Message() << rate << " " << hz << " type " << type);
                const auto got = feedbackResponse(type, 0.5f, hz, float(level), float(rate));
                // 30 roundings a sample, relative to what the sample leaves; four sigma.
                const double bound =
                    4.0 * std::sqrt(30.0) * kUnit * (level + std::sqrt(energy(got)));
                const double tuning = 2.0 * std::sin(kPi * hz / (steps * rate));
                const double m = std::min(2.0 / tuning - tuning / 2.0, 2.0);
                const double q = m * (1.7488 * (1.0 - std::pow(0.5, 0.25)) + 0.2512) * m / 4.0;
                double low = 0.0, high = 0.0, band = 0.0;
                for (size_t i = 0; i < kTurn; ++i) {
                    double sum = 0.0;
                    for (const double weight : {1.0, 1.0, 2.0, 4.0, 8.0}) {
                        const double in = i == 0 ? level : 0.0;
                        const double before = band;
                        low += tuning * band;
                        high = in - q * band - low;
                        if (weight < 8.0) {
                            band += tuning * high - before * before * before / 6.0;
                        }
                        sum += weight / 16.0 * (type == 0 ? low : type == 1 ? band : high);
                    }
                    ASSERT_NEAR(sum, double(got[i]), bound) << "at " << i;
                }
            }
        }
    }
}

}  // namespace
}  // namespace tessel8::testing
