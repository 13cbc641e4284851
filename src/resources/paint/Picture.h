#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessel8::paint {

/// A rectangle of the panel in whole pixels from its top left; right and bottom lie outside.
struct Box {
    int32_t left = 0, top = 0, right = 0, bottom = 0;

    int32_t width() const { return right - left; }
    int32_t height() const { return bottom - top; }
    double centreX() const { return (left + right) / 2.0; }
    double centreY() const { return (top + bottom) / 2.0; }
};

/// Opaque pixels, 0x00RRGGBB each, rows from the top without gaps.
struct Picture {
    int32_t width = 0, height = 0;
    std::vector<uint32_t> pixels;

    Picture() = default;
    Picture(int32_t w, int32_t h) : width(w), height(h), pixels(size_t(w) * h) {}

    uint32_t& at(int32_t x, int32_t y) { return pixels[size_t(y) * width + x]; }
    uint32_t at(int32_t x, int32_t y) const { return pixels[size_t(y) * width + x]; }

    /// The part inside `box`; the part of `box` that lies outside is black.
    Picture crop(const Box& box) const;
    /// Copies `other` to (left, top), as far as it lies inside.
    void put(const Picture& other, int32_t left, int32_t top);
};

}  // namespace tessel8::paint
