#include "toolkit/CAnimKnob.h"

#include "toolkit/Strips.h"

namespace tessel8 {

CAnimKnob::CAnimKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                     int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                     const CPoint& bitmapOffset)
    : CKnob(rect, hearer, identity, strip, nullptr, bitmapOffset),
      images(imageCount),
      heightOfOne(imageHeight) {}

bool CAnimKnob::isTypeOf(std::string_view name) const {
    return name == "CAnimKnob" || CKnob::isTypeOf(name);
}

void CAnimKnob::draw(CDrawContext& context) {
    setDirty(false);
    drawBackground(context, reachedImage(value, images, heightOfOne));
}

}  // namespace tessel8
