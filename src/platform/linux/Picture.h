#pragma once

#include <xcb/shm.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Surface.h"
#include "platform/linux/Connection.h"

namespace tessel8::x11 {

/// The pixels of a window: in memory that the server reads as well, or sent through the
/// connection where it can't.
class Picture {
  public:
    /// Black at first.
    Picture(const Connection& connection, int32_t width, int32_t height);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    const Surface& surface() const { return pixels; }
    /// Copies a part to the same place of `window`.
    void show(xcb_window_t window, xcb_gcontext_t context, const PixelRect& part);
    /// Waits until the server has read what was shown: the pixels may change then.
    void settle();

  private:
    void share(size_t bytes);
    void send(xcb_window_t window, xcb_gcontext_t context, const PixelRect& part);

    const Connection& connection;
    Surface pixels;
    std::vector<uint32_t> own, packed;
    size_t mappedBytes = 0;  ///< 0 while the pixels are not shared
    xcb_shm_seg_t segment = 0;
    std::optional<xcb_get_input_focus_cookie_t> reading;
};

}  // namespace tessel8::x11
