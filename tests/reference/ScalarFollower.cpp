#include "reference/ScalarFollower.h"

#include <cmath>

#include "engine/Tables.h"
#include "reference/ScalarMath.h"

namespace tessel8::reference {

namespace {

/// Small values become exactly zero.
float flushed(float x) {
    const float up = x + 1e-5f;
    return up - 1e-5f;
}

/// One step towards `target`. In silence a level that no longer moves is at its end.
float moved(float level, float target, float coefficient) {
    const float next = flushed(level + (target - level) * coefficient);
    return target < 1e-9f && next == level ? 0.0f : next;
}

}  // namespace

void ScalarFollower::advance(const Engine& e, float left, float right) {
    const float fastCoef = e.follower.fastCoef;
    const float slowCoef = e.follower.slowCoef;
    const float a = (std::fabs(left) + std::fabs(right)) / 2.0f;
    mean = moved(mean, a, slowCoef);
    const float d = smaller(std::fabs(a - dev), 1.0f);
    dev = flushed(dev + (d - dev) * slowCoef);
    if (mean + dev > 1.0f) {
        dev = 1.0f - mean;
    }
    if (mean - dev < 0.0f) {
        dev = mean;
    }
    const float low = mean - dev;
    const float high = mean + dev;
    const float norm = 0.5f / lookUp(e.squareTable, dev * kSquareScale);
    fast = moved(fast, a, fastCoef);
    float position;
    if (dev == 0.0f) {
        position = fast > mean ? 1.0f : 0.0f;
    } else if (fast <= low) {
        position = 0.0f;
    } else if (fast >= high) {
        position = 1.0f;
    } else if (fast > mean) {
        position = 1.0f - norm * lookUp(e.squareTable, (high - fast) * kSquareScale);
    } else {
        position = norm * lookUp(e.squareTable, (fast - low) * kSquareScale);
    }
    out = (position - 0.5f) * 2.0f;
}

}  // namespace tessel8::reference
