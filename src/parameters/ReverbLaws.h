#pragma once

#include <cmath>

namespace tessel8 {

/// The reverb's decay and damping coefficients.
struct ReverbDecay {
    float decay;
    float decayA;
    float decayB;
    float damp;
};

/// From a damping of 0 to 1: h = 0.5^(0.01 * 100^(1 - d)) is the decay per turn.
inline ReverbDecay reverbDecayLaw(float damping, bool plate) {
    const double d = double(damping);
    const double h = std::pow(0.5, 0.01 * std::pow(100.0, 1.0 - d));
    if (plate) {
        return {float(h), float(h), float(std::sqrt(std::sqrt(h))), float(0.4 * d + 0.4)};
    }
    const double decay = h * std::sqrt(0.56);
    return {float(decay), float(0.7 * decay), float(0.3 * decay), float(0.52 * d + 0.2)};
}

}  // namespace tessel8
