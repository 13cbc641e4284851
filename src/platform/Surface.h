#pragma once

#include <algorithm>
#include <cstdint>

namespace tessel8 {

/// A rectangle in whole pixels; right and bottom lie outside.
struct PixelRect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;

    bool isEmpty() const { return right <= left || bottom <= top; }
    int32_t width() const { return right - left; }
    int32_t height() const { return bottom - top; }
    bool contains(int32_t x, int32_t y) const {
        return x >= left && x < right && y >= top && y < bottom;
    }
    PixelRect intersected(const PixelRect& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    /// The smallest rectangle around both; an empty one adds nothing.
    PixelRect united(const PixelRect& other) const {
        if (isEmpty()) {
            return other;
        }
        if (other.isEmpty()) {
            return *this;
        }
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
};

/// Pixels to draw on, 0x00RRGGBB each, rows from the top without gaps. Not owned.
struct Surface {
    uint32_t* pixels = nullptr;
    int32_t width = 0, height = 0;

    PixelRect bounds() const { return {0, 0, width, height}; }
    uint32_t* row(int32_t y) const { return pixels + int64_t(y) * width; }
};

}  // namespace tessel8
