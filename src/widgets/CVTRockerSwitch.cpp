#include "widgets/CVTRockerSwitch.h"

#include "toolkit/Strips.h"

namespace tessel8 {

int32_t CVTRockerSwitch::sideOf(const CPoint& where) const {
    return where.x < getViewSize().centre().x ? -1 : 1;
}

void CVTRockerSwitch::draw(CDrawContext& context) {
    setDirty(false);
    int32_t image = hoverSide == 0 ? 0 : hoverSide < 0 ? 1 : 2;
    if (value == -1.0f || value == 1.0f) {
        image = value < 0.0f ? 3 : 4;
    }
    drawBackground(context, stripImage(image, getImageHeight()));
}

MouseResult CVTRockerSwitch::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    value = float(sideOf(where));
    invalid();
    valueChanged();
    return MouseResult::Handled;
}

MouseResult CVTRockerSwitch::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    value = 0.0f;
    invalid();
    return MouseResult::Handled;
}

MouseResult CVTRockerSwitch::onMouseMoved(const CPoint& where, uint32_t buttons) {
    return buttons & mouse::kLeft ? MouseResult::Handled : onMouseEntered(where, buttons);
}

MouseResult CVTRockerSwitch::onMouseEntered(const CPoint& where, uint32_t /*buttons*/) {
    hoverSide = sideOf(where);
    invalid();
    return MouseResult::Handled;
}

MouseResult CVTRockerSwitch::onMouseExited(const CPoint& /*where*/, uint32_t /*buttons*/) {
    hoverSide = 0;
    invalid();
    return MouseResult::Handled;
}

}  // namespace tessel8
