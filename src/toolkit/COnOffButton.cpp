#include "toolkit/COnOffButton.h"

#include "toolkit/Strips.h"

namespace tessel8 {

COnOffButton::COnOffButton(const CRect& rect, CControlListener* hearer, int32_t identity,
                           CBitmap* strip, OnOffStyle tellingStyle)
    : CControl(rect, hearer, identity, strip), style(tellingStyle) {}

bool COnOffButton::isTypeOf(std::string_view name) const {
    return name == "COnOffButton" || CControl::isTypeOf(name);
}

void COnOffButton::draw(CDrawContext& context) {
    setDirty(false);
    const double heightOfOne = background ? background->getHeight() / 2 : 0;
    drawBackground(context, stripImage(value == getMax() ? 1 : 0, heightOfOne));
}

MouseResult COnOffButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    toggle();
    invalid();
    tellAround(style);
    return MouseResult::DownHandledOnly;
}

void COnOffButton::toggle() {
    value = int32_t(value) != 0 ? 0.0f : 1.0f;
}

void COnOffButton::tellAround(OnOffStyle tellingStyle) {
    if (getListener() && tellingStyle == OnOffStyle::TellBeforeIdle) {
        tellAsGesture();
    }
    doIdleStuff();
    if (getListener() && tellingStyle == OnOffStyle::TellAfterIdle) {
        tellAsGesture();
    }
}

}  // namespace tessel8
