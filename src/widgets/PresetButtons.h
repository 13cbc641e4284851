#pragma once

#include "toolkit/CKickButton.h"
#include "toolkit/COnOffButton.h"

namespace tessel8 {

// The buttons of the preset row have strips of three images (at rest, under the pointer, pressed)
// and take no part in the hover texts.

/// Shows itself differently while the pointer is over it.
template <typename Base>
class RollingOver : public Base {
  public:
    using Base::Base;

    MouseResult onMouseEntered(const CPoint& /*where*/, uint32_t /*buttons*/) override {
        return roll(true);
    }
    MouseResult onMouseExited(const CPoint& /*where*/, uint32_t /*buttons*/) override {
        return roll(false);
    }

  protected:
    bool isUnderPointer() const { return underPointer; }

  private:
    MouseResult roll(bool state) {
        underPointer = state;
        this->invalid();
        return MouseResult::Handled;
    }

    bool underPointer = false;
};

/// A push button that reports its press alone. The double-click kind hears nothing else, and with
/// Ctrl gives 0.5 in place of 1.
class CVTKickButton : public RollingOver<CKickButton> {
  public:
    /// `imageHeight` in pixels.
    CVTKickButton(const CRect& rect, CControlListener* hearer, int32_t identity, double imageHeight,
                  CBitmap* strip, const CPoint& bitmapOffset, bool wantsDoubleClick)
        : RollingOver(rect, hearer, identity, imageHeight, strip, bitmapOffset),
          isDoubleClickKind(wantsDoubleClick) {}

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
    MouseResult onMouseUp(const CPoint& where, uint32_t buttons) override;

    /// Comes up without a release, for presses that open another window.
    void release();

  private:
    bool isDoubleClickKind;
    bool isPressed = false;
};

/// A toggle.
class CVTOnOffButton : public RollingOver<COnOffButton> {
  public:
    using RollingOver::RollingOver;

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
};

/// A push button for both mouse buttons: the right one alone gives 0.5 in place of 1.
class CSaveLoadButton : public RollingOver<CKickButton> {
  public:
    /// `imageHeight` in pixels.
    CSaveLoadButton(const CRect& rect, CControlListener* hearer, int32_t identity,
                    int32_t imageHeight, CBitmap* strip, const CPoint& bitmapOffset = {})
        : RollingOver(rect, hearer, identity, imageHeight, strip, bitmapOffset) {}

    void draw(CDrawContext& context) override;
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;
};

}  // namespace tessel8
