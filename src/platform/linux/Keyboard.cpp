#include "platform/linux/Keyboard.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <cstdlib>

namespace tessel8::x11 {

namespace {

xkb_keymap* layoutOfServer(xkb_context* context, xcb_connection_t* connection) {
    if (!xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr)) {
        return nullptr;
    }
    const int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    return device < 0 ? nullptr
                      : xkb_x11_keymap_new_from_device(context, connection, device,
                                                       XKB_KEYMAP_COMPILE_NO_FLAGS);
}

const char* localeOfUser() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value) {
            return value;
        }
    }
    return "C";
}

xkb_compose_state* deadKeys(xkb_context* context) {
    xkb_compose_table* table =
        xkb_compose_table_new_from_locale(context, localeOfUser(), XKB_COMPOSE_COMPILE_NO_FLAGS);
    if (!table) {
        return nullptr;
    }
    xkb_compose_state* state = xkb_compose_state_new(table, XKB_COMPOSE_STATE_NO_FLAGS);
    xkb_compose_table_unref(table);
    return state;
}

bool isPrintable(const std::string& text) {
    return !text.empty() && uint8_t(text[0]) >= ' ' && text[0] != 0x7f;
}

}  // namespace

bool Keyboard::readLayout() {
    if (!context) {
        // The server's layout needs none of the system's files: without them only the default
        // layout is missing.
        context.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
        if (!context) {
            return false;
        }
        // What the library has to say about those files belongs on no host's terminal.
        xkb_context_set_log_fn(context.get(),
                               [](xkb_context*, xkb_log_level, const char*, va_list) {});
        xkb_context_include_path_append_default(context.get());
        composing.reset(deadKeys(context.get()));
    }
    keymap.reset(layoutOfServer(context.get(), connection.xcb()));
    if (!keymap) {
        keymap.reset(
            xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    state.reset(keymap ? xkb_state_new(keymap.get()) : nullptr);
    return state != nullptr;
}

KeyPress Keyboard::press(const xcb_key_press_event_t& event) {
    KeyPress press;
    press.shift = event.state & XCB_MOD_MASK_SHIFT;
    press.control = event.state & XCB_MOD_MASK_CONTROL;
    press.alt = event.state & XCB_MOD_MASK_1;
    if (!keymap && !readLayout()) {
        return press;
    }
    // The event says all: the eight real modifiers, and the layout's group in two bits.
    xkb_state_update_mask(state.get(), event.state & 0xff, 0, 0, 0, 0, event.state >> 13 & 3);
    press.symbol = xkb_state_key_get_one_sym(state.get(), event.detail);
    if (press.control) {
        press.symbol = latinSymbol(event.detail, press.symbol);
        return press;
    }
    char text[16];
    xkb_state_key_get_utf8(state.get(), event.detail, text, sizeof text);
    press.text = text;
    if (!compose(press)) {
        press.symbol = XKB_KEY_NoSymbol;
        press.text.clear();
    }
    if (press.alt || !isPrintable(press.text)) {
        press.text.clear();
    }
    return press;
}

xkb_keysym_t Keyboard::latinSymbol(xkb_keycode_t key, xkb_keysym_t otherwise) const {
    const auto isLatin = [](xkb_keysym_t symbol) { return symbol < 0x80; };
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap.get(), key);
    for (xkb_layout_index_t i = 0; !isLatin(otherwise) && i < layouts; ++i) {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap.get(), key, i, 0, &symbols);
        if (count == 1 && isLatin(symbols[0])) {
            return symbols[0];
        }
    }
    return xkb_keysym_to_lower(otherwise);
}

bool Keyboard::compose(KeyPress& press) {
    if (!composing ||
        xkb_compose_state_feed(composing.get(), press.symbol) == XKB_COMPOSE_FEED_IGNORED) {
        return true;
    }
    switch (xkb_compose_state_get_status(composing.get())) {
        case XKB_COMPOSE_COMPOSED: {
            char text[64];
            xkb_compose_state_get_utf8(composing.get(), text, sizeof text);
            press.text = text;
            press.symbol = XKB_KEY_NoSymbol;
            xkb_compose_state_reset(composing.get());
            return true;
        }
        case XKB_COMPOSE_NOTHING:
            return true;
        case XKB_COMPOSE_CANCELLED:
            xkb_compose_state_reset(composing.get());
            return false;
        default:
            return false;
    }
}

}  // namespace tessel8::x11
