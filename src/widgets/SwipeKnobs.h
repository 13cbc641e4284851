#pragma once

#include "widgets/CNewKnob.h"
#include "widgets/DefaultGestures.h"

namespace tessel8 {

/// One of a row of neighbours that a single drag passes across: within the swipe rectangle each
/// control under the pointer takes the pointer's value. A gesture lasts as long as the pointer
/// stays on one of them.
class CSwipeKnob : public CPointedKnob {
  public:
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;
    void removed() override;

  protected:
    CSwipeKnob(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
               int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset,
               const CRect& swipeRect);

    MouseResult take(float pointed, const CPoint& where) override;

  private:
    void endLast();

    CRect swipe;
    Shared<CControl> last;  ///< whose gesture is under way
};

/// A vertical bar.
class CBarAnimKnob : public CSwipeKnob {
  public:
    /// `imageHeight` in pixels.
    CBarAnimKnob(const CRect& rect, CControlListener* hearer, int32_t identity, int32_t imageCount,
                 int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset,
                 const CRect& swipeRect)
        : CSwipeKnob(rect, hearer, identity, imageCount, imageHeight, strip, bitmapOffset,
                     swipeRect) {}

  protected:
    double valueAt(const CPoint& where) const override;
};

/// A vertical bar whose default gesture steps through a list of values.
class CBarAnimKnobValue : public CBarAnimKnob {
  public:
    using CBarAnimKnob::CBarAnimKnob;

    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

    virtual void setDefaultList(float newValue, uint8_t place) { defaults.set(newValue, place); }
    virtual float nextDefault() { return defaults.next(); }

  private:
    DefaultList defaults;
};

/// A horizontal slider with a margin in pixels at both ends.
class CFocusHorizintalKnob : public CSwipeKnob {
  public:
    /// `imageHeight` in pixels.
    CFocusHorizintalKnob(const CRect& rect, CControlListener* hearer, int32_t identity,
                         int32_t imageCount, int32_t imageHeight, CBitmap* strip,
                         const CPoint& bitmapOffset, int32_t marginPixels, const CRect& swipeRect);

    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;
    bool checkDefaultValue(uint32_t buttons) override;

  protected:
    double valueAt(const CPoint& where) const override;

  private:
    int32_t margin;
};

}  // namespace tessel8
