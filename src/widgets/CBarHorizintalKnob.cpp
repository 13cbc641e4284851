#include "widgets/CBarHorizintalKnob.h"

namespace tessel8 {

CBarHorizintalKnob::CBarHorizintalKnob(const CRect& rect, CControlListener* hearer,
                                       int32_t identity, int32_t imageCount, int32_t imageHeight,
                                       CBitmap* strip, const CPoint& bitmapOffset)
    : CPointedKnob(rect, hearer, identity, imageCount, imageHeight, strip, bitmapOffset) {
    setZoomFactor(10.0f);
}

double CBarHorizintalKnob::valueAt(const CPoint& where) const {
    const CRect& rect = getViewSize();
    return (where.x - int32_t(rect.left - 1.0)) / int32_t(rect.width());
}

MouseResult CBarHorizintalKnob::take(float pointed, const CPoint& /*where*/) {
    value = pointed;
    bounceValue();
    if (value != getOldValue()) {
        valueChanged();
    }
    invalidIfDirty();
    return MouseResult::Handled;
}

}  // namespace tessel8
