#pragma once

#include "toolkit/CKickButton.h"
#include "widgets/Hovering.h"

namespace tessel8 {

/// A push button of the panel that reports at the release.
class CNewKickButton : public Hovering<CKickButton> {
  public:
    using Hovering::Hovering;
};

/// A push button that reports at the press with 1, and at the release with 0.
class CQuickKickButton : public CNewKickButton {
  public:
    using CNewKickButton::CNewKickButton;

    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;
    /// Shows whether the pointer is still on the button; nobody hears of it.
    MouseResult onMouseMoved(const CPoint& where, uint32_t buttons) override;

  private:
    float valueAtPress = 0.0f;
};

/// An area without a picture that only tells of clicks; its value stays as it is.
class CInvisableKickButton : public CControl {
  public:
    CInvisableKickButton(const CRect& rect, CControlListener* hearer, int32_t identity)
        : CControl(rect, hearer, identity) {}
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override { return new CInvisableKickButton(*this); }

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
};

}  // namespace tessel8
