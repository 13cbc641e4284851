#include "toolkit/COffscreenContext.h"

#include <utility>

namespace tessel8 {

// Moving the vector leaves its pixels where they are, so the surface made from it stays good.
COffscreenContext::COffscreenContext(std::vector<uint32_t> memory, int32_t width, int32_t height)
    : CDrawContext({memory.data(), width, height}), pixels(std::move(memory)) {}

Shared<COffscreenContext> COffscreenContext::create(CFrame* frame, double width, double height) {
    const int32_t columns = toPixel(width), rows = toPixel(height);
    if (!frame || columns <= 0 || rows <= 0) {
        return {};
    }
    return Shared<COffscreenContext>::adopt(
        new COffscreenContext(std::vector<uint32_t>(size_t(columns) * rows), columns, rows));
}

void COffscreenContext::copyFrom(CDrawContext& destination, const CRect& rect,
                                 const CPoint& sourceOffset) const {
    destination.drawPixels(rect, sourceOffset, surface.width, surface.height, 1.0f,
                           [this](int32_t x, int32_t y) { return surface.row(y)[x]; });
}

}  // namespace tessel8
