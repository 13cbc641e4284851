#include "toolkit/CDrawContext.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tessel8 {

PixelRect CDrawContext::toSurface(const CRect& rect) const {
    return CRect{rect.left + state.offset.x, rect.top + state.offset.y, rect.right + state.offset.x,
                 rect.bottom + state.offset.y}
        .toPixels();
}

void CDrawContext::fill(const PixelRect& area, const CColor& colour) {
    const PixelRect drawn = area.intersected(state.clip);
    if (drawn.isEmpty()) {
        return;
    }
    for (int32_t y = drawn.top; y < drawn.bottom; ++y) {
        std::fill_n(surface.row(y) + drawn.left, drawn.width(), colour.toPixel());
    }
}

void CDrawContext::lineTo(const CPoint& p) {
    const int32_t x1 = toPixel(state.pen.x + state.offset.x);
    const int32_t y1 = toPixel(state.pen.y + state.offset.y) - 1;
    const int32_t dx = toPixel(p.x + state.offset.x) - x1;
    const int32_t dy = toPixel(p.y + state.offset.y) - 1 - y1;
    const int32_t steps = std::max(std::abs(dx), std::abs(dy));
    for (int32_t i = 0; i <= steps; ++i) {
        const double way = steps > 0 ? double(i) / steps : 0.0;
        const int32_t x = x1 + toPixel(dx * way), y = y1 + toPixel(dy * way);
        fill({x, y, x + state.lineWidth, y + state.lineWidth}, state.frameColour);
    }
    state.pen = p;
}

void CDrawContext::drawRect(const CRect& rect, RectStyle style) {
    const PixelRect r = toSurface(rect);
    if (style != RectStyle::Stroked) {
        fill(r, state.fillColour);
    }
    if (style != RectStyle::Filled) {
        const int32_t width = state.lineWidth;
        fill({r.left, r.top, r.right, r.top + width}, state.frameColour);
        fill({r.left, r.bottom - width, r.right, r.bottom}, state.frameColour);
        fill({r.left, r.top, r.left + width, r.bottom}, state.frameColour);
        fill({r.right - width, r.top, r.right, r.bottom}, state.frameColour);
    }
}

void CDrawContext::drawPoint(const CPoint& p, const CColor& colour) {
    const State before = state;
    state.lineWidth = 1;
    state.frameColour = colour;
    moveTo(p);
    lineTo({p.x + 1.0, p.y});
    state = before;
}

uint32_t CDrawContext::blend(uint32_t below, uint32_t above, float alpha) {
    uint32_t result = 0;
    for (int32_t shift = 0; shift < 24; shift += 8) {
        const float from = float(below >> shift & 255), to = float(above >> shift & 255);
        result |= uint32_t(from + (to - from) * std::max(alpha, 0.0f) + 0.5f) << shift;
    }
    return result;
}

}  // namespace tessel8
