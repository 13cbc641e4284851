#include "toolkit/CKickButton.h"

#include "toolkit/Strips.h"

namespace tessel8 {

CKickButton::CKickButton(const CRect& rect, CControlListener* hearer, int32_t identity,
                         double imageHeight, CBitmap* strip, const CPoint& bitmapOffset)
    : CControl(rect, hearer, identity, strip, bitmapOffset), heightOfOne(imageHeight) {}

bool CKickButton::isTypeOf(std::string_view name) const {
    return name == "CKickButton" || CControl::isTypeOf(name);
}

void CKickButton::draw(CDrawContext& context) {
    bounceValue();
    drawImage(context, value == getMax() ? 1 : 0);
}

void CKickButton::drawImage(CDrawContext& context, int32_t image) {
    setDirty(false);
    drawBackground(context, stripImage(image, heightOfOne));
}

MouseResult CKickButton::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    return onMouseMoved(where, buttons);
}

MouseResult CKickButton::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    value = getViewSize().contains(where) ? getMax() : getMin();
    invalidIfDirty();
    return MouseResult::Handled;
}

MouseResult CKickButton::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    if (value != 0.0f) {
        valueChanged();
    }
    value = getMin();
    valueChanged();
    invalidIfDirty();
    endEdit();
    return MouseResult::Handled;
}

}  // namespace tessel8
