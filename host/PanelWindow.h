#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <string>

#include "Png.h"

namespace tessel8::host {

/// A place in pixels from the upper left corner.
struct Point {
    int16_t x = 0;
    int16_t y = 0;
};

/// A window of the host on the X display, in which an effect opens its panel. Every call throws
/// UserError once the display has gone away.
class PanelWindow {
  public:
    /// Not on the screen yet, and without a size. Throws UserError without a display.
    explicit PanelWindow(const std::string& title);

    /// What the effect gets as the parent of its own window.
    void* handle() const;

    /// Brings it to the screen; the user cannot change its size. 1 to 32767 pixels each.
    void show(uint16_t width, uint16_t height);

    /// Works off what the display has told; false once the user has closed the window.
    bool processEvents();

    /// The left button goes down over the effect's window, as if the pointer were there, and up
    /// again; the pointer itself stays. Throws UserError where the effect has no window.
    void press(Point place);
    void release();

    /// What the screen shows of it. Throws UserError where some of it is not on the screen.
    Picture picture() const;

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    /// A place in the innermost window that is there.
    struct Spot {
        xcb_window_t window = XCB_WINDOW_NONE;
        Point inWindow;
        Point onScreen;
    };

    xcb_connection_t* x() const { return connection_.get(); }
    xcb_atom_t atom(const std::string& name) const;
    void setTitle(const std::string& title) const;
    void setFixedSize(uint16_t width, uint16_t height) const;
    Spot spotAt(Point place) const;
    void send(uint8_t type, uint32_t mask, uint16_t heldButtons) const;
    void finishRequests() const;

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t* screen_;
    xcb_window_t window_;
    xcb_atom_t protocols_;
    xcb_atom_t deleteWindow_;
    uint16_t width_ = 1;
    uint16_t height_ = 1;
    Spot pressed_;
};

}  // namespace tessel8::host
