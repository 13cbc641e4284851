#pragma once

#include "widgets/Hovering.h"

namespace tessel8 {

/// An area without a picture over a digit display. A drag there accelerates: the way of one move
/// counts with the power 1.4, and up and down count double.
class CInvisableKnob : public Hovering<CControl> {
  public:
    CInvisableKnob(const CRect& rect, CControlListener* hearer, int32_t identity);
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override { return new CInvisableKnob(*this); }

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;
    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;

    /// A notch of the wheel is this times `wheelInc`.
    virtual void setWheelScale(float scale) { wheelScale = scale; }

  private:
    float coefficientFor(float pixels) const { return (getMax() - getMin()) / pixels; }

    float wheelScale = 0.01f;

    // The drag that is under way.
    CPoint firstPoint;
    CPoint trackingPoint;     ///< the pointer at the last move
    CPoint acceleratedPoint;  ///< where the acceleration has carried it
    float entryValue = 0.0f;
    float coefficient = 0.0f;  ///< value to a pixel of the accelerated way
    uint32_t oldButtons = 0;
};

}  // namespace tessel8
