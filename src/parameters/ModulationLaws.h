#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "parameters/Conversions.h"

namespace tessel8 {

/// LFO cycles per second in note mode: one cycle lasts numerator / denominator whole notes.
inline constexpr std::array<float, 5> kLfoNumerators{1, 2, 3, 4, 8};
inline constexpr std::array<float, 14> kLfoDenominators{1,  2,  3,  4,  6,  8,  12,
                                                        16, 24, 32, 48, 64, 96, 96};
constexpr int32_t kLfoDenominatorSteps = 13;  ///< `DenomMod` reaches all but the last entry

/// Where in those tables `NumMod` and `DenomMod` stand; within the tables for any value.
inline size_t lfoNumeratorIndex(float v) {
    const auto last = int32_t(kLfoNumerators.size()) - 1;
    return size_t(std::clamp(truncated(std::floor(float(last) * v + 0.5f)), 0, last));
}
inline size_t lfoDenominatorIndex(float v) {
    const float step = std::floor(float(kLfoDenominatorSteps - 1) * v + 0.5f);
    return size_t(std::clamp(truncated(step), 0, int32_t(kLfoDenominators.size()) - 1));
}

constexpr float kLowestLfoHz = 0.01f;
constexpr float kHighestNoteLfoHz = 15.0f;

/// 0.01 to 15 Hz.
inline float lfoFrequencyLaw(float v) {
    const float hz = float(std::pow(16.0, double(v)) - 1.0);
    return hz > kLowestLfoHz ? hz : kLowestLfoHz;
}

inline float lfoFrequencyOfNote(float bpm, float numerator, float denominator) {
    const float hz = bpm * denominator / (numerator * 240.0f);
    if (!(hz > kLowestLfoHz)) {
        return kLowestLfoHz;
    }
    return hz < kHighestNoteLfoHz ? hz : kHighestNoteLfoHz;
}

/// The normalised value that `lfoFrequencyLaw` turns into `hz`.
inline float lfoFrequencyValue(float hz) {
    return float(std::log(double(hz) + 1.0) / std::log(16.0));
}

/// Time of the envelope follower in seconds, 0.001 to 1.
inline double followerTimeLaw(float v) {
    const double root = 0.968 * double(v) + 0.032;
    return root * root;
}

/// Per-sample coefficient of a follower of `seconds`: sqrt(2)^(1 / (rate * seconds)) - 1, worked
/// out in double, for it is the difference of two nearly equal numbers.
inline float followerCoefficient(double seconds, double rate) {
    return float(std::pow(std::sqrt(2.0), 1.0 / (rate * seconds)) - 1.0);
}

}  // namespace tessel8
