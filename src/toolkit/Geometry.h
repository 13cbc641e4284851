#pragma once

#include <cmath>
#include <cstdint>

#include "platform/Surface.h"

namespace tessel8 {

/// A place in pixels of the frame, from its top left.
struct CPoint {
    double x = 0.0, y = 0.0;

    bool operator==(const CPoint&) const = default;
};

/// The whole pixel that a coordinate names.
inline int32_t toPixel(double coordinate) {
    return int32_t(std::lround(coordinate));
}

/// A rectangle in pixels. What is drawn ends before the right and bottom edges, but a click on
/// them still counts.
struct CRect {
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;

    bool operator==(const CRect&) const = default;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    CPoint topLeft() const { return {left, top}; }
    CPoint centre() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
    bool contains(const CPoint& p) const {
        return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
    }
    bool overlaps(const CRect& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    PixelRect toPixels() const {
        return {toPixel(left), toPixel(top), toPixel(right), toPixel(bottom)};
    }
};

inline CRect toRect(const PixelRect& pixels) {
    return {double(pixels.left), double(pixels.top), double(pixels.right), double(pixels.bottom)};
}

/// 8 bits each; alpha 255 is opaque.
struct CColor {
    uint8_t red = 0, green = 0, blue = 0, alpha = 255;

    bool operator==(const CColor&) const = default;
    /// As a surface holds it: 0x00RRGGBB.
    uint32_t toPixel() const { return uint32_t(red) << 16 | uint32_t(green) << 8 | blue; }
};

}  // namespace tessel8
