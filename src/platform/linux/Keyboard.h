#pragma once

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon.h>

#include <memory>
#include <string>

#include "platform/linux/Connection.h"

namespace tessel8::x11 {

struct KeyPress {
    xkb_keysym_t symbol = XKB_KEY_NoSymbol;  ///< with Control held, the Latin one of the key
    std::string text;                        ///< what the key types, in UTF-8; mostly empty or one
    bool shift = false, control = false, alt = false;
};

/// The keyboard as its user has set it: layout and dead keys. Read from the server when the first
/// key comes; where the server doesn't tell, the system's default layout stands in.
class Keyboard {
  public:
    explicit Keyboard(const Connection& theConnection) : connection(theConnection) {}

    KeyPress press(const xcb_key_press_event_t& event);
    /// The user has changed the layout: it is read again with the next key.
    void forgetLayout() { keymap.reset(); }

  private:
    template <auto release>
    struct Release {
        template <typename T>
        void operator()(T* object) const {
            release(object);
        }
    };

    bool readLayout();
    xkb_keysym_t latinSymbol(xkb_keycode_t key, xkb_keysym_t otherwise) const;
    /// Runs a key through the dead-key sequences; false while one is under way.
    bool compose(KeyPress& press);

    const Connection& connection;
    std::unique_ptr<xkb_context, Release<xkb_context_unref>> context;
    std::unique_ptr<xkb_keymap, Release<xkb_keymap_unref>> keymap;
    std::unique_ptr<xkb_state, Release<xkb_state_unref>> state;
    std::unique_ptr<xkb_compose_state, Release<xkb_compose_state_unref>> composing;
};

}  // namespace tessel8::x11
