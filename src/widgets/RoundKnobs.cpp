#include "widgets/RoundKnobs.h"

namespace tessel8 {

CNewAnimKnob::CNewAnimKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                           int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                           const CPoint& bitmapOffset)
    : Hovering(rect, hearer, identity, imageCount, imageHeight, strip, bitmapOffset) {
    setWheelInc(0.05f);
    setZoomFactor(10.0f);
}

bool CNewAnimKnob::onWheel(const CPoint& where, float distance, uint32_t buttons) {
    const bool used = CAnimKnob::onWheel(where, distance, buttons);
    if (used) {
        invalidIfDirty();
    }
    return used;
}

bool CNewAnimKnob::checkDefaultValue(uint32_t buttons) {
    if (!isAnyDefaultGesture(buttons)) {
        return false;
    }
    takeDefaultValue();
    return true;
}

MouseResult CAnimKnob4::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    if (isAnyDefaultGesture(buttons)) {
        value = nextDefault();
        if (isDirty()) {
            valueChanged();
        }
        endEdit();
        return MouseResult::DownHandledOnly;
    }
    return beginDrag(where, buttons);
}

}  // namespace tessel8
