#include "widgets/CLoopButton.h"

#include <cmath>

namespace tessel8 {

CLoopButton::CLoopButton(const CRect& rect, CControlListener* hearer, int32_t identity,
                         CBitmap* strip, int32_t stateCount)
    : Hovering(rect, hearer, identity, strip), count(stateCount) {}

bool CLoopButton::isTypeOf(std::string_view name) const {
    return name == "CLoopButton" || CControl::isTypeOf(name);
}

void CLoopButton::draw(CDrawContext& context) {
    setDirty(false);
    const int32_t height = background ? background->getHeight() : 0;
    const int32_t top = height * state / count;
    drawBackground(context, {0.0, double(top)});
}

float CLoopButton::valueOf(int32_t someState) const {
    return float(someState) / float(count - 1);
}

void CLoopButton::setState(float newValue, int32_t newState) {
    value = newValue;
    state = newState;
}

void CLoopButton::setStateFromValue(float newValue) {
    if (newValue >= 1.0f) {
        setState(1.0f, count - 1);
    } else if (newValue > 0.0f) {
        setState(newValue, int32_t(std::lround(newValue * float(count - 1))));
    } else {
        setState(0.0f, 0);
    }
}

MouseResult CLoopButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    const bool isBack = buttons == (mouse::kLeft | mouse::kControl);
    const int32_t next = (state + (isBack ? count - 1 : 1)) % count;
    setState(valueOf(next), next);
    tellAsGesture();
    invalid();
    doIdleStuff();
    return MouseResult::DownHandledOnly;
}

void CLoopButtonFB::setStateFromValue(float newValue) {
    if (newValue > 1.0f) {
        setState(newValue, 2);
    } else if (newValue > 0.0f) {
        setState(newValue, 1);
    } else {
        setState(0.0f, 0);
    }
}

}  // namespace tessel8
