#pragma once

#include "toolkit/CRockerSwitch.h"

namespace tessel8 {

/// A horizontal rocker with a strip of five images: at rest, the pointer over the left or the
/// right half, and the left or the right half pressed.
class CVTRockerSwitch : public CRockerSwitch {
  public:
    using CRockerSwitch::CRockerSwitch;

    void draw(CDrawContext& context) override;
    /// Reports -1 for the left half, 1 for the right one with the middle; not the release.
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseEntered(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseExited(const CPoint& where, uint32_t buttons) override;

  private:
    int32_t sideOf(const CPoint& where) const;

    int32_t hoverSide = 0;  ///< -1 left half, 0 outside, 1 right half
};

}  // namespace tessel8
