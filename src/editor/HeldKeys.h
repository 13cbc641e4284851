#pragma once

#include <cstdint>

namespace tessel8 {

/// A group of keys of which one may be held: when it is due to repeat, by the clock. All times are
/// ticks in milliseconds.
struct HeldKey {
    bool held = false;
    bool first = false;  ///< no repeat has come yet
    uint32_t stamp = 0;  ///< of the press or the last repeat

    void press(uint32_t now) {
        held = first = true;
        stamp = now;
    }
    void release() { *this = {}; }
    /// True if a repeat is due, which then counts as done.
    bool repeat(uint32_t now, uint32_t firstMs, uint32_t nextMs) {
        if (!held || now - stamp <= (first ? firstMs : nextMs)) {
            return false;
        }
        first = false;
        stamp = now;
        return true;
    }
};

struct HeldKeys {
    HeldKey note;
    HeldKey tempo;
    uint32_t tempoPress = 0;  ///< press or release of a tempo key, which speeds the repeats up
    HeldKey delay;
    int32_t delayTap = 0;
    bool delayUp = false;
};

}  // namespace tessel8
