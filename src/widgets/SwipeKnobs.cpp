#include "widgets/SwipeKnobs.h"

#include <algorithm>

#include "toolkit/CViewContainer.h"

namespace tessel8 {

CSwipeKnob::CSwipeKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                       int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                       const CPoint& bitmapOffset, const CRect& swipeRect)
    : CPointedKnob(rect, hearer, identity, imageCount, imageHeight, strip, bitmapOffset),
      swipe(swipeRect) {
    setZoomFactor(1.0f);
}

MouseResult CSwipeKnob::onMouseDown(const CPoint& where, uint32_t buttons) {
    last = Shared<CControl>(this);
    const MouseResult result = CPointedKnob::onMouseDown(where, buttons);
    if (result != MouseResult::Handled) {
        last.reset();
    }
    return result;
}

MouseResult CSwipeKnob::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    endLast();
    doIdleStuff();
    return MouseResult::Handled;
}

void CSwipeKnob::endLast() {
    if (const Shared<CControl> ended = std::exchange(last, {}); ended) {
        ended->endEdit();
    }
}

MouseResult CSwipeKnob::take(float pointed, const CPoint& where) {
    if (swipe.contains(where)) {
        CViewContainer* const row = getParentView();
        auto* const under = dynamic_cast<CControl*>(row ? row->getViewAt(where) : nullptr);
        if (!under) {  // the drag is over, and with it the gesture
            endLast();
            return MouseResult::NotHandled;
        }
        const Shared<CControl> target(under);
        setHoverTag(*this, target->getTag());
        if (target.get() != last.get()) {
            endLast();
            doIdleStuff();
            last = target;
            target->beginEdit();
        }
        target->setValue(std::min(std::max(getMin(), pointed), getMax()), false);
        if (getListener()) {
            getListener()->valueChanged(target.get());
        }
        if (target->isDirty()) {
            target->invalid();
        }
    }
    doIdleStuff();
    return MouseResult::Handled;
}

bool CSwipeKnob::onWheel(const CPoint& where, float distance, uint32_t buttons) {
    const bool used = CPointedKnob::onWheel(where, distance, buttons);
    invalidIfDirty();
    return used;
}

void CSwipeKnob::removed() {
    last.reset();
    CPointedKnob::removed();
}

double CBarAnimKnob::valueAt(const CPoint& where) const {
    const CRect& rect = getViewSize();
    return 1.0 - (where.y - int32_t(rect.top - 1.0)) / int32_t(rect.height());
}

MouseResult CBarAnimKnobValue::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (buttons != kDefaultGesture) {
        return CBarAnimKnob::onMouseDown(where, buttons);
    }
    beginEdit();
    value = nextDefault();
    valueChanged();
    endEdit();
    return MouseResult::DownHandledOnly;
}

CFocusHorizintalKnob::CFocusHorizintalKnob(const CRect& rect, CControlListener* hearer,
                                           int32_t identity, int32_t imageCount,
                                           int32_t imageHeight, CBitmap* strip,
                                           const CPoint& bitmapOffset, int32_t marginPixels,
                                           const CRect& swipeRect)
    : CSwipeKnob(rect, hearer, identity, imageCount, imageHeight, strip, bitmapOffset, swipeRect),
      margin(marginPixels) {
    setWheelInc(0.01f);
}

bool CFocusHorizintalKnob::onWheel(const CPoint& where, float distance, uint32_t buttons) {
    const bool used = CSwipeKnob::onWheel(where, distance, buttons);
    doIdleStuff();
    return used;
}

bool CFocusHorizintalKnob::checkDefaultValue(uint32_t buttons) {
    if (!isAnyDefaultGesture(buttons)) {
        return false;
    }
    takeDefaultValue();
    return true;
}

double CFocusHorizintalKnob::valueAt(const CPoint& where) const {
    const CRect& rect = getViewSize();
    return (where.x - int32_t(rect.left - 1.0 + margin)) / (int32_t(rect.width()) - 2 * margin);
}

}  // namespace tessel8
