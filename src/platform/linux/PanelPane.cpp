#include "platform/linux/PanelPane.h"

namespace tessel8::x11 {

namespace {

constexpr uint32_t kEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                             XCB_EVENT_MASK_LEAVE_WINDOW;
constexpr uint32_t kButtons = mouse::kLeft | mouse::kMiddle | mouse::kRight;

}  // namespace

PanelPane::PanelPane(const std::shared_ptr<Session>& theSession, xcb_window_t parent, int32_t width,
                     int32_t height, const std::string& title, WindowListener& theListener)
    : Pane(theSession,
           {parent ? parent : theSession->connection().root(), {0, 0, width, height}, kEvents}),
      listener(theListener) {
    const Connection& connection = session().connection();
    if (!parent) {
        connection.setTitle(id(), title);
        connection.makeTopLevel(id(), width, height);
    }
    // Hosts that embed by the protocol of that name look here whether it wants to be shown.
    const uint32_t info[] = {0, 1};
    xcb_change_property(session().xcb(), XCB_PROP_MODE_REPLACE, id(),
                        connection.atom(Atom::XembedInfo), connection.atom(Atom::XembedInfo), 32, 2,
                        info);
    session().clipboard().useWindow(id());
    show();
}

MouseState PanelPane::currentMouse() const {
    const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        session().xcb(), xcb_query_pointer(session().xcb(), id()), nullptr));
    return reply ? MouseState{reply->win_x, reply->win_y, mouseWord(reply->mask)} : MouseState{};
}

void PanelPane::mouseDown(const MouseState& mouse) {
    if (!session().isModal()) {
        held = mouse.buttons & kButtons;
        listener.mouseDown(mouse);
    }
}

void PanelPane::mouseMoved(const MouseState& mouse) {
    // A release that another program's grab has swallowed shows in the next motion.
    if (const uint32_t lost = held & ~mouse.buttons) {
        mouseUp({mouse.x, mouse.y, mouse.buttons | lost});
    }
    if (!session().isModal()) {
        listener.mouseMoved(mouse);
    }
}

void PanelPane::mouseUp(const MouseState& mouse) {
    // What was pressed before a menu or dialog opened is still released.
    if (held & mouse.buttons) {
        held = 0;
        listener.mouseUp(mouse);
    }
}

void PanelPane::mouseLeft() {
    listener.mouseLeft();
}

void PanelPane::wheel(const MouseState& mouse, float distance) {
    if (!session().isModal()) {
        listener.wheel(mouse, distance);
    }
}

void PanelPane::destroyed() {
    Pane::destroyed();
    session().end();
}

void PanelPane::paint(const Surface& surface, const PixelRect& damaged) {
    listener.paint(surface, damaged);
}

}  // namespace tessel8::x11
