#pragma once

// Second-order filters: y = b0 x + b1 x1 + b2 x2 - a1 y1 - a2 y2. W is the warped frequency,
// V = 1 / W; Q, the gain g and r = sqrt(2 g) are plain ratios.

#include "engine/Engine.h"

namespace tessel8::reference {

struct Coefficients {
    float b0, b1, b2, a1, a2;
};

Coefficients lowPass(float W, float Q);
Coefficients bandPass(float W, float Q, float g);
Coefficients highPass(float W, float Q);
/// The row of a tap filter's kind.
Coefficients tapFilter(TapFilterKind kind, float W, float Q, float g, float r);

/// Direct form I, one channel.
struct ScalarBiquad {
    float x1 = 0.0f, x2 = 0.0f, y1 = 0.0f, y2 = 0.0f;

    float run(const Coefficients& c, float x) {
        float y = c.b2 * x2 + (c.b0 * x + c.b1 * x1);
        y = y - c.a1 * y1;
        y = y - c.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        return y;
    }
};

}  // namespace tessel8::reference
