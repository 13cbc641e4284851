#pragma once

#include <cmath>

namespace tessel8 {

/// Linear gain of a normalised gain: 4 v^2, unity at 0.5 and 12 dB at 1.
inline float gainLaw(float v) {
    return 4.0f * v * v;
}

/// Mid and side level of a stereo width.
struct Width {
    float mid = 1.0f;
    float side = 0.0f;
};

/// Reversed stereo at 0.125, mono at 0.5, plain stereo at 0.875; towards the ends the mid falls
/// to -6 dB and the side rises to +6 dB. Values above 1 keep `last`.
inline Width widthLaw(float v, Width last) {
    if (v == 0.5f) {
        return {1.0f, 0.0f};
    }
    if (v <= 0.125f) {
        return {3.990504f * v + 0.501187f, 7.962096f * v - 1.995262f};
    }
    if (v < 0.875f) {
        return {1.0f, 2.666667f * v - 1.333333f};
    }
    if (v <= 1.0f) {
        return {-3.990504f * v + 4.491691f, 7.962096f * v - 5.966834f};
    }
    return last;
}

/// A side level in percent as texts print it: the law's constants miss the round figures by a hair.
inline float shownWidth(float side) {
    const float x = 100.0f * side;
    const auto within = [x](float low, float high) { return x > low && x < high; };
    return within(-0.5f, 0.5f)       ? 0.0f
           : within(99.5f, 100.5f)   ? 100.0f
           : within(-100.5f, -99.5f) ? -100.0f
           : x > 199.5f              ? 200.0f
           : x < -199.5f             ? -200.0f
                                     : x;
}

/// Linear gains of a balance; 0.5 each in the middle.
struct PanGains {
    float left;
    float right;
};

inline PanGains panLaw(float v) {
    return v < 0.5f ? PanGains{0.5f, 0.5f * (2.0f * v)} : PanGains{0.5f * (2.0f - 2.0f * v), 0.5f};
}

/// Ceiling of a saturator, a linear level: 100 at 0, 1 at 0.5, 0.1 at 1.
inline float ceilingLaw(float v) {
    return float(v > 0.5f ? std::pow(10.0, 1.0 - 2.0 * double(v))
                          : std::pow(10.0, 2.0 - 4.0 * double(v)));
}

}  // namespace tessel8
