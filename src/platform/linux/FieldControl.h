#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/MouseWord.h"
#include "platform/Surface.h"
#include "platform/TextField.h"
#include "platform/linux/Keyboard.h"
#include "platform/linux/Session.h"

namespace tessel8::x11 {

/// Keys, mouse and clipboard of a text field that is a pane or lies in one.
class FieldControl {
  public:
    /// `theOwner` is the part that the field belongs to; `theChanged` has it painted again.
    FieldControl(Session& theSession, const Part& theOwner, const PixelRect& thePlace,
                 const std::string& text, const TextFieldLook& look,
                 std::function<void()> theChanged);

    const std::string& text() const { return field.editing.text(); }
    const PixelRect& place() const { return where; }
    void setText(const std::string& text);

    /// False for a key that is not the field's, as Return and Escape.
    bool keyPressed(const KeyPress& key);
    void mouseDown(const MouseState& mouse);
    void mouseMoved(const MouseState& mouse);
    void mouseUp(const MouseState& mouse);
    /// Lets the cursor blink.
    void tick(uint32_t now);
    void paint(const Surface& surface, const PixelRect& damaged);

  private:
    bool controlKey(const KeyPress& key);
    void copy();
    void paste(Selection selection);
    void touched();

    Session& session;
    const Part& owner;
    PixelRect where;
    TextField field;
    std::function<void()> changed;
    uint32_t blinkStart = 0;
    bool cursorShown = true, dragging = false;
};

}  // namespace tessel8::x11
