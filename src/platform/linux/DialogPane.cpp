#include "platform/linux/DialogPane.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <utility>

#include "platform/Fill.h"
#include "platform/TextPainter.h"
#include "platform/linux/PipeSignalGuard.h"

namespace tessel8::x11 {

namespace {

constexpr int32_t kButtonWidth = 84, kButtonGap = 8;  // pixels
constexpr uint32_t kButtonGround = 0xf6f6f6, kPressedGround = 0xc8c8c8;
constexpr uint32_t kEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_BUTTON_MOTION | XCB_EVENT_MASK_KEY_PRESS;

/// In the middle of the panel, on the screen.
PixelRect placeOver(const Connection& connection, const Pane& panel, int32_t width,
                    int32_t height) {
    int32_t left = (panel.bounds().width() - width) / 2;
    int32_t top = (panel.bounds().height() - height) / 2;
    connection.toScreen(panel.id(), left, top);
    const PixelRect screen = connection.screenBounds();
    left = std::max(screen.left, std::min(left, screen.right - width));
    top = std::max(screen.top, std::min(top, screen.bottom - height));
    return {left, top, left + width, top + height};
}

}  // namespace

DialogPane::DialogPane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                       const std::string& title, int32_t width, int32_t height)
    : Pane(theSession, {theSession->connection().root(),
                        placeOver(theSession->connection(), panel, width, height), kEvents}),
      focusLoan(session().connection()),
      hold(session()) {
    const Connection& connection = session().connection();
    connection.setTitle(id(), title);
    connection.makeTopLevel(id(), width, height);
    connection.setAtoms(id(), Atom::NetWmWindowType, Atom::NetWmWindowTypeDialog);
    connection.setAtoms(id(), Atom::NetWmState, Atom::NetWmStateModal);
    const xcb_window_t above = connection.topLevelOf(panel.id());
    xcb_change_property(session().xcb(), XCB_PROP_MODE_REPLACE, id(), XCB_ATOM_WM_TRANSIENT_FOR,
                        XCB_ATOM_WINDOW, 32, 1, &above);
    show();
}

DialogPane::~DialogPane() {
    const PipeSignalGuard guard;
    DialogPane::close();
}

void DialogPane::close() {
    if (std::exchange(open, false)) {
        hold.reset();
        focusLoan.giveBack(id());
        hide();
    }
}

void DialogPane::exposed() {
    // Where no window manager gives it the keyboard.
    if (open && !std::exchange(hasBeenSeen, true)) {
        takeFocus();
    }
}

void DialogPane::closeAsked() {
    if (open) {
        cancelled();
    }
}

void DialogPane::addButton(const std::string& label, std::function<void()> act) {
    const auto before = int32_t(buttons.size());
    const int32_t right = bounds().right - kMargin - before * (kButtonWidth + kButtonGap);
    const int32_t bottom = bounds().bottom - kMargin;
    buttons.push_back(
        {label, {right - kButtonWidth, bottom - kButtonHeight, right, bottom}, std::move(act)});
}

void DialogPane::mouseDown(const MouseState& mouse) {
    for (size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i].place.contains(mouse.x, mouse.y)) {
            pressed = int32_t(i);
            invalidate(buttons[i].place);
        }
    }
}

void DialogPane::mouseUp(const MouseState& mouse) {
    const int32_t was = std::exchange(pressed, -1);
    if (was >= 0) {
        const Button& button = buttons[size_t(was)];
        invalidate(button.place);
        if (open && button.place.contains(mouse.x, mouse.y)) {
            button.act();
        }
    }
}

void DialogPane::keyPressed(const KeyPress& key) {
    if (!open) {
        return;
    }
    if (key.symbol == XKB_KEY_Return || key.symbol == XKB_KEY_KP_Enter) {
        accepted();
    } else if (key.symbol == XKB_KEY_Escape) {
        cancelled();
    }
}

void DialogPane::paint(const Surface& surface, const PixelRect& damaged) {
    fillRect(surface, damaged, bounds(), kGround);
    drawFrame(surface, damaged, bounds(), kFrame);
    for (size_t i = 0; i < buttons.size(); ++i) {
        const auto& [label, place, act] = buttons[i];
        fillRect(surface, damaged, place, int32_t(i) == pressed ? kPressedGround : kButtonGround);
        drawFrame(surface, damaged, place, kFrame);
        const int32_t left = (place.left + place.right - textWidth(label, kFontSize)) / 2;
        drawText(surface, damaged.intersected(place), left,
                 centredBaseline(place.top, place.bottom, kFontSize), label, kFontSize, kText);
    }
}

}  // namespace tessel8::x11
