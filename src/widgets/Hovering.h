#pragma once

#include "toolkit/CControl.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

/// Tells a listener that cares which control lies under the pointer.
inline void setHoverTag(const CControl& control, int32_t tag) {
    if (auto* hearer = dynamic_cast<CNewControlListener*>(control.getListener())) {
        hearer->hoverTag = tag;
    }
}

/// A control that tells when the pointer comes and goes, and that can be set without notice.
template <typename Base>
class Hovering : public Base {
  public:
    using Base::Base;

    MouseResult onMouseEntered(const CPoint& /*where*/, uint32_t /*buttons*/) override {
        setHoverTag(*this, this->getTag());
        return MouseResult::Handled;
    }
    MouseResult onMouseExited(const CPoint& /*where*/, uint32_t /*buttons*/) override {
        setHoverTag(*this, -1);
        return MouseResult::Handled;
    }
    /// Clips to the range and stores; no listener hears of it, and the next idle pass shows it.
    /// May be called on any thread.
    virtual void setValueSilently(float newValue) { this->setValue(newValue, false); }
};

}  // namespace tessel8
