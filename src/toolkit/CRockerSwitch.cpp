#include "toolkit/CRockerSwitch.h"

namespace tessel8 {

namespace {

constexpr uint32_t kSpringBackMs = 200;

}  // namespace

CRockerSwitch::CRockerSwitch(const CRect& rect, CControlListener* hearer, int32_t identity,
                             double imageHeight, CBitmap* strip, const CPoint& bitmapOffset)
    : CControl(rect, hearer, identity, strip, bitmapOffset), heightOfOne(imageHeight) {
    setMin(-1.0f);
    setMax(1.0f);
}

CRockerSwitch::CRockerSwitch(const CRockerSwitch& other)
    : CControl(other), heightOfOne(other.heightOfOne) {}

bool CRockerSwitch::isTypeOf(std::string_view name) const {
    return name == "CRockerSwitch" || CControl::isTypeOf(name);
}

bool CRockerSwitch::onWheel(const CPoint& /*where*/, float distance, uint32_t /*buttons*/) {
    if (!getMouseEnabled()) {
        return false;
    }
    value = distance > 0.0f ? getMin() : getMax();
    if (isDirty()) {
        invalid();
        if (!springBack) {  // else the gesture of the turn before is still open
            beginEdit();
        }
        valueChanged();
    }
    if (!springBack) {
        springBack = makeShared<CVSTGUITimer>(getFrame(), this, kSpringBackMs);
    }
    springBack->start();
    return true;
}

void CRockerSwitch::notify(CBaseObject* sender) {
    if (sender != springBack.get()) {
        return;
    }
    springBack.reset();
    value = (getMin() + getMax()) / 2.0f;
    valueChanged();
    invalidIfDirty();
    endEdit();
}

void CRockerSwitch::removed() {
    springBack.reset();
    CControl::removed();
}

}  // namespace tessel8
