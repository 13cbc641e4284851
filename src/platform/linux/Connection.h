#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/Surface.h"

namespace tessel8::x11 {

/// What the client library hands out must be freed the C way.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

enum class Atom : uint8_t {
    WmProtocols,
    WmDeleteWindow,
    WmState,
    NetWmName,
    NetWmWindowType,
    NetWmWindowTypeDialog,
    NetWmWindowTypePopupMenu,
    NetWmStateModal,
    NetWmState,
    XembedInfo,
    Utf8String,
    Clipboard,
    Targets,
    Timestamp,
    Text,
    PlainText,
    Incr,
    Transfer,
    Count
};

/// A connection to the X server of DISPLAY, and what is the same for all windows on it. Requests
/// on a lost connection do nothing; errors that the server reports are discarded.
class Connection {
  public:
    /// Null if the server cannot be reached or shows no colours of 8 bits a channel.
    static std::unique_ptr<Connection> open();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    xcb_connection_t* xcb() const { return connection; }
    bool isLost() const { return xcb_connection_has_error(connection) != 0; }
    void flush() const { xcb_flush(connection); }
    xcb_atom_t atom(Atom name) const { return atoms[size_t(name)]; }

    xcb_window_t root() const { return screen->root; }
    PixelRect screenBounds() const {
        return {0, 0, screen->width_in_pixels, screen->height_in_pixels};
    }
    uint8_t depth() const { return visualDepth; }
    xcb_visualid_t visual() const { return visualId; }
    xcb_colormap_t colormap() const { return colours; }
    /// True if pictures can be handed over in memory that both sides see.
    bool sharesMemory() const { return sharing; }

    /// The place of a point of `window` on the screen; the point itself if the window is gone.
    void toScreen(xcb_window_t window, int32_t& x, int32_t& y) const;
    /// The window above `window` that the window manager knows, or `window`.
    xcb_window_t topLevelOf(xcb_window_t window) const;
    xcb_window_t focus() const;

    void setTitle(xcb_window_t window, const std::string& title) const;
    /// Asks the window manager for a window that can be closed and keeps this size in pixels.
    void makeTopLevel(xcb_window_t window, int32_t width, int32_t height) const;
    void setAtoms(xcb_window_t window, Atom property, Atom value) const;

  private:
    Connection(xcb_connection_t* opened, int screenNumber);
    void internAtoms();
    void chooseVisual();
    bool findVisual(uint8_t wantedDepth);
    bool hasPixelsOf32Bits(uint8_t ofDepth) const;
    bool canShareMemory() const;

    xcb_connection_t* connection;
    const xcb_screen_t* screen = nullptr;
    xcb_visualid_t visualId = 0;
    xcb_colormap_t colours = 0;
    std::array<xcb_atom_t, size_t(Atom::Count)> atoms{};
    uint8_t visualDepth = 0;
    bool sharing = false;
};

}  // namespace tessel8::x11
