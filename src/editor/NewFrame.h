#pragma once

#include "toolkit/CFrame.h"

namespace tessel8 {

/// A frame whose window takes the keyboard focus with every mouse press, or leaves it where the
/// host has it.
class MyFrame : public CFrame {
  public:
    using CFrame::CFrame;

    /// Switched on, it takes the focus at once.
    void setKeyboardFocus(bool state);
    bool getKeyboardFocus() const { return keyboardFocus; }

  protected:
    void mouseDown(const MouseState& mouse) override;

  private:
    bool keyboardFocus = true;
};

/// A frame that knows which control is being edited.
class NewFrame : public MyFrame {
  public:
    using MyFrame::MyFrame;

    void beginEdit(int32_t index) override;
    void endEdit(int32_t index) override;

    /// The tag of the control that was last taken hold of, or -1 before the first; the answer's
    /// `isEditing` tells whether it is still held. May be called on any thread.
    struct EditedTag {
        int32_t tag;
        bool isEditing;
    };
    virtual EditedTag getEditedTag() const { return {tag, isEditing}; }

    /// Number of the mouse press that lasts at this moment, 0 for none.
    uint32_t currentPress() const { return isPressed ? presses : 0; }

  protected:
    void mouseDown(const MouseState& mouse) override;
    void mouseUp(const MouseState& mouse) override;

  private:
    uint32_t presses = 0;
    bool isPressed = false;
    Relaxed<bool> isEditing = false;
    Relaxed<int32_t> tag = -1;
};

}  // namespace tessel8
