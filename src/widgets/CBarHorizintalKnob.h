#pragma once

#include "widgets/CNewKnob.h"

namespace tessel8 {

/// A horizontal bar that stands alone.
class CBarHorizintalKnob : public CPointedKnob {
  public:
    /// `imageHeight` in pixels.
    CBarHorizintalKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                       int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                       const CPoint& bitmapOffset = {});

  protected:
    double valueAt(const CPoint& where) const override;
    MouseResult take(float pointed, const CPoint& where) override;
};

}  // namespace tessel8
