#include "widgets/CNewKickButton.h"

namespace tessel8 {

MouseResult CQuickKickButton::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    valueAtPress = value;
    value = 1.0f;
    valueChanged();
    return onMouseMoved(where, buttons);
}

MouseResult CQuickKickButton::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    const float pressed = valueAtPress == 0.0f ? 1.0f : 0.0f;
    value = getViewSize().contains(where) ? pressed : valueAtPress;
    invalidIfDirty();
    return MouseResult::Handled;
}

MouseResult CQuickKickButton::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    value = 0.0f;
    valueChanged();
    invalidIfDirty();
    endEdit();
    return MouseResult::Handled;
}

bool CInvisableKickButton::isTypeOf(std::string_view name) const {
    return name == "CInvisableKickButton" || CControl::isTypeOf(name);
}

void CInvisableKickButton::draw(CDrawContext& /*context*/) {
    setDirty(false);
}

MouseResult CInvisableKickButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    invalid();
    tellAsGesture();
    doIdleStuff();
    return MouseResult::DownHandledOnly;
}

}  // namespace tessel8
