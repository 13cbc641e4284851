#pragma once

// Another program on the same display: it stands for the host and for the user's hands.

#include <gtest/gtest.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "platform/Clock.h"

namespace tessel8::testing {

template <typename T>
std::shared_ptr<T> owned(T* reply) {
    return {reply, std::free};
}

class XClient {
  public:
    xcb_connection_t* const x = xcb_connect(nullptr, nullptr);
    xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
    /// Where every window of this client lies on the screen; places below count from there.
    static constexpr int16_t kLeft = 100, kTop = 50;

    ~XClient() { xcb_disconnect(x); }

    /// Waits until the server has done what was asked; gives who has the keyboard then.
    xcb_window_t sync() {
        const auto reply = owned(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
        return reply ? reply->focus : 0;
    }
    xcb_window_t focus() { return sync(); }

    /// A grey window free of the window manager, of depth 24 or 32; not shown yet.
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
            x, depth, window, screen->root, kLeft, kTop, width, height, 0,
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

    void moveTo(int px, int py) { fake(XCB_MOTION_NOTIFY, 0, kLeft + px, kTop + py); }
    void press(uint8_t button = 1) { fake(XCB_BUTTON_PRESS, button); }
    void release(uint8_t button = 1) { fake(XCB_BUTTON_RELEASE, button); }
    void click(int px, int py, uint8_t button = 1) {
        moveTo(px, py);
        press(button);
        release(button);
    }
    /// Types keys by the names of their symbols with spaces between; "C-" and "S-" before one hold
    /// Control and Shift.
    void type(const std::string& keys) {
        std::istringstream words(keys);
        for (std::string word; words >> word;) {
            std::vector<std::string> held;
            for (; word.size() > 2 && word[1] == '-'; word.erase(0, 2)) {
                held.emplace_back(word[0] == 'C' ? "Control_L" : "Shift_L");
            }
            hold(held);
            hold({word});
            hold({word}, false);
            hold(held, false);
        }
    }
    void hold(const std::vector<std::string>& names, bool down = true) {
        for (const std::string& name : names) {
            fake(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keyOf(name));
        }
    }

    /// The one that lies over all others.
    xcb_window_t topWindow() {
        const auto tree = owned(xcb_query_tree_reply(x, xcb_query_tree(x, screen->root), nullptr));
        return xcb_query_tree_children(tree.get())[tree->children_len - 1];
    }
    /// As a window manager does.
    void askToClose(xcb_window_t window) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.type = atom("WM_PROTOCOLS");
        message.window = window;
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(x, 0, window, 0, reinterpret_cast<const char*>(&message));
        sync();
    }

    /// The colour that is on the screen.
    uint32_t pixel(int px, int py) {
        const auto image = owned(
            xcb_get_image_reply(x,
                                xcb_get_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                                              int16_t(kLeft + px), int16_t(kTop + py), 1, 1, ~0u),
                                nullptr));
        return image ? *reinterpret_cast<uint32_t*>(xcb_get_image_data(image.get())) & 0xffffff
                     : ~0u;
    }

    /// Asks the owner of a selection for its text; `wait` lets it work.
    std::string selection(const std::string& name, const std::string& type,
                          const std::function<void()>& wait) {
        const xcb_window_t asker = makeParent(1, 1);
        xcb_convert_selection(x, asker, atom(name), atom(type), atom("TEST"), XCB_CURRENT_TIME);
        sync();
        for (int tries = 0; tries < 500; ++tries, sleepMilliseconds(2)) {
            wait();
            const auto event = owned(xcb_poll_for_event(x));
            if (event && (event->response_type & 0x7f) == XCB_SELECTION_NOTIFY) {
                const auto text = owned(xcb_get_property_reply(
                    x, xcb_get_property(x, 1, asker, atom("TEST"), atom(type), 0, 999), nullptr));
                return {static_cast<char*>(xcb_get_property_value(text.get())),
                        size_t(xcb_get_property_value_length(text.get()))};
            }
        }
        return "no answer";
    }
    xcb_atom_t atom(const std::string& name) {
        const auto asked = xcb_intern_atom(x, 0, uint16_t(name.size()), name.data());
        return owned(xcb_intern_atom_reply(x, asked, nullptr))->atom;
    }

  private:
    void fake(uint8_t type, uint8_t detail, int px = 0, int py = 0) {
        xcb_test_fake_input(x, type, detail, XCB_CURRENT_TIME, screen->root, int16_t(px),
                            int16_t(py), 0);
        sync();
    }
    uint8_t keyOf(const std::string& name) {
        const xkb_keysym_t symbol = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_NO_FLAGS);
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
        ADD_FAILURE() << "no key gives " << name;
        return 0;
    }
};

}  // namespace tessel8::testing
