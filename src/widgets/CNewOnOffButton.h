#pragma once

#include "toolkit/COnOffButton.h"
#include "widgets/Hovering.h"

namespace tessel8 {

/// The panel's plain toggle.
class CNewOnOffButton : public Hovering<COnOffButton> {
  public:
    using Hovering::Hovering;
};

/// A toggle that answers the right button as well; which one it was, its listener asks the frame.
class COnOffButtonRight : public CNewOnOffButton {
  public:
    COnOffButtonRight(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* strip,
                      OnOffStyle tellingStyle)
        : CNewOnOffButton(rect, hearer, identity, strip, OnOffStyle::TellBeforeIdle),
          style(tellingStyle) {}

    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

  private:
    OnOffStyle style;
};

}  // namespace tessel8
