#include "platform/linux/LinuxPopupMenu.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <utility>

#include "platform/Clock.h"
#include "platform/Fill.h"
#include "platform/TextPainter.h"
#include "platform/linux/PipeSignalGuard.h"

namespace tessel8::x11 {

namespace {

constexpr uint32_t kEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_KEY_PRESS;
constexpr uint32_t kGrabbed =
    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
/// Milliseconds that a host may still hold the pointer for itself.
constexpr uint32_t kGrabPatience = 1000;

constexpr uint32_t kGround = 0xf2f2f2, kText = 0x101010, kFrame = 0x808080;
constexpr uint32_t kLitGround = 0x3068b0, kLitText = 0xffffff;

struct StepRow {
    xkb_keysym_t symbol, onKeypad;
    MenuStep step;
};
constexpr StepRow kSteps[] = {
    {XKB_KEY_Up, XKB_KEY_KP_Up, MenuStep::Up},
    {XKB_KEY_Down, XKB_KEY_KP_Down, MenuStep::Down},
    {XKB_KEY_Left, XKB_KEY_KP_Left, MenuStep::Left},
    {XKB_KEY_Right, XKB_KEY_KP_Right, MenuStep::Right},
    {XKB_KEY_Home, XKB_KEY_KP_Home, MenuStep::First},
    {XKB_KEY_End, XKB_KEY_KP_End, MenuStep::Last},
};

}  // namespace

LinuxPopupMenu::LinuxPopupMenu(const std::shared_ptr<Session>& theSession, const Pane& panel,
                               const PopupMenuSettings& theSettings,
                               std::function<void(int32_t)> whenEnded)
    : LinuxPopupMenu(theSession, layoutFor(*theSession, panel, theSettings), theSettings,
                     std::move(whenEnded)) {}

LinuxPopupMenu::LinuxPopupMenu(const std::shared_ptr<Session>& theSession,
                               const MenuLayout& theLayout, const PopupMenuSettings& theSettings,
                               std::function<void(int32_t)> whenEnded)
    : Pane(theSession, {theSession->connection().root(), theLayout.place(), kEvents, true}),
      layout(theLayout),
      settings(theSettings),
      ended(std::move(whenEnded)),
      hold(session()),
      openedAt(millisecondTick()),
      highlighted(theSettings.current < int32_t(theSettings.entries.size()) ? theSettings.current
                                                                            : -1) {
    session().connection().setAtoms(id(), Atom::NetWmWindowType, Atom::NetWmWindowTypePopupMenu);
    show();
    grabbed = grab();
}

LinuxPopupMenu::~LinuxPopupMenu() {
    const PipeSignalGuard guard;
    close();
}

MenuLayout LinuxPopupMenu::layoutFor(const Session& session, const Pane& panel,
                                     const PopupMenuSettings& settings) {
    int32_t x = settings.x, y = settings.y;
    session.connection().toScreen(panel.id(), x, y);
    return {settings.entries, settings.entriesPerColumn, session.connection().screenBounds(), x, y};
}

bool LinuxPopupMenu::grab() {
    // All buttons come here, also those that are pressed over the panel or the host.
    const auto pointer =
        xcb_grab_pointer(session().xcb(), 0, id(), kGrabbed, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keys = xcb_grab_keyboard(session().xcb(), 0, id(), XCB_CURRENT_TIME,
                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_pointer_reply_t> pointerReply(
        xcb_grab_pointer_reply(session().xcb(), pointer, nullptr));
    const Reply<xcb_grab_keyboard_reply_t> keysReply(
        xcb_grab_keyboard_reply(session().xcb(), keys, nullptr));
    return pointerReply && pointerReply->status == XCB_GRAB_STATUS_SUCCESS && keysReply &&
           keysReply->status == XCB_GRAB_STATUS_SUCCESS;
}

void LinuxPopupMenu::tick(uint32_t now) {
    if (!open || grabbed) {
        return;
    }
    grabbed = grab();
    if (!grabbed && now - openedAt > kGrabPatience) {
        end(-1);  // a menu that cannot be closed by a click elsewhere must not stay
    }
}

void LinuxPopupMenu::highlight(int32_t entry) {
    if (entry == highlighted) {
        return;
    }
    for (const int32_t changed : {highlighted, entry}) {
        if (changed >= 0) {
            invalidate(layout.entry(changed));
        }
    }
    highlighted = entry;
}

void LinuxPopupMenu::mouseMoved(const MouseState& mouse) {
    const int32_t entry = layout.entryAt(mouse.x, mouse.y);
    // Opened under a held button, the menu takes its release once another entry was pointed at.
    armed = armed || (entry >= 0 && entry != highlighted);
    highlight(entry);
}

void LinuxPopupMenu::mouseDown(const MouseState& mouse) {
    armed = true;
    if (!bounds().contains(mouse.x, mouse.y)) {
        end(-1);
        return;
    }
    highlight(layout.entryAt(mouse.x, mouse.y));
}

void LinuxPopupMenu::mouseUp(const MouseState& mouse) {
    const int32_t entry = layout.entryAt(mouse.x, mouse.y);
    if (armed && entry >= 0) {
        end(entry);
    }
}

void LinuxPopupMenu::keyPressed(const KeyPress& key) {
    for (const StepRow& row : kSteps) {
        if (key.symbol == row.symbol || key.symbol == row.onKeypad) {
            highlight(layout.stepped(highlighted, row.step));
            return;
        }
    }
    if (key.symbol == XKB_KEY_Return || key.symbol == XKB_KEY_KP_Enter ||
        key.symbol == XKB_KEY_space) {
        end(highlighted);
    } else if (key.symbol == XKB_KEY_Escape) {
        end(-1);
    }
}

void LinuxPopupMenu::paint(const Surface& surface, const PixelRect& damaged) {
    fillRect(surface, damaged, bounds(), kGround);
    drawFrame(surface, damaged, bounds(), kFrame);
    for (int32_t i = 0; i < int32_t(settings.entries.size()); ++i) {
        const PixelRect row = layout.entry(i);
        const bool lit = i == highlighted;
        const uint32_t colour = lit ? kLitText : kText;
        if (lit) {
            fillRect(surface, damaged, row, kLitGround);
        }
        if (i == settings.current) {
            const int32_t middle = (row.top + row.bottom) / 2;
            fillRect(surface, damaged, {row.left + 6, middle - 2, row.left + 11, middle + 3},
                     colour);
        }
        drawText(surface, row.intersected(damaged), row.left + MenuLayout::kTextLeft,
                 centredBaseline(row.top, row.bottom, MenuLayout::kFontSize),
                 settings.entries[size_t(i)], MenuLayout::kFontSize, colour);
    }
}

void LinuxPopupMenu::close() {
    if (std::exchange(open, false)) {
        hold.reset();
        xcb_ungrab_pointer(session().xcb(), XCB_CURRENT_TIME);
        xcb_ungrab_keyboard(session().xcb(), XCB_CURRENT_TIME);
        hide();
    }
}

void LinuxPopupMenu::end(int32_t choice) {
    if (open) {
        close();
        answerWith([call = ended, choice] { call(choice); });
    }
}

}  // namespace tessel8::x11
