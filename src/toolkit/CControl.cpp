#include "toolkit/CControl.h"

#include <algorithm>

#include "toolkit/CFrame.h"

namespace tessel8 {

CControl::CControl(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* bitmap,
                   const CPoint& bitmapOffset)
    : CView(rect), listener(hearer), tag(identity), backOffset(bitmapOffset) {
    background = Shared<CBitmap>(bitmap);
}

bool CControl::isTypeOf(std::string_view name) const {
    return name == "CControl" || CView::isTypeOf(name);
}

void CControl::setValue(float newValue, bool updateSubListeners) {
    const float clipped = std::min(std::max(min, newValue), max);
    if (clipped == value) {
        return;
    }
    value = clipped;
    if (updateSubListeners) {
        for (CControlListener* hearer : subListeners) {
            hearer->valueChanged(this);
        }
    }
}

void CControl::setValueNormalized(float newValue) {
    setValue(min + std::clamp(newValue, 0.0f, 1.0f) * (max - min));
}

float CControl::getValueNormalized() const {
    return max != min ? (value - min) / (max - min) : 0.0f;
}

void CControl::bounceValue() {
    value = std::min(std::max(min, float(value)), max);
}

bool CControl::checkDefaultValue(uint32_t buttons) {
    if (buttons != kDefaultGesture) {
        return false;
    }
    takeDefaultValue();
    return true;
}

void CControl::takeDefaultValue() {
    beginEdit();
    value = defaultValue;
    if (isDirty()) {
        valueChanged();
    }
    endEdit();
}

void CControl::valueChanged() {
    if (listener) {
        listener->valueChanged(this);
    }
    for (CControlListener* hearer : subListeners) {
        hearer->valueChanged(this);
    }
}

void CControl::tellAsGesture() {
    beginEdit();
    valueChanged();
    endEdit();
}

void CControl::invalidIfDirty() {
    if (isDirty()) {
        invalid();
    }
}

void CControl::setTag(int32_t newTag) {
    if (listener) {
        listener->controlTagWillChange(this);
    }
    tag = newTag;
    if (listener) {
        listener->controlTagDidChange(this);
    }
}

void CControl::beginEdit() {
    if (listener) {
        listener->controlBeginEdit(this);
    }
    for (CControlListener* hearer : subListeners) {
        hearer->controlBeginEdit(this);
    }
    if (getFrame()) {
        getFrame()->beginEdit(tag);
    }
}

void CControl::endEdit() {
    if (listener) {
        listener->controlEndEdit(this);
    }
    for (CControlListener* hearer : subListeners) {
        hearer->controlEndEdit(this);
    }
    if (getFrame()) {
        getFrame()->endEdit(tag);
    }
}

void CControl::removeListener(CControlListener* hearer) {
    std::erase(subListeners, hearer);
}

void CControl::drawBackground(CDrawContext& context, const CPoint& place) const {
    if (background) {
        background->draw(context, size, {backOffset.x + place.x, backOffset.y + place.y});
    }
}

void CControl::doIdleStuff() {
    if (getFrame()) {
        getFrame()->doIdleStuff();
    }
}

bool CControl::isDirty() const {
    return value != oldValue || CView::isDirty();
}

void CControl::setDirty(bool state) {
    CView::setDirty(state);
    if (state) {
        oldValue = value == -1.0f ? 0.0f : -1.0f;
    } else {
        oldValue = value;
    }
}

}  // namespace tessel8
