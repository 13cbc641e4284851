#pragma once

#include <cstdint>

namespace tessel8 {

/// Truncation towards zero of any float: a value outside the range of int32 gives its nearest
/// end, a NaN gives 0. Hosts and files may hand in anything.
inline int32_t truncated(double value) {
    if (!(value > -2147483648.0)) {
        return value == value ? INT32_MIN : 0;
    }
    return value < 2147483647.0 ? int32_t(value) : INT32_MAX;
}

/// Largest absolute value that a law hands to the engine; far above any musical use, and far
/// enough below infinity for the products of a sample.
constexpr float kEngineLimit = 1.0e6f;

/// What the engine gets of a value: a NaN becomes 0, the infinite and the huge are cut.
inline float finite(float value) {
    if (!(value > -kEngineLimit)) {
        return value == value ? -kEngineLimit : 0.0f;
    }
    return value < kEngineLimit ? value : kEngineLimit;
}

/// A switch: 0 stays off, anything else is on.
inline float switched(float value) {
    return value == 0.0f ? 0.0f : 1.0f;
}

/// Step number of a value, `steps` of them at k / (steps - 1); may lie outside for values
/// outside 0 to 1.
inline int32_t nearestStep(float value, int32_t steps) {
    return truncated(value * float(steps - 1) + 0.5f);
}

}  // namespace tessel8
