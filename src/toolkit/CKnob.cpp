#include "toolkit/CKnob.h"

#include <cmath>
#include <numbers>

#include "toolkit/CFrame.h"

namespace tessel8 {

namespace {

constexpr float kDragPixels = 200.0f;
constexpr CPoint kNowhere = {-1.0, -1.0};
constexpr double kStartAngle = 5.0 * std::numbers::pi / 4.0;  ///< from the right, against the clock
constexpr double kAngleRange = 3.0 * std::numbers::pi / 2.0;  ///< clockwise

}  // namespace

CKnob::CKnob(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* bitmap,
             CBitmap* handleBitmap, const CPoint& bitmapOffset)
    : CControl(rect, hearer, identity, bitmap, bitmapOffset), handle(handleBitmap) {}

bool CKnob::isTypeOf(std::string_view name) const {
    return name == "CKnob" || CControl::isTypeOf(name);
}

void CKnob::draw(CDrawContext& /*context*/) {
    setDirty(false);
}

float CKnob::coefficientFor(uint32_t buttons) const {
    const float pixels = buttons & mouse::kShift ? kDragPixels * zoomFactor : kDragPixels;
    return (getMax() - getMin()) / pixels;
}

MouseResult CKnob::onMouseDown(const CPoint& where, uint32_t buttons) {
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return MouseResult::DownHandledOnly;
    }
    return beginDrag(where, buttons);
}

MouseResult CKnob::beginDrag(const CPoint& where, uint32_t buttons) {
    firstPoint = where;
    lastPoint = kNowhere;
    entryValue = value;
    oldButtons = buttons;
    coefficient = coefficientFor(buttons);
    const int32_t mode = getFrame() ? getFrame()->getKnobMode() : kCircularMode;
    isLinear = mode == kLinearMode && !(buttons & mouse::kAlt);
    if (isLinear) {
        lastPoint = where;
    }
    return onMouseMoved(where, buttons);
}

// Presses of any button begin a gesture, so all moves are handled: the release has to arrive.
MouseResult CKnob::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::Handled;
    }
    if (where != lastPoint) {
        lastPoint = where;
        if (isLinear) {
            const float way = float((firstPoint.y - where.y) + (where.x - firstPoint.x));
            if (buttons != oldButtons) {  // goes on from where the value stands
                const float newCoefficient = coefficientFor(buttons);
                entryValue += way * (coefficient - newCoefficient);
                coefficient = newCoefficient;
                oldButtons = buttons;
            }
            value = entryValue + way * coefficient;
            bounceValue();
        } else {
            value = valueFromPoint(where);
        }
        if (value != getOldValue()) {
            valueChanged();
        }
        invalidIfDirty();
    }
    doIdleStuff();
    return MouseResult::Handled;
}

MouseResult CKnob::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    endEdit();
    doIdleStuff();
    return MouseResult::Handled;
}

bool CKnob::onWheel(const CPoint& /*where*/, float distance, uint32_t buttons) {
    if (!getMouseEnabled()) {
        return false;
    }
    if (buttons & mouse::kShift) {
        distance *= 0.1f;
    }
    value = value + distance * getWheelInc();
    bounceValue();
    if (isDirty() && getListener()) {
        tellAsGesture();
    }
    return true;
}

float CKnob::valueFromPoint(const CPoint& where) const {
    const CPoint centre = getViewSize().centre();
    const double angle = std::atan2(centre.y - where.y, where.x - centre.x);
    constexpr double kTurn = 2.0 * std::numbers::pi;
    double clockwise = std::fmod(kStartAngle - angle, kTurn);
    if (clockwise < 0.0) {
        clockwise += kTurn;
    }
    if (clockwise > kAngleRange) {
        clockwise = clockwise > (kAngleRange + kTurn) / 2.0 ? 0.0 : kAngleRange;
    }
    return getMin() + float(clockwise / kAngleRange) * (getMax() - getMin());
}

}  // namespace tessel8
