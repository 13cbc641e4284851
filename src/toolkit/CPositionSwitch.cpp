#include "toolkit/CPositionSwitch.h"

#include "toolkit/Strips.h"

namespace tessel8 {

CPositionSwitch::CPositionSwitch(const CRect& rect, CControlListener* hearer, int32_t identity,
                                 int32_t imageCount, double imageHeight, int32_t positionCount,
                                 CBitmap* strip, const CPoint& bitmapOffset)
    : CControl(rect, hearer, identity, strip, bitmapOffset),
      images(imageCount),
      heightOfOne(imageHeight),
      positions(positionCount) {}

void CPositionSwitch::draw(CDrawContext& context) {
    setDirty(false);
    drawBackground(context, nearestImage(getValueNormalized(), images, heightOfOne));
}

MouseResult CPositionSwitch::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return MouseResult::DownHandledOnly;
    }
    return onMouseMoved(where, buttons);
}

MouseResult CPositionSwitch::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    endEdit();
    return MouseResult::Handled;
}

MouseResult CPositionSwitch::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    const int32_t position = int32_t(wayTo(where) / (length() / positions));
    value = getMin() + float(position) / float(positions - 1) * (getMax() - getMin());
    bounceValue();
    if (isDirty()) {
        valueChanged();
        invalid();
    }
    return MouseResult::Handled;
}

bool CVerticalSwitch::isTypeOf(std::string_view name) const {
    return name == "CVerticalSwitch" || CControl::isTypeOf(name);
}

bool CHorizontalSwitch::isTypeOf(std::string_view name) const {
    return name == "CHorizontalSwitch" || CControl::isTypeOf(name);
}
}  // namespace tessel8
