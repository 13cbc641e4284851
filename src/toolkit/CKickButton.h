#pragma once

#include "toolkit/CControl.h"

namespace tessel8 {

/// A push button with a strip of two images. It reports at the release, if the pointer is still
/// on it, and always that it is up again.
class CKickButton : public CControl {
  public:
    /// `imageHeight` in pixels.
    CKickButton(const CRect& rect, CControlListener* hearer, int32_t identity, double imageHeight,
                CBitmap* strip, const CPoint& bitmapOffset = {});
    bool isTypeOf(std::string_view name) const override;

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;

  protected:
    /// Draws one image of the strip.
    void drawImage(CDrawContext& context, int32_t image);

  private:
    double heightOfOne;
};

}  // namespace tessel8
