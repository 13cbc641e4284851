#include "platform/linux/Picture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace tessel8::x11 {

Picture::Picture(const Connection& theConnection, int32_t width, int32_t height)
    : connection(theConnection), pixels{nullptr, width, height} {
    const size_t count = size_t(width) * size_t(height);
    // Opacity is added to pixels on their way to a window of depth 32, so those are sent.
    if (connection.sharesMemory() && connection.depth() == 24) {
        share(count * sizeof(uint32_t));
    }
    if (!pixels.pixels) {
        own.resize(count);
        pixels.pixels = own.data();
    }
}

Picture::~Picture() {
    if (reading) {
        xcb_discard_reply(connection.xcb(), reading->sequence);
    }
    if (mappedBytes) {
        xcb_shm_detach(connection.xcb(), segment);
        munmap(pixels.pixels, mappedBytes);
    }
}

void Picture::share(size_t bytes) {
    const int file = memfd_create("tessel8 picture", MFD_CLOEXEC);
    if (file < 0) {
        return;
    }
    void* memory = MAP_FAILED;
    if (ftruncate(file, off_t(bytes)) == 0) {
        memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    }
    if (memory == MAP_FAILED) {
        close(file);
        return;
    }
    segment = xcb_generate_id(connection.xcb());
    // The client library closes the file once it is sent.
    const auto sent = xcb_shm_attach_fd_checked(connection.xcb(), segment, file, 1);
    const Reply<xcb_generic_error_t> refused(xcb_request_check(connection.xcb(), sent));
    if (refused || connection.isLost()) {
        munmap(memory, bytes);
        return;
    }
    pixels.pixels = static_cast<uint32_t*>(memory);
    mappedBytes = bytes;
}

void Picture::show(xcb_window_t window, xcb_gcontext_t context, const PixelRect& part) {
    if (!mappedBytes) {
        send(window, context, part);
        return;
    }
    xcb_shm_put_image(connection.xcb(), window, context, uint16_t(pixels.width),
                      uint16_t(pixels.height), int16_t(part.left), int16_t(part.top),
                      uint16_t(part.width()), uint16_t(part.height()), int16_t(part.left),
                      int16_t(part.top), connection.depth(), XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment,
                      0);
    if (reading) {
        xcb_discard_reply(connection.xcb(), reading->sequence);
    }
    // The server answers in order: with this answer the picture before it has been read.
    reading = xcb_get_input_focus(connection.xcb());
}

void Picture::settle() {
    if (reading) {
        const Reply<xcb_get_input_focus_reply_t> done(
            xcb_get_input_focus_reply(connection.xcb(), *reading, nullptr));
        reading.reset();
    }
}

void Picture::send(xcb_window_t window, xcb_gcontext_t context, const PixelRect& part) {
    constexpr uint32_t kRequestHead = 64, kEnough = 1u << 18;  // bytes
    const uint32_t most =
        std::min(kEnough, xcb_get_maximum_request_length(connection.xcb()) * 4u - kRequestHead);
    const auto rowBytes = uint32_t(part.width()) * 4;
    const auto rows = std::max(1, int32_t(most / rowBytes));
    const uint32_t opacity = connection.depth() == 32 ? 0xff000000u : 0;
    for (int32_t top = part.top; top < part.bottom; top += rows) {
        const int32_t bottom = std::min(part.bottom, top + rows);
        packed.clear();
        for (int32_t y = top; y < bottom; ++y) {
            std::transform(pixels.row(y) + part.left, pixels.row(y) + part.right,
                           std::back_inserter(packed),
                           [&](uint32_t pixel) { return pixel | opacity; });
        }
        xcb_put_image(connection.xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, context,
                      uint16_t(part.width()), uint16_t(bottom - top), int16_t(part.left),
                      int16_t(top), 0, connection.depth(), uint32_t(packed.size() * 4),
                      reinterpret_cast<const uint8_t*>(packed.data()));
    }
}

}  // namespace tessel8::x11
