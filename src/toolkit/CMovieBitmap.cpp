#include "toolkit/CMovieBitmap.h"

#include "toolkit/Strips.h"

namespace tessel8 {

CMovieBitmap::CMovieBitmap(const CRect& rect, CControlListener* hearer, int32_t identity,
                           int32_t imageCount, double imageHeight, CBitmap* strip,
                           const CPoint& bitmapOffset)
    : CControl(rect, hearer, identity, strip, bitmapOffset),
      images(imageCount),
      heightOfOne(imageHeight) {}

bool CMovieBitmap::isTypeOf(std::string_view name) const {
    return name == "CMovieBitmap" || CControl::isTypeOf(name);
}

void CMovieBitmap::draw(CDrawContext& context) {
    setDirty(false);
    drawBackground(context, nearestImage(getValueNormalized(), images, heightOfOne));
}

}  // namespace tessel8
