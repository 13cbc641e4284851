#pragma once

#include <vector>

#include "toolkit/CDrawContext.h"
#include "toolkit/Shared.h"

namespace tessel8 {

class CFrame;

/// A context with pixels of its own, to compose a picture that reaches the screen in one copy.
class COffscreenContext : public CDrawContext {
  public:
    /// Of `width` by `height` black pixels; none without a frame or with an empty size.
    static Shared<COffscreenContext> create(CFrame* frame, double width, double height);

    /// Copies what starts at `sourceOffset` into the rectangle of another context.
    void copyFrom(CDrawContext& destination, const CRect& rect,
                  const CPoint& sourceOffset = {}) const;

  private:
    COffscreenContext(std::vector<uint32_t> memory, int32_t width, int32_t height);

    std::vector<uint32_t> pixels;
};

}  // namespace tessel8
