#pragma once

#include "toolkit/CControl.h"

namespace tessel8 {

/// Shows one image of a strip by its value and hears nothing of the mouse.
class CMovieBitmap : public CControl {
  public:
    /// `imageHeight` in pixels.
    CMovieBitmap(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
                 double imageHeight, CBitmap* strip, const CPoint& bitmapOffset = {});
    bool isTypeOf(std::string_view name) const override;

    void draw(CDrawContext& context) override;

  private:
    int32_t images;
    double heightOfOne;
};

}  // namespace tessel8
