#pragma once

// The memoryless curve of all saturators: x D / (D + |x|). It is odd, has slope 1 at 0 and
// approaches the ceiling D; below the ceiling a signal passes at unity.

#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

template <int Lanes>
TESSEL8_INLINE Pack<Lanes> saturated(const Pack<Lanes>& x, const Pack<Lanes>& ceiling) {
    return x * ceiling / (ceiling + abs(x));
}

/// Saturates the taps whose lane of `on` is 1; costs nothing where none is.
template <int Lanes>
void saturateTaps(const Engine& e, const TapBlock& on, Workspace<Lanes>& w) {
    using P = Pack<Lanes>;
    const Mask<Lanes> wet = P::load(on.v) != P::all(0.0f);
    if (!anyLane(wet)) {
        return;
    }
    const P ceiling = P::load(e.tapCeiling.v);
    for (Tile<Lanes>& signal : w.signal) {
        for (int i = 0; i < w.frames; ++i) {
            const P x = signal.at(i);
            signal.set(i, select(wet, saturated(x, ceiling), x));
        }
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
