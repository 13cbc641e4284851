#pragma once

#include "widgets/Hovering.h"

namespace tessel8 {

/// A button that steps through states, one image each, forward or with Ctrl back, and around at
/// the ends. The value is the state as a fraction of the last one.
class CLoopButton : public Hovering<CControl> {
  public:
    CLoopButton(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* strip,
                int32_t stateCount);
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override { return new CLoopButton(*this); }

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

    virtual int32_t getStyle() const { return style; }
    virtual void setStyle(int32_t newStyle) { style = newStyle; }
    /// Takes a value from outside and the state nearest to it. May be called on any thread.
    virtual void setStateFromValue(float newValue);

  protected:
    /// The value that stands for a state.
    virtual float valueOf(int32_t someState) const;
    void setState(float newValue, int32_t newState);

  private:
    int32_t count;
    int32_t style = 0;
    Relaxed<int32_t> state = 0;
};

/// A button of three states whose value is the state itself: 0, 1 or 2.
class CLoopButtonFB : public CLoopButton {
  public:
    CLoopButtonFB(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* strip)
        : CLoopButton(rect, hearer, identity, strip, 3) {}
    CBaseObject* newCopy() const override { return new CLoopButtonFB(*this); }

    void setStateFromValue(float newValue) override;

  protected:
    float valueOf(int32_t someState) const override { return float(someState); }
};

}  // namespace tessel8
