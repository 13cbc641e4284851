#pragma once

#include <cmath>
#include <cstdint>

#include "parameters/Conversions.h"

namespace tessel8 {

// Filter values in engine units. Levels are laws in decibels: a resonance or gain from 0 to 1
// spans `range` dB.

inline float decibels(double db) {
    return float(std::pow(10.0, db / 20.0));
}

/// What the steps of `TypeFT` are called, in their order.
inline constexpr const char* kTapFilterNames[] = {"LPF",  "BPF",  "HPF",  "PEAK",
                                                  "LSHB", "LSHC", "HSHB", "HSHC"};

/// Frequency in Hz: 20 at 0, 632 at 0.5, 20000 at 1.
inline double exactFrequency(float v) {
    return 20.0 * std::exp2(double(v) * 9.965784);
}
inline float frequencyLaw(float v) {
    return float(exactFrequency(v));
}
/// In whole Hz, as texts print it.
inline int32_t shownFrequency(float v) {
    return truncated(exactFrequency(v) + 0.5);
}

/// Q as a plain ratio from -3 dB up.
inline float qLaw(float resonance, double range) {
    return decibels(range * double(resonance) - 3.0);
}
constexpr double kSoftQ = 15.0;
constexpr double kNormalQ = 27.0;
constexpr double kSharpQ = 43.0;

/// Filter gain from -18 to +18 dB and its mirror image.
inline float gainUpLaw(float g) {
    return decibels(36.0 * double(g) - 18.0);
}
inline float gainDownLaw(float g) {
    return decibels(18.0 - 36.0 * double(g));
}
/// Gain of a peak, never below 1: whether it is a cut or a boost stands in the filter's kind.
inline float peakGainLaw(float g) {
    const double offset = 2.0 * double(g) - 1.0;
    return decibels((g >= 0.5f ? offset : -offset) * 18.0);
}

/// Damping of the state-variable filter.
inline float svfResonanceLaw(float r) {
    return float(1.7488 * (1.0 - std::pow(double(r), 0.25)) + 0.2512);
}

}  // namespace tessel8
