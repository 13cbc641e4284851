#pragma once

#include "toolkit/CControl.h"
#include "toolkit/CVSTGUITimer.h"

namespace tessel8 {

/// A switch of two sides, -1 and 1, that springs back to 0. The stock form knows the wheel alone.
class CRockerSwitch : public CControl {
  public:
    /// `imageHeight` in pixels.
    CRockerSwitch(const CRect& rect, CControlListener* hearer, int32_t identity, double imageHeight,
                  CBitmap* strip, const CPoint& bitmapOffset = {});
    /// The copy has no turn of the wheel under way.
    CRockerSwitch(const CRockerSwitch& other);
    bool isTypeOf(std::string_view name) const override;

    /// Goes to the lower side for a turn away from the user, else to the upper, and springs back
    /// 200 ms after the last turn.
    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;
    void notify(CBaseObject* sender) override;
    void removed() override;

  protected:
    double getImageHeight() const { return heightOfOne; }

  private:
    double heightOfOne;
    Shared<CVSTGUITimer> springBack;  ///< while a turn of the wheel lasts
};

}  // namespace tessel8
