#pragma once

// Another program on the same display: it stands for the host and for the user's hands.

#include <gtest/gtest.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Window.h"

namespace tessel8::testing {

template <typename T>
std::shared_ptr<T> owned(T* reply) {
    return {reply, std::free};
}

class XClient {
  public:
    xcb_connection_t* const x = xcb_connect(nullptr, nullptr);
    xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;

    ~XClient() { xcb_disconnect(x); }

    void sync() { owned(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr)); }

    /// A host's window at 100, 50, free of the window manager. Depth 24 or 32.
    xcb_window_t makeParent(uint16_t width, uint16_t height, uint8_t depth = 24) {
        auto depths = xcb_screen_allowed_depths_iterator(screen);
        while (depths.data->depth != depth) {
            xcb_depth_next(&depths);
        }
        const xcb_visualid_t visual = xcb_depth_visuals(depths.data)->visual_id;
        const xcb_colormap_t colours = xcb_generate_id(x);
        xcb_create_colormap(x, XCB_COLORMAP_ALLOC_NONE, colours, screen->root, visual);
        const uint32_t values[] = {0x777777, 0, 1, colours};
        const xcb_window_t window = xcb_generate_id(x);
        xcb_create_window(
            x, depth, window, screen->root, 100, 50, width, height, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
            XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
            values);
        sync();
        return window;
    }
    void map(xcb_window_t window) {
        xcb_map_window(x, window);
        sync();
    }

    void fake(uint8_t type, uint8_t detail, int16_t px = 0, int16_t py = 0) {
        xcb_test_fake_input(x, type, detail, XCB_CURRENT_TIME, screen->root, px, py, 0);
        sync();
    }
    /// To a place of a parent made above.
    void moveTo(int x0, int y0) { fake(XCB_MOTION_NOTIFY, 0, int16_t(100 + x0), int16_t(50 + y0)); }
    void press(uint8_t button = 1) { fake(XCB_BUTTON_PRESS, button); }
    void release(uint8_t button = 1) { fake(XCB_BUTTON_RELEASE, button); }
    void click(int x0, int y0, uint8_t button = 1) {
        moveTo(x0, y0);
        press(button);
        release(button);
    }
    void hold(const std::vector<uint32_t>& symbols) {
        for (const uint32_t symbol : symbols) {
            fake(XCB_KEY_PRESS, keyOf(symbol));
        }
    }
    void letGo(const std::vector<uint32_t>& symbols) {
        for (const uint32_t symbol : symbols) {
            fake(XCB_KEY_RELEASE, keyOf(symbol));
        }
    }
    /// Types keys by the symbols of the layout, with other keys held.
    void type(const std::vector<uint32_t>& symbols, const std::vector<uint32_t>& held = {}) {
        hold(held);
        for (const uint32_t symbol : symbols) {
            hold({symbol});
            letGo({symbol});
        }
        letGo(held);
    }

