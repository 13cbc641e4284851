#pragma once

#include "toolkit/CKnob.h"

namespace tessel8 {

/// A knob whose positions are the images of a strip.
class CAnimKnob : public CKnob {
  public:
    /// `imageHeight` in pixels.
    CAnimKnob(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
              int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset = {});
    bool isTypeOf(std::string_view name) const override;

    void draw(CDrawContext& context) override;

  private:
    int32_t images;
    int32_t heightOfOne;
};

}  // namespace tessel8
