#pragma once

#include <algorithm>

#include "platform/Surface.h"

namespace tessel8 {

/// Fills a rectangle, inside `clip` only.
inline void fillRect(const Surface& surface, const PixelRect& clip, const PixelRect& rect,
                     uint32_t colour) {
    const PixelRect part = rect.intersected(clip).intersected(surface.bounds());
    for (int32_t y = part.top; y < part.bottom && part.left < part.right; ++y) {
        std::fill(surface.row(y) + part.left, surface.row(y) + part.right, colour);
    }
}

/// Draws a frame of one pixel along the inside of a rectangle's edge.
inline void drawFrame(const Surface& surface, const PixelRect& clip, const PixelRect& rect,
                      uint32_t colour) {
    const auto [left, top, right, bottom] = rect;
    fillRect(surface, clip, {left, top, right, top + 1}, colour);
    fillRect(surface, clip, {left, bottom - 1, right, bottom}, colour);
    fillRect(surface, clip, {left, top, left + 1, bottom}, colour);
    fillRect(surface, clip, {right - 1, top, right, bottom}, colour);
}

}  // namespace tessel8