    /// The colour that is on the screen at a place of a parent.
    uint32_t pixel(int x0, int y0) {
        const auto image =
            owned(xcb_get_image_reply(x,
                                      xcb_get_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                                                    int16_t(100 + x0), int16_t(50 + y0), 1, 1, ~0u),
                                      nullptr));
        return image ? *reinterpret_cast<uint32_t*>(xcb_get_image_data(image.get())) & 0xffffff
                     : ~0u;
    }
    xcb_window_t focus() {
        return owned(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr))->focus;
    }
    xcb_atom_t atom(const std::string& name) {
        return owned(xcb_intern_atom_reply(
                         x, xcb_intern_atom(x, 0, uint16_t(name.size()), name.data()), nullptr))
            ->atom;
    }

    /// Asks the owner of a selection; `wait` lets it work. Gives the bytes, or "" if refused.
    std::string askFor(const std::string& selection, const std::string& target,
                       const std::function<void()>& wait) {
        xcb_convert_selection(x, own, atom(selection), atom(target), atom("TEST"),
                              XCB_CURRENT_TIME);
        sync();
        for (int tries = 0; tries < 500; ++tries, sleepMilliseconds(2)) {
            wait();
            const auto event = owned(xcb_poll_for_event(x));
            if (event && (event->response_type & 0x7f) == XCB_SELECTION_NOTIFY) {
                const auto value = owned(xcb_get_property_reply(
                    x, xcb_get_property(x, 1, own, atom("TEST"), 0, 0, 999), nullptr));
                return {static_cast<char*>(xcb_get_property_value(value.get())),
                        size_t(xcb_get_property_value_length(value.get()))};
            }
        }
        return "no answer";
    }
    /// Owns a selection from now on; `serve` answers those who ask for UTF8_STRING.
    void offer(const std::string& selection, const std::string& text) {
        offered = text;
        xcb_set_selection_owner(x, own, atom(selection), XCB_CURRENT_TIME);
        sync();
    }
    bool serve() {
        while (const auto event = owned(xcb_poll_for_event(x))) {
            if ((event->response_type & 0x7f) != XCB_SELECTION_REQUEST) {
                continue;
            }
            const auto& ask = *reinterpret_cast<xcb_selection_request_event_t*>(event.get());
            xcb_change_property(x, XCB_PROP_MODE_REPLACE, ask.requestor, ask.property,
                                atom("UTF8_STRING"), 8, uint32_t(offered.size()), offered.data());
            xcb_selection_notify_event_t reply[2]{};
            reply[0] = {XCB_SELECTION_NOTIFY, 0,          0,           ask.time, ask.requestor,
                        ask.selection,        ask.target, ask.property};
            xcb_send_event(x, 0, ask.requestor, 0, reinterpret_cast<const char*>(reply));
            sync();
        }
        return true;
    }

  private:
    std::string offered;
    const xcb_window_t own = makeParent(1, 1);

    uint8_t keyOf(uint32_t symbol) {
        const auto* setup = xcb_get_setup(x);
        const auto count = uint8_t(setup->max_keycode - setup->min_keycode + 1);
        const auto map = owned(xcb_get_keyboard_mapping_reply(
            x, xcb_get_keyboard_mapping(x, setup->min_keycode, count), nullptr));
        const auto* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
        for (int i = 0; i < count * map->keysyms_per_keycode; ++i) {
            if (symbols[i] == symbol) {
                return uint8_t(setup->min_keycode + i / map->keysyms_per_keycode);
            }
        }
        ADD_FAILURE() << "no key gives " << symbol;
        return 0;
    }
};

/// Writes down what it is told, and paints every damaged part in the colour of the moment.
struct Recorder : WindowListener {
    std::vector<std::string> calls;
    std::vector<PixelRect> painted;
    uint32_t colour = 0x123456;

    void note(const std::string& what, const MouseState& m) {
        calls.push_back(what + " " + std::to_string(m.x) + "," + std::to_string(m.y) + " " +
                        std::to_string(m.buttons));
    }
    void paint(const Surface& surface, const PixelRect& damaged) override {
        painted.push_back(damaged);
        for (int32_t y = damaged.top; y < damaged.bottom; ++y) {
            std::fill(surface.row(y) + damaged.left, surface.row(y) + damaged.right, colour);
        }
    }
    void mouseDown(const MouseState& m) override { note("down", m); }
    void mouseMoved(const MouseState& m) override { note("moved", m); }
    void mouseUp(const MouseState& m) override { note("up", m); }
    void mouseLeft() override { calls.emplace_back("left"); }
    void wheel(const MouseState& m, float distance) override {
        note("wheel" + std::to_string(int(distance)), m);
    }
};

/// A host with an open panel of 200 by 150.
struct Host : ::testing::Test {
    XClient user;
    Recorder panel;
    xcb_window_t parent = user.makeParent(200, 150);
    std::unique_ptr<Window> window = open(parent);

    Host() {
        user.map(parent);
        EXPECT_TRUE(until([&] { return user.pixel(100, 100) == panel.colour; }));
    }

    std::unique_ptr<Window> open(xcb_window_t in) {
        return Window::create(reinterpret_cast<void*>(uintptr_t(in)), 200, 150, "Panel", panel);
    }
    /// Lets the panel work as a host's timer does, until something is the case.
    bool until(const std::function<bool()>& isTheCase) {
        for (const uint32_t start = millisecondTick(); millisecondTick() - start < 3000;) {
            window->processEvents();
            if (isTheCase()) {
                return true;
            }
            sleepMilliseconds(2);
        }
        return false;
    }
    /// Does something and gives what the panel was told, up to the call that begins with `last`.
    std::vector<std::string> told(const std::string& last, const std::function<void()>& act) {
        panel.calls.clear();
        act();
        EXPECT_TRUE(until([&] {
            return !panel.calls.empty() && panel.calls.back().rfind(last, 0) == 0;
        })) << last;
        return panel.calls;
    }
};

}  // namespace tessel8::testing
