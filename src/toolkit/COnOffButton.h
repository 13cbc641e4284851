#pragma once

#include "toolkit/CControl.h"

namespace tessel8 {

/// Whether a toggle's listener hears of a press before the idle pass that follows it or after.
enum class OnOffStyle { TellAfterIdle = 0, TellBeforeIdle = 1 };

/// A toggle of 0 and 1 with a strip of two images.
class COnOffButton : public CControl {
  public:
    COnOffButton(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* strip,
                 OnOffStyle tellingStyle = OnOffStyle::TellBeforeIdle);
    bool isTypeOf(std::string_view name) const override;

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

  protected:
    void toggle();
    /// Tells the listener as the style says, around an idle pass.
    void tellAround(OnOffStyle tellingStyle);

  private:
    OnOffStyle style;
};

}  // namespace tessel8
