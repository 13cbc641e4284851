#pragma once

#include "toolkit/CControl.h"

namespace tessel8 {

/// What the two switches below share: positions side by side over the whole range, one of which
/// lies under the pointer.
class CPositionSwitch : public CControl {
  public:
    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;

  protected:
    CPositionSwitch(const CRect& rect, CControlListener* hearer, int32_t identity,
                    int32_t imageCount, double imageHeight, int32_t positionCount, CBitmap* strip,
                    const CPoint& bitmapOffset);
    /// Pixels from the switch's beginning to a point.
    virtual double wayTo(const CPoint& where) const = 0;
    /// Pixels from the switch's beginning to its end.
    virtual double length() const = 0;

  private:
    int32_t images;
    double heightOfOne;
    int32_t positions;
};

/// A switch whose first position lies at the top.
class CVerticalSwitch : public CPositionSwitch {
  public:
    /// `imageHeight` in pixels.
    CVerticalSwitch(const CRect& rect, CControlListener* hearer, int32_t identity,
                    int32_t imageCount, double imageHeight, int32_t positionCount, CBitmap* strip,
                    const CPoint& bitmapOffset = {})
        : CPositionSwitch(rect, hearer, identity, imageCount, imageHeight, positionCount, strip,
                          bitmapOffset) {}
    bool isTypeOf(std::string_view name) const override;

  protected:
    double wayTo(const CPoint& where) const override { return where.y - getViewSize().top; }
    double length() const override { return getViewSize().height(); }
};

/// A switch whose first position lies at the left.
class CHorizontalSwitch : public CPositionSwitch {
  public:
    /// `imageHeight` in pixels.
    CHorizontalSwitch(const CRect& rect, CControlListener* hearer, int32_t identity,
                      int32_t imageCount, double imageHeight, int32_t positionCount, CBitmap* strip,
                      const CPoint& bitmapOffset = {})
        : CPositionSwitch(rect, hearer, identity, imageCount, imageHeight, positionCount, strip,
                          bitmapOffset) {}
    bool isTypeOf(std::string_view name) const override;

  protected:
    double wayTo(const CPoint& where) const override { return where.x - getViewSize().left; }
    double length() const override { return getViewSize().width(); }
};

}  // namespace tessel8
