#pragma once

#include "toolkit/CControl.h"

namespace tessel8 {

/// A control that a drag turns. It draws nothing of its own.
///
/// In linear mode a way of 200 pixels, up or to the right, covers the whole range, with Shift
/// `zoomFactor` times as much. In circular mode, and with Alt, the value follows the pointer's
/// angle around the centre.
class CKnob : public CControl {
  public:
    CKnob(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* bitmap,
          CBitmap* handleBitmap, const CPoint& bitmapOffset = {});
    bool isTypeOf(std::string_view name) const override;

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;
    /// A notch is `wheelInc`, with Shift a tenth of it.
    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;

    void setZoomFactor(float factor) { zoomFactor = factor; }
    float getZoomFactor() const { return zoomFactor; }
    /// The value whose handle points from the centre at `where`: lowest at the lower left, rising
    /// clockwise over three quarters of a turn. The gap at the foot belongs to the nearer end.
    float valueFromPoint(const CPoint& where) const;

  protected:
    /// Begins a drag at a point.
    MouseResult beginDrag(const CPoint& where, uint32_t buttons);

  private:
    float coefficientFor(uint32_t buttons) const;

    Shared<CBitmap> handle;
    float zoomFactor = 1.5f;

    // The drag that is under way.
    CPoint firstPoint, lastPoint;
    float entryValue = 0.0f;
    float coefficient = 0.0f;  ///< value to a pixel
    uint32_t oldButtons = 0;
    bool isLinear = false;
};

}  // namespace tessel8
