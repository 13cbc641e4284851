#include "platform/linux/FieldControl.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <utility>

#include "platform/Clock.h"

namespace tessel8::x11 {

namespace {

constexpr uint32_t kBlinkTime = 500;  // milliseconds that the cursor is there, and then not

struct KeyRow {
    xkb_keysym_t symbol, onKeypad;
    EditKey key;
};
constexpr KeyRow kKeys[] = {
    {XKB_KEY_Left, XKB_KEY_KP_Left, EditKey::Left},
    {XKB_KEY_Right, XKB_KEY_KP_Right, EditKey::Right},
    {XKB_KEY_Home, XKB_KEY_KP_Home, EditKey::Home},
    {XKB_KEY_End, XKB_KEY_KP_End, EditKey::End},
    {XKB_KEY_BackSpace, XKB_KEY_BackSpace, EditKey::Backspace},
    {XKB_KEY_Delete, XKB_KEY_KP_Delete, EditKey::Delete},
};

}  // namespace

FieldControl::FieldControl(Session& theSession, const Part& theOwner, const PixelRect& thePlace,
                           const std::string& text, const TextFieldLook& look,
                           std::function<void()> theChanged)
    : session(theSession),
      owner(theOwner),
      where(thePlace),
      field(text, look),
      changed(std::move(theChanged)),
      blinkStart(millisecondTick()) {}

void FieldControl::setText(const std::string& text) {
    field.editing = TextEditing(text);
    field.editing.press(EditKey::End, false, false);
    touched();
}

void FieldControl::touched() {
    blinkStart = millisecondTick();
    cursorShown = true;
    changed();
}

bool FieldControl::keyPressed(const KeyPress& key) {
    if (controlKey(key)) {
        touched();
        return true;
    }
    for (const KeyRow& row : kKeys) {
        if (key.symbol == row.symbol || key.symbol == row.onKeypad) {
            field.editing.press(row.key, key.shift, key.control);
            touched();
            return true;
        }
    }
    if (key.text.empty()) {
        return false;
    }
    field.editing.insert(key.text);
    touched();
    return true;
}

bool FieldControl::controlKey(const KeyPress& key) {
    const xkb_keysym_t symbol = key.symbol;
    if (key.control && symbol == XKB_KEY_a) {
        field.editing.selectAll();
        return true;
    }
    if (key.control && (symbol == XKB_KEY_c || symbol == XKB_KEY_Insert)) {
        copy();
        return true;
    }
    if ((key.control && symbol == XKB_KEY_x) || (key.shift && symbol == XKB_KEY_Delete)) {
        copy();
        field.editing.insert({});
        return true;
    }
    if ((key.control && symbol == XKB_KEY_v) || (key.shift && symbol == XKB_KEY_Insert)) {
        paste(Selection::Clipboard);
        return true;
    }
    return false;
}

void FieldControl::copy() {
    if (const std::string text = field.editing.selected(); !text.empty()) {
        session.clipboard().offer(Selection::Clipboard, text, session.time());
    }
}

void FieldControl::paste(Selection selection) {
    session.clipboard().request(selection, &owner, [this](const std::string& text) {
        field.editing.insert(text);
        touched();
    });
}

void FieldControl::mouseDown(const MouseState& mouse) {
    const size_t offset = field.offsetAt(where, mouse.x);
    if (mouse.buttons & mouse::kMiddle) {
        field.editing.moveCursor(offset, false);
        paste(Selection::Primary);
    } else if (mouse.buttons & mouse::kDoubleClick) {
        field.editing.selectWordAt(offset);
    } else if (mouse.buttons & mouse::kLeft) {
        field.editing.moveCursor(offset, mouse.buttons & mouse::kShift);
        dragging = true;
    }
    touched();
}

void FieldControl::mouseMoved(const MouseState& mouse) {
    if (dragging) {
        field.editing.moveCursor(field.offsetAt(where, mouse.x), true);
        touched();
    }
}

void FieldControl::mouseUp(const MouseState& mouse) {
    dragging = false;
    const std::string marked = field.editing.selected();
    if (mouse.buttons & mouse::kLeft && !marked.empty()) {
        session.clipboard().offer(Selection::Primary, marked, session.time());
    }
}

void FieldControl::tick(uint32_t now) {
    const bool shown = (now - blinkStart) / kBlinkTime % 2 == 0;
    if (shown != cursorShown) {
        cursorShown = shown;
        changed();
    }
}

void FieldControl::paint(const Surface& surface, const PixelRect& damaged) {
    field.paint(surface, damaged, where, cursorShown);
}

}  // namespace tessel8::x11
