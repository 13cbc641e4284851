#include "PanelWindow.h"

#include <array>
#include <chrono>
#include <cstdlib>

#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr uint8_t kLeftButton = 1;
constexpr uint8_t kSentMark = 0x80;  // in the type of events that a program has sent

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

xcb_connection_t* connectToDisplay() {
    const char* const name = std::getenv("DISPLAY");
    if (name == nullptr || *name == 0) {
        throw UserError("the panel needs an X display, and DISPLAY names none");
    }
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        throw UserError("cannot connect to the X display " + inQuotes(name));
    }
    return connection;
}

/// Milliseconds as servers count them, so that an effect can tell two clicks from a double click.
xcb_timestamp_t eventTime() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return xcb_timestamp_t(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace

PanelWindow::PanelWindow(const std::string& title)
    : connection_(connectToDisplay()),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(x())).data),
      window_(xcb_generate_id(x())),
      protocols_(atom("WM_PROTOCOLS")),
      deleteWindow_(atom("WM_DELETE_WINDOW")) {
    const uint32_t black = screen_->black_pixel;
    xcb_create_window(x(), XCB_COPY_FROM_PARENT, window_, screen_->root, 0, 0, width_, height_, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual, XCB_CW_BACK_PIXEL,
                      &black);
    xcb_change_property(x(), XCB_PROP_MODE_REPLACE, window_, protocols_, XCB_ATOM_ATOM, 32, 1,
                        &deleteWindow_);
    setTitle(title);
    finishRequests();  // the effect knows the window through a connection of its own
}

void* PanelWindow::handle() const {
    return reinterpret_cast<void*>(uintptr_t(window_));
}

void PanelWindow::show(uint16_t width, uint16_t height) {
    width_ = width;
    height_ = height;
    setFixedSize(width, height);
    const uint32_t size[] = {width, height};
    xcb_configure_window(x(), window_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_map_window(x(), window_);
    finishRequests();
}

bool PanelWindow::processEvents() {
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x())}) {
        if ((event->response_type & ~kSentMark) != XCB_CLIENT_MESSAGE) {
            continue;
        }
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if (message.type == protocols_ && message.data.data32[0] == deleteWindow_) {
            return false;
        }
    }
    finishRequests();
    return true;
}

void PanelWindow::press(Point place) {
    pressed_ = spotAt(place);
    send(XCB_MOTION_NOTIFY, XCB_EVENT_MASK_POINTER_MOTION, 0);
    send(XCB_BUTTON_PRESS, XCB_EVENT_MASK_BUTTON_PRESS, 0);
    finishRequests();
}

void PanelWindow::release() {
    send(XCB_BUTTON_RELEASE, XCB_EVENT_MASK_BUTTON_RELEASE, XCB_BUTTON_MASK_1);
    finishRequests();
}

Picture PanelWindow::picture() const {
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        x(), xcb_get_image(x(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_, 0, 0, width_, height_, ~0U),
        nullptr));
    finishRequests();
    if (!image) {
        throw UserError("cannot take a picture of the panel: some of it is not on the screen");
    }
    const size_t pixels = size_t(width_) * height_;
    if (image->depth != 24 || size_t(xcb_get_image_data_length(image.get())) < 4 * pixels ||
        xcb_get_setup(x())->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST) {
        throw UserError("cannot take a picture of the panel: the display has no 24-bit colours");
    }
    const uint8_t* const data = xcb_get_image_data(image.get());
    Picture picture{width_, height_, std::vector<uint8_t>(3 * pixels)};
    for (size_t i = 0; i < pixels; ++i) {
        for (size_t colour = 0; colour < 3; ++colour) {
            picture.rgb[3 * i + colour] = data[4 * i + 2 - colour];  // from blue, green, red, none
        }
    }
    return picture;
}

xcb_atom_t PanelWindow::atom(const std::string& name) const {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        x(), xcb_intern_atom(x(), 0, uint16_t(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void PanelWindow::setTitle(const std::string& title) const {
    const auto length = uint32_t(title.size());
    xcb_change_property(x(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        length, title.data());
    xcb_change_property(x(), XCB_PROP_MODE_REPLACE, window_, atom("_NET_WM_NAME"),
                        atom("UTF8_STRING"), 8, length, title.data());
}

void PanelWindow::setFixedSize(uint16_t width, uint16_t height) const {
    // The fields of WM_SIZE_HINTS: what is told, four that are of the past, least and most size.
    constexpr uint32_t kLeastAndMostSize = 1U << 4 | 1U << 5;
    const std::array<uint32_t, 18> hints = {
        kLeastAndMostSize, 0, 0, 0, 0, width, height, width, height};
    xcb_change_property(x(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, uint32_t(hints.size()), hints.data());
}

PanelWindow::Spot PanelWindow::spotAt(Point place) const {
    const auto translate = [&](xcb_window_t target) {
        Reply<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
            x(), xcb_translate_coordinates(x(), window_, target, place.x, place.y), nullptr));
        finishRequests();
        return reply;
    };
    Spot spot{window_, place, {}};
    if (const auto reply = translate(screen_->root)) {
        spot.onScreen = {reply->dst_x, reply->dst_y};
    }
    for (auto reply = translate(window_); reply; reply = translate(spot.window)) {
        spot.inWindow = {reply->dst_x, reply->dst_y};
        if (reply->child == XCB_WINDOW_NONE) {
            break;
        }
        spot.window = reply->child;
    }
    if (spot.window == window_) {
        throw UserError("--click " + std::to_string(place.x) + "," + std::to_string(place.y) +
                        ": the panel of " + std::to_string(width_) + " x " +
                        std::to_string(height_) + " pixels has nothing there");
    }
    return spot;
}

void PanelWindow::send(uint8_t type, uint32_t mask, uint16_t heldButtons) const {
    // Motions have the same form, with a hint where the button stands.
    const uint8_t detail = type == XCB_MOTION_NOTIFY ? uint8_t(XCB_MOTION_NORMAL) : kLeftButton;
    xcb_button_press_event_t event{};
    event.response_type = type;
    event.detail = detail;
    event.time = eventTime();
    event.root = screen_->root;
    event.event = pressed_.window;
    event.root_x = pressed_.onScreen.x;
    event.root_y = pressed_.onScreen.y;
    event.event_x = pressed_.inWindow.x;
    event.event_y = pressed_.inWindow.y;
    event.state = heldButtons;
    event.same_screen = 1;
    xcb_send_event(x(), 0, pressed_.window, mask, reinterpret_cast<const char*>(&event));
}

void PanelWindow::finishRequests() const {
    // The answer to any question comes when all requests before it are done.
    const Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(x(), xcb_get_input_focus(x()), nullptr));
    if (!answer || xcb_connection_has_error(x()) != 0) {
        throw UserError("the X display has gone away");
    }
}

}  // namespace tessel8::host
