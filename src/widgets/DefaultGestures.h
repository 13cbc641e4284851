#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "toolkit/CControl.h"

namespace tessel8 {

/// Asks for the default value as `kDefaultGesture` does and leaves linked taps alone.
constexpr uint32_t kUnlinkedDefaultGesture = kDefaultGesture | mouse::kAlt;

inline bool isAnyDefaultGesture(uint32_t buttons) {
    return buttons == kDefaultGesture || buttons == kUnlinkedDefaultGesture;
}

/// Default values that take turns.
class DefaultList {
  public:
    /// Place 0 to 4. The place set last becomes the end of the list.
    void set(float value, uint8_t place) {
        if (place < values.size()) {
            values[place] = value;
        }
        last = place;
    }
    /// Goes one on, from the end to place 0, and gives the value there. A new list stands at its
    /// place 0, so that place 1 comes first.
    float next() {
        current = current < last ? uint8_t(current + 1) : uint8_t(0);
        return values[std::min<size_t>(current, values.size() - 1)];
    }

  private:
    std::array<float, 5> values{};
    uint8_t last = 0, current = 0;
};

}  // namespace tessel8
