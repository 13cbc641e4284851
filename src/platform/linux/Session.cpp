#include "platform/linux/Session.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/Clock.h"
#include "platform/linux/Pane.h"
#include "platform/linux/PipeSignalGuard.h"

namespace tessel8::x11 {

namespace {

constexpr uint32_t kDoubleClickTime = 400;   // milliseconds
constexpr int32_t kDoubleClickDistance = 4;  // pixels

enum Button : uint8_t { kFirst = 1, kLast = 3, kUp = 4, kDown = 5, kToLeft = 6, kToRight = 7 };

uint32_t buttonBit(uint8_t button) {
    return button >= kFirst && button <= kLast ? 1u << button : 0;
}

/// The event as what its type says that it is.
template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

template <typename Event>
MouseState mouseOf(const Event& event) {
    return {event.event_x, event.event_y, mouseWord(event.state)};
}

}  // namespace

uint32_t mouseWord(uint16_t state) {
    static_assert(XCB_BUTTON_MASK_1 >> 7 == mouse::kLeft &&
                  XCB_BUTTON_MASK_3 >> 7 == mouse::kRight);
    return (state >> 7 & (mouse::kLeft | mouse::kMiddle | mouse::kRight)) |
           (state & XCB_MOD_MASK_SHIFT ? mouse::kShift : 0) |
           (state & XCB_MOD_MASK_CONTROL ? mouse::kControl : 0) |
           (state & XCB_MOD_MASK_1 ? mouse::kAlt : 0);
}

std::shared_ptr<Session> Session::open() {
    auto opened = Connection::open();
    return opened ? std::shared_ptr<Session>(new Session(std::move(opened))) : nullptr;
}

Session::Session(std::unique_ptr<Connection> opened)
    : link(std::move(opened)), keyboard(*link), exchange(*link) {}

Session::~Session() {
    const PipeSignalGuard guard;
    link.reset();
}

Pane* Session::paneOf(xcb_window_t window) const {
    const auto found = panes.find(window);
    return found == panes.end() ? nullptr : found->second;
}

bool Session::has(const Part* part) const {
    return std::find(parts.begin(), parts.end(), part) != parts.end();
}

void Session::remove(const Part* part) {
    std::erase(parts, part);
    std::erase_if(answers, [&](const Answer& answer) { return answer.from == part; });
    exchange.forget(part);
}

void Session::processEvents() {
    // What comes faster than it is worked off waits for the next time: the host's own window stands
    // still meanwhile.
    constexpr uint32_t kMostMs = 100;
    for (const uint32_t start = millisecondTick();
         !isGone() && millisecondTick() - start < kMostMs;) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(xcb()));
        if (!event) {
            break;
        }
        handle(*event);
        giveAnswers();
    }
    giveMotion();
    tick();
    giveAnswers();
    link->flush();
}

void Session::forEachPart(const std::function<void(Part&)>& act) {
    // A part may go, and others come, while one is at work.
    for (Part* part : std::vector(parts)) {
        if (has(part)) {
            act(*part);
        }
    }
}

void Session::end() {
    ended = true;
    forEachPart([](Part& part) { part.close(); });
    link->flush();
}

void Session::offerKeyboard() {
    forEachPart([](Part& part) { part.keyboardOffered(); });
    link->flush();
}

void Session::tick() {
    const uint32_t now = millisecondTick();
    forEachPart([&](Part& part) { part.tick(now); });
}

void Session::giveAnswers() {
    while (!answers.empty()) {
        const Answer answer = std::move(answers.front());
        answers.erase(answers.begin());
        answer.call();
    }
}

void Session::paint() {
    if (painting || isGone()) {
        return;
    }
    painting = true;
    for (const auto& [window, pane] : std::map(panes)) {
        if (paneOf(window) == pane) {
            pane->paintDamage();
        }
    }
    painting = false;
    link->flush();
}

void Session::endTransients(const Part* pressedPart) {
    forEachPart([&](Part& part) {
        if (&part != pressedPart) {
            part.pressedOutside();
        }
    });
}

void Session::handle(const xcb_generic_event_t& event) {
    const uint8_t type = event.response_type & 0x7f;
    if (type == XCB_MOTION_NOTIFY) {
        handleMotion(as<xcb_motion_notify_event_t>(event));
        return;
    }
    giveMotion();
    switch (type) {
        case XCB_BUTTON_PRESS:
            return handlePress(as<xcb_button_press_event_t>(event));
        case XCB_BUTTON_RELEASE:
            return handleRelease(as<xcb_button_release_event_t>(event));
        case XCB_ENTER_NOTIFY:
        case XCB_LEAVE_NOTIFY:
            return handleCrossing(as<xcb_enter_notify_event_t>(event));
        case XCB_KEY_PRESS:
            return handleKey(as<xcb_key_press_event_t>(event));
        case XCB_SELECTION_CLEAR:
            return exchange.lost(as<xcb_selection_clear_event_t>(event));
        case XCB_SELECTION_REQUEST:
            return exchange.asked(as<xcb_selection_request_event_t>(event));
        case XCB_SELECTION_NOTIFY:
            return exchange.arrived(as<xcb_selection_notify_event_t>(event));
        case XCB_MAPPING_NOTIFY:
            return keyboard.forgetLayout();
        default:  // also 0, an error: it was about a window that went
            return handleWindow(event);
    }
}

