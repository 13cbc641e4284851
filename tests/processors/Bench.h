#pragma once

#include <array>
#include <complex>
#include <functional>
#include <numbers>
#include <numeric>

#include "support/Rig.h"

namespace tessel8::testing {

constexpr double kPi = std::numbers::pi;
/// Largest relative error of one rounding to 24 bits.
constexpr double kUnit = 1.0 / 16777216.0;

using enum Family;

/// A rig whose taps pass a sample unchanged, bit by bit: all gains are powers of two and stand at
/// their targets, and the channels do not leak. `samples` is the first tap's delay; families and
/// their values follow in turns.
struct Bench : Rig {
    template <typename... Values>
    explicit Bench(int32_t samples, float rate, Values... values) : Rig(rate) {
        delay(0, samples);
        with(0, values...);
        engine.widthDirect.fill(2.0f);
        engine.widthCross.fill(0.0f);
        engine.mixSmooth = engine.mixTarget;
        engine.tapGainSmooth = engine.tapGainTarget;
        engine.panGainSmoothL = engine.panGainTargetL;
        engine.panGainSmoothR = engine.panGainTargetR;
        engine.endFades();
    }
    void with(int) {}
    template <typename... Values>
    void with(int tap, Family family, float value, Values... rest) {
        set(family, value, family >= DelayT && family <= LinkTap ? tap : 0);
        with(tap, rest...);
    }
    // Not inline: the compiler would take the vectors' memory for one of them.
    __attribute__((noinline)) std::vector<float> left(const Stereo& input) {
        const Stereo out = play(input);
        return out.left;
    }
};

inline float frequencyValue(double hz) {
    return float(std::log2(hz / 20.0) / 9.965784);
}

/// Largest level; a NaN stays.
inline float peak(const std::vector<float>& signal) {
    float most = 0.0f;
    for (const float x : signal) {
        most = std::fabs(x) <= most ? most : std::fabs(x);
    }
    return most;
}

inline double energy(const std::vector<float>& signal) {
    return std::inner_product(signal.begin(), signal.end(), signal.begin(), 0.0, std::plus<>(),
                              [](double x, double y) { return x * y; });
}

/// Spectrum of the samples from `first` on.
inline std::complex<double> spectrum(const std::vector<float>& signal, double hz, double rate,
                                     size_t first = 0) {
    std::complex<double> sum, phase = 1.0;
    for (; first < signal.size(); ++first, phase *= std::polar(1.0, -2.0 * kPi * hz / rate)) {
        sum += double(signal[first]) * phase;
    }
    return sum;
}

}  // namespace tessel8::testing
