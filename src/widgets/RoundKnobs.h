#pragma once

#include "toolkit/CAnimKnob.h"
#include "widgets/DefaultGestures.h"
#include "widgets/Hovering.h"

namespace tessel8 {

/// The panel's round knob: 200 pixels for the whole range, 2000 with Shift.
class CNewAnimKnob : public Hovering<CAnimKnob> {
  public:
    /// `imageHeight` in pixels.
    CNewAnimKnob(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
                 int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset = {});

    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;
    bool checkDefaultValue(uint32_t buttons) override;
};

/// A round knob whose default gesture steps through a list of values.
class CAnimKnob4 : public CNewAnimKnob {
  public:
    using CNewAnimKnob::CNewAnimKnob;

    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

    virtual void setDefaultList(float newValue, uint8_t place) { defaults.set(newValue, place); }
    virtual float nextDefault() { return defaults.next(); }

  private:
    DefaultList defaults;
};

}  // namespace tessel8