void Session::handleWindow(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
        case XCB_EXPOSE: {
            const auto& e = as<xcb_expose_event_t>(event);
            if (Pane* pane = paneOf(e.window)) {
                pane->expose({e.x, e.y, e.x + e.width, e.y + e.height});
            }
            break;
        }
        case XCB_FOCUS_IN:
        case XCB_FOCUS_OUT: {
            const auto& e = as<xcb_focus_in_event_t>(event);
            if (Pane* pane = paneOf(e.event)) {
                pane->focusChanged((e.response_type & 0x7f) == XCB_FOCUS_IN);
            }
            break;
        }
        case XCB_DESTROY_NOTIFY:
            if (Pane* pane = paneOf(as<xcb_destroy_notify_event_t>(event).window)) {
                pane->destroyed();
            }
            break;
        case XCB_CLIENT_MESSAGE: {
            const auto& e = as<xcb_client_message_event_t>(event);
            Pane* pane = paneOf(e.window);
            if (pane && e.type == link->atom(Atom::WmProtocols) &&
                e.data.data32[0] == link->atom(Atom::WmDeleteWindow)) {
                pane->closeAsked();
            }
            break;
        }
        default:
            break;
    }
}

void Session::handleMotion(const xcb_motion_notify_event_t& event) {
    // Only the last place counts, unless a button or another window comes between.
    if (motion && (motion->event != event.event || motion->state != event.state)) {
        giveMotion();
    }
    motion = event;
}

void Session::giveMotion() {
    if (const auto last = std::exchange(motion, std::nullopt)) {
        lastTime = last->time;
        if (Pane* pane = paneOf(last->event)) {
            pane->mouseMoved(mouseOf(*last));
        }
        giveAnswers();
    }
}

void Session::handlePress(const xcb_button_press_event_t& event) {
    lastTime = event.time;
    Pane* pane = paneOf(event.event);
    if (!pane) {
        return;
    }
    MouseState mouse = mouseOf(event);
    switch (event.detail) {
        case kUp:
        case kToLeft:
            return pane->wheel(mouse, 1.0f);
        case kDown:
        case kToRight:
            return pane->wheel(mouse, -1.0f);
        default:
            break;
    }
    if (!buttonBit(event.detail)) {
        return;
    }
    mouse.buttons |= buttonBit(event.detail) | (isDoubleClick(event) ? mouse::kDoubleClick : 0);
    endTransients(pane);
    giveAnswers();
    pane = paneOf(event.event);
    if (pane) {
        pressed = event.event;
        pane->mouseDown(mouse);
    }
}

bool Session::isDoubleClick(const xcb_button_press_event_t& event) {
    const bool second = lastPress.detail == event.detail && lastPress.event == event.event &&
                        event.time - lastPress.time <= kDoubleClickTime &&
                        std::abs(event.event_x - lastPress.event_x) <= kDoubleClickDistance &&
                        std::abs(event.event_y - lastPress.event_y) <= kDoubleClickDistance;
    // A third click begins anew.
    lastPress = second ? xcb_button_press_event_t{} : event;
    return second;
}

void Session::handleRelease(const xcb_button_release_event_t& event) {
    lastTime = event.time;
    if (!buttonBit(event.detail)) {
        return;
    }
    MouseState mouse = mouseOf(event);
    mouse.buttons |= buttonBit(event.detail);
    // A menu that opened under a held button has got its release; who got the press waits for it.
    Pane* origin = pressed == event.event ? nullptr : paneOf(pressed);
    pressed = XCB_WINDOW_NONE;
    if (origin) {
        int32_t left = 0, top = 0;
        link->toScreen(origin->id(), left, top);
        origin->mouseUp({event.root_x - left, event.root_y - top, mouse.buttons});
    }
    if (Pane* pane = paneOf(event.event)) {
        pane->mouseUp(mouse);
    }
}

void Session::handleCrossing(const xcb_enter_notify_event_t& event) {
    lastTime = event.time;
    Pane* pane = paneOf(event.event);
    if (!pane || event.detail == XCB_NOTIFY_DETAIL_INFERIOR) {
        return;
    }
    if ((event.response_type & 0x7f) == XCB_ENTER_NOTIFY) {
        // To enter is to move there; mostly a motion to the same place follows.
        xcb_motion_notify_event_t entered{};
        entered.time = event.time;
        entered.event = event.event;
        entered.event_x = event.event_x;
        entered.event_y = event.event_y;
        entered.state = event.state;
        handleMotion(entered);
        return;
    }
    // A drag goes on outside; the server tells of the leaving once more when it ends.
    const bool dragged = mouseWord(event.state) & (mouse::kLeft | mouse::kMiddle | mouse::kRight);
    if (!dragged || event.mode != XCB_NOTIFY_MODE_NORMAL) {
        pane->mouseLeft();
    }
}

void Session::handleKey(const xcb_key_press_event_t& event) {
    lastTime = event.time;
    if (Pane* pane = paneOf(event.event)) {
        pane->keyPressed(keyboard.press(event));
    }
}

Part::Part(std::shared_ptr<Session> theSession) : shared(std::move(theSession)) {
    shared->parts.push_back(this);
}

Part::~Part() {
    shared->remove(this);
}

void Part::answerWith(std::function<void()> call) {
    shared->answers.push_back({this, std::move(call)});
}

}  // namespace tessel8::x11
