#pragma once

#include "toolkit/CMovieBitmap.h"
#include "toolkit/CPositionSwitch.h"
#include "widgets/Hovering.h"

namespace tessel8 {

/// The panel's vertical switch.
class CNewVerticalSwitch : public Hovering<CVerticalSwitch> {
  public:
    using Hovering::Hovering;
};

/// The panel's horizontal switch.
class CNewHorizontalSwitch : public Hovering<CHorizontalSwitch> {
  public:
    using Hovering::Hovering;
};

/// A passive display: digits, lamps, meters.
class CNewMovieBitmap : public Hovering<CMovieBitmap> {
  public:
    using Hovering::Hovering;
};

/// A display that also tells of clicks. Its value is 0 then: the listener changes what the display
/// shows, and the value comes back with that.
class CMovieBitmapButton : public Hovering<CMovieBitmap> {
  public:
    using Hovering::Hovering;

    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
};

}  // namespace tessel8
