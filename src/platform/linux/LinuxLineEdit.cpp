#include "platform/linux/LinuxLineEdit.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <utility>

#include "platform/linux/PipeSignalGuard.h"

namespace tessel8::x11 {

namespace {

constexpr uint32_t kEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_BUTTON_MOTION | XCB_EVENT_MASK_KEY_PRESS |
                             XCB_EVENT_MASK_FOCUS_CHANGE;

}  // namespace

LinuxLineEdit::LinuxLineEdit(const std::shared_ptr<Session>& theSession, xcb_window_t panel,
                             const LineEditSettings& settings,
                             std::function<void(const std::string&)> whenEnded)
    : Pane(theSession, {panel, settings.place, kEvents}),
      control(session(), *this, bounds(), settings.text,
              {settings.textColour, settings.groundColour, settings.frameColour, settings.fontSize},
              [this] { invalidate(); }),
      original(settings.text),
      ended(std::move(whenEnded)),
      focusLoan(session().connection()) {
    show();
    takeFocus();
}

LinuxLineEdit::~LinuxLineEdit() {
    const PipeSignalGuard guard;
    close();
}

void LinuxLineEdit::keyboardOffered() {
    if (open && !hasFocus) {
        takeFocus();
    }
}

void LinuxLineEdit::focusChanged(bool has) {
    hasFocus = has;
    hadFocus = hadFocus || has;
}

void LinuxLineEdit::exposed() {
    // Before it was seen it could not have the keyboard; taken away later, it stays away.
    if (!hadFocus) {
        keyboardOffered();
    }
}

void LinuxLineEdit::mouseDown(const MouseState& mouse) {
    keyboardOffered();
    control.mouseDown(mouse);
}

void LinuxLineEdit::keyPressed(const KeyPress& key) {
    if (!open || control.keyPressed(key)) {
        return;
    }
    if (key.symbol == XKB_KEY_Return || key.symbol == XKB_KEY_KP_Enter) {
        end(control.text());
    } else if (key.symbol == XKB_KEY_Escape) {
        end(original);
    }
}

void LinuxLineEdit::tick(uint32_t now) {
    if (open) {
        control.tick(now);
    }
}

void LinuxLineEdit::pressedOutside() {
    end(control.text());
}

void LinuxLineEdit::paint(const Surface& surface, const PixelRect& damaged) {
    control.paint(surface, damaged);
}

void LinuxLineEdit::close() {
    if (std::exchange(open, false)) {
        focusLoan.giveBack(id());
        hide();
    }
}

void LinuxLineEdit::end(const std::string& finalText) {
    if (open) {
        close();
        answerWith([call = ended, finalText] { call(finalText); });
    }
}

}  // namespace tessel8::x11
