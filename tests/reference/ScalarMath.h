#pragma once

// The few operations that all parts of the scalar reference share, each in its one order.

#include <cstddef>
#include <cstdint>

#include "engine/Engine.h"

namespace tessel8::reference {

inline float smaller(float a, float b) {
    return a < b ? a : b;
}
inline float larger(float a, float b) {
    return a > b ? a : b;
}

/// Held within `low` and `high`: the lower end first, then the upper.
inline float held(float x, float low, float high) {
    return smaller(larger(x, low), high);
}

/// One step of a one-pole smoother.
inline float smoothed(float y, float target, const Smoothing& pair) {
    return pair.take * target + pair.keep * y;
}

/// Entry of a lookup table at a truncated index that stays inside the table.
inline float lookUp(const AlignedBuffer& table, float position) {
    const auto last = float(table.size() - 1);
    return table[size_t(held(position, 0.0f, last))];
}

/// Sum over eight: the groups of four lane by lane, then (0 + 2) + (1 + 3).
inline float folded(const TapBlock& v) {
    const float lane0 = v[0] + v[4];
    const float lane1 = v[1] + v[5];
    const float lane2 = v[2] + v[6];
    const float lane3 = v[3] + v[7];
    return (lane0 + lane2) + (lane1 + lane3);
}

}  // namespace tessel8::reference
