#include "widgets/CInvisableKnob.h"

#include <cmath>

namespace tessel8 {

namespace {

// Pixels for the whole range. A drag that begins with Shift is a little coarser than one that
// reaches Shift on the way.
constexpr float kDragPixels = 1000.0f;
constexpr float kShiftedFromTheStart = 4000.0f;
constexpr float kShiftedOnTheWay = 5000.0f;

}  // namespace

CInvisableKnob::CInvisableKnob(const CRect& rect, CControlListener* hearer, int32_t identity)
    : Hovering(rect, hearer, identity) {}

bool CInvisableKnob::isTypeOf(std::string_view name) const {
    return name == "CInvisableKnob" || CControl::isTypeOf(name);
}

void CInvisableKnob::draw(CDrawContext& /*context*/) {
    setDirty(false);
}

MouseResult CInvisableKnob::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return MouseResult::DownHandledOnly;
    }
    firstPoint = trackingPoint = acceleratedPoint = where;
    entryValue = value;
    oldButtons = buttons;
    coefficient = coefficientFor(buttons & mouse::kShift ? kShiftedFromTheStart : kDragPixels);
    return onMouseMoved(where, buttons);
}

MouseResult CInvisableKnob::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    endEdit();
    return MouseResult::Handled;
}

MouseResult CInvisableKnob::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    const double moved = (trackingPoint.y - where.y) * 2.0 + (where.x - trackingPoint.x);
    trackingPoint = where;
    const double accelerated = std::copysign(std::pow(std::abs(moved), 1.4), moved);
    acceleratedPoint.x = std::trunc(acceleratedPoint.x + accelerated);
    const float way =
        float((firstPoint.y - acceleratedPoint.y) + (acceleratedPoint.x - firstPoint.x) * 0.5);
    if (buttons != oldButtons) {  // goes on from where the value stands
        const float newCoefficient =
            coefficientFor(buttons & mouse::kShift ? kShiftedOnTheWay : kDragPixels);
        entryValue += way * (coefficient - newCoefficient);
        coefficient = newCoefficient;
        oldButtons = buttons;
    }
    value = entryValue + way * coefficient;
    bounceValue();
    if (value != getOldValue()) {
        valueChanged();
    }
    invalidIfDirty();
    return MouseResult::Handled;
}

bool CInvisableKnob::onWheel(const CPoint& /*where*/, float distance, uint32_t /*buttons*/) {
    if (!getMouseEnabled()) {
        return false;
    }
    value = value + wheelScale * distance * getWheelInc();
    bounceValue();
    if (isDirty() && getListener()) {
        tellAsGesture();
    }
    invalidIfDirty();
    return true;
}

}  // namespace tessel8
