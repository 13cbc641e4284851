#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Surface.h"

namespace tessel8 {

/// The parts of a window that wait to be painted. A few rectangles, so that two meters at opposite
/// corners don't make the whole window wait.
class Damage {
  public:
    void add(PixelRect part) {
        if (part.isEmpty()) {
            return;
        }
        for (size_t i = 0; i < parts.size();) {
            const PixelRect both = parts[i].united(part);
            if (area(both) <= area(parts[i]) + area(part) || parts.size() == kMost) {
                part = both;
                parts.erase(parts.begin() + std::ptrdiff_t(i));
                i = 0;
            } else {
                ++i;
            }
        }
        parts.push_back(part);
    }

    bool isEmpty() const { return parts.empty(); }
    /// Hands out the parts; afterwards there are none.
    std::vector<PixelRect> take() { return std::exchange(parts, {}); }

  private:
    static constexpr size_t kMost = 8;

    static int64_t area(const PixelRect& r) { return int64_t(r.width()) * r.height(); }

    std::vector<PixelRect> parts;
};

}  // namespace tessel8
