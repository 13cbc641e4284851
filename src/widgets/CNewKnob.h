#pragma once

#include "toolkit/CKnob.h"
#include "widgets/Hovering.h"

namespace tessel8 {

/// The base of bars and sliders; draws nothing of its own.
class CNewKnob : public Hovering<CKnob> {
  public:
    using Hovering::Hovering;
};

/// A knob with a strip of images that takes the value of the place pointed at. With Shift the
/// value moves from where it stood by the way that is left to there over `zoomFactor`.
class CPointedKnob : public CNewKnob {
  public:
    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;

  protected:
    /// `imageHeight` in pixels.
    CPointedKnob(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
                 int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset);

    /// The value that a point stands for, 0 to 1 within the control.
    virtual double valueAt(const CPoint& where) const = 0;
    /// Takes a value that may lie outside of the range.
    virtual MouseResult take(float pointed, const CPoint& where) = 0;

  private:
    int32_t images;
    int32_t heightOfOne;

    // The drag that is under way.
    CPoint lastPoint;
    float entryValue = 0.0f;
    uint32_t oldButtons = 0;
};

}  // namespace tessel8
