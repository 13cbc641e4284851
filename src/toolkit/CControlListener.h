#pragma once

#include <cstdint>

namespace tessel8 {

class CControl;

/// Hears what the user does with controls.
class CControlListener {
  public:
    virtual ~CControlListener() = default;
    virtual void valueChanged(CControl* control) = 0;
    /// A click with a modifier key held, before the control sees it; other than 0 keeps it away.
    virtual int32_t controlModifierClicked(CControl* /*control*/, uint32_t /*buttons*/) {
        return 0;
    }
    virtual void controlBeginEdit(CControl* /*control*/) {}
    virtual void controlEndEdit(CControl* /*control*/) {}
    virtual void controlTagWillChange(CControl* /*control*/) {}
    virtual void controlTagDidChange(CControl* /*control*/) {}
};

}  // namespace tessel8
