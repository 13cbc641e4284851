#pragma once

#include <cmath>

namespace tessel8::reference {

/// Slope 1 at 0, towards +-`ceiling` for large signals.
inline float saturated(float x, float ceiling) {
    return (x * ceiling) / (ceiling + std::fabs(x));
}

}  // namespace tessel8::reference
