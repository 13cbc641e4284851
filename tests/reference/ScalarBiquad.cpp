#include "reference/ScalarBiquad.h"

namespace tessel8::reference {

Coefficients lowPass(float W, float Q) {
    const float w2 = W * W;
    const float u = W / Q;
    const float D = 1.0f + w2 + u;
    const float b0 = w2 / D;
    return {b0, 2.0f * b0, b0, 2.0f * (w2 - 1.0f) / D, (1.0f + w2 - u) / D};
}

Coefficients bandPass(float W, float Q, float g) {
    const float V = 1.0f / W;
    const float v2 = V * V;
    const float u = V / Q;
    const float D = 1.0f + v2 + u;
    const float b0 = g * u / D;
    return {b0, 0.0f, -b0, 2.0f * (1.0f - v2) / D, (1.0f + v2 - u) / D};
}

Coefficients highPass(float W, float Q) {
    const float V = 1.0f / W;
    const float v2 = V * V;
    const float u = V / Q;
    const float D = 1.0f + v2 + u;
    const float b0 = v2 / D;
    return {b0, -2.0f * b0, b0, 2.0f * (1.0f - v2) / D, (1.0f + v2 - u) / D};
}

namespace {

Coefficients peakCut(float W, float Q, float g) {
    const float w2 = W * W;
    const float u = W / Q;
    const float D = 1.0f + w2 + g * u;
    const float a1 = 2.0f * (w2 - 1.0f) / D;
    return {(1.0f + w2 + u) / D, a1, (1.0f + w2 - u) / D, a1, (1.0f + w2 - g * u) / D};
}

Coefficients peakBoost(float W, float Q, float g) {
    const float w2 = W * W;
    const float u = W / Q;
    const float D = 1.0f + w2 + u;
    const float a1 = 2.0f * (w2 - 1.0f) / D;
    return {(1.0f + w2 + g * u) / D, a1, (1.0f + w2 - g * u) / D, a1, (1.0f + w2 - u) / D};
}

Coefficients lowShelfBoost(float W, float Q, float g, float r) {
    const float w2 = W * W;
    const float u = W / Q;
    const float n = 1.0f + g * w2;
    const float D = 1.0f + w2 + u;
    return {(n + r * W) / D, 2.0f * (n - 2.0f) / D, (n - r * W) / D, 2.0f * (w2 - 1.0f) / D,
            (1.0f + w2 - u) / D};
}

Coefficients lowShelfCut(float W, float Q, float g, float r) {
    const float w2 = W * W;
    const float u = W / Q;
    const float n = 1.0f + g * w2;
    const float D = n + r * W;
    return {(1.0f + w2 + u) / D, 2.0f * (w2 - 1.0f) / D, (1.0f + w2 - u) / D, 2.0f * (n - 2.0f) / D,
            (n - r * W) / D};
}

Coefficients highShelfBoost(float W, float Q, float g, float r) {
    const float V = 1.0f / W;
    const float v2 = V * V;
    const float u = V / Q;
    const float p = 1.0f + g * v2;
    const float D = 1.0f + v2 + u;
    return {(p + r * V) / D, 2.0f * (2.0f - p) / D, (p - r * V) / D, 2.0f * (1.0f - v2) / D,
            (1.0f + v2 - u) / D};
}

Coefficients highShelfCut(float W, float Q, float g, float r) {
    const float V = 1.0f / W;
    const float v2 = V * V;
    const float u = V / Q;
    const float p = 1.0f + g * v2;
    const float D = p + r * V;
    return {(1.0f + v2 + u) / D, 2.0f * (1.0f - v2) / D, (1.0f + v2 - u) / D, 2.0f * (2.0f - p) / D,
            (p - r * V) / D};
}

}  // namespace

Coefficients tapFilter(TapFilterKind kind, float W, float Q, float g, float r) {
    switch (kind) {
        case TapFilterKind::LowPass:
            return lowPass(W, Q);
        case TapFilterKind::BandPass:
            return bandPass(W, Q, g);
        case TapFilterKind::HighPass:
            return highPass(W, Q);
        case TapFilterKind::PeakCut:
            return peakCut(W, Q, g);
        case TapFilterKind::PeakBoost:
            return peakBoost(W, Q, g);
        case TapFilterKind::LowShelfBoost:
            return lowShelfBoost(W, Q, g, r);
        case TapFilterKind::LowShelfCut:
            return lowShelfCut(W, Q, g, r);
        case TapFilterKind::HighShelfBoost:
            return highShelfBoost(W, Q, g, r);
        case TapFilterKind::HighShelfCut:
            return highShelfCut(W, Q, g, r);
    }
    return {1.0f, 0.0f, 0.0f, 0.0f, 0.0f};
}

}  // namespace tessel8::reference
