#include "widgets/CNewKnob.h"

#include "toolkit/Strips.h"

namespace tessel8 {

namespace {

constexpr CPoint kNowhere = {-1.0, -1.0};

}  // namespace

CPointedKnob::CPointedKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                           int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                           const CPoint& bitmapOffset)
    : CNewKnob(rect, hearer, identity, strip, nullptr, bitmapOffset),
      images(imageCount),
      heightOfOne(imageHeight) {
    setWheelInc(0.05f);
}

void CPointedKnob::draw(CDrawContext& context) {
    setDirty(false);
    drawBackground(context, reachedImage(value, images, heightOfOne));
}

MouseResult CPointedKnob::onMouseDown(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return MouseResult::DownHandledOnly;
    }
    lastPoint = kNowhere;
    entryValue = value;
    oldButtons = buttons;
    return onMouseMoved(where, buttons);
}

MouseResult CPointedKnob::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    endEdit();
    doIdleStuff();
    return MouseResult::Handled;
}

MouseResult CPointedKnob::onMouseMoved(const CPoint& where, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    if (where == lastPoint) {
        return MouseResult::Handled;
    }
    lastPoint = where;
    const bool isFine = buttons & mouse::kShift;
    if (!isFine) {
        entryValue = value;
    } else if (buttons != oldButtons) {
        entryValue = value;
        oldButtons = buttons;
    }
    float pointed = float(valueAt(where));
    if (isFine) {
        pointed = entryValue + (pointed - entryValue) / getZoomFactor();
    }
    return take(pointed, where);
}

}  // namespace tessel8
