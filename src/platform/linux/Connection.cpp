#include "platform/linux/Connection.h"

#include <sys/socket.h>
#include <xcb/shm.h>

#include <bit>

namespace tessel8::x11 {

namespace {

constexpr const char* kAtomNames[] = {
    "WM_PROTOCOLS",
    "WM_DELETE_WINDOW",
    "WM_STATE",
    "_NET_WM_NAME",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE",
    "_XEMBED_INFO",
    "UTF8_STRING",
    "CLIPBOARD",
    "TARGETS",
    "TIMESTAMP",
    "TEXT",
    "text/plain;charset=utf-8",
    "INCR",
    "TESSEL8_TRANSFER",
};
static_assert(std::size(kAtomNames) == size_t(Atom::Count));

constexpr uint32_t kNone = XCB_NONE;

}  // namespace

std::unique_ptr<Connection> Connection::open() {
    int screenNumber = 0;
    xcb_connection_t* opened = xcb_connect(nullptr, &screenNumber);
    std::unique_ptr<Connection> result(new Connection(opened, screenNumber));
    if (result->isLost() || !result->visualId) {
        return nullptr;
    }
    return result;
}

Connection::Connection(xcb_connection_t* opened, int screenNumber) : connection(opened) {
    if (isLost()) {
        return;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) {
        xcb_screen_next(&screens);
    }
    screen = screens.data;
    chooseVisual();
    if (!visualId) {
        return;
    }
    colours = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colours, screen->root, visualId);
    internAtoms();
    sharing = canShareMemory();
}

Connection::~Connection() {
    xcb_disconnect(connection);
}

void Connection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, size_t(Atom::Count)> asked{};
    for (size_t i = 0; i < asked.size(); ++i) {
        const std::string name = kAtomNames[i];
        asked[i] = xcb_intern_atom(connection, 0, uint16_t(name.size()), name.data());
    }
    for (size_t i = 0; i < asked.size(); ++i) {
        const Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, asked[i], nullptr));
        atoms[i] = reply ? reply->atom : kNone;
    }
}

void Connection::chooseVisual() {
    // Where a desktop blends windows, a depth of 32 means that the fourth byte is opacity.
    if (!findVisual(24)) {
        findVisual(32);
    }
}

bool Connection::findVisual(uint8_t wantedDepth) {
    constexpr auto kOwnOrder = std::endian::native == std::endian::little
                                   ? XCB_IMAGE_ORDER_LSB_FIRST
                                   : XCB_IMAGE_ORDER_MSB_FIRST;
    if (xcb_get_setup(connection)->image_byte_order != kOwnOrder ||
        !hasPixelsOf32Bits(wantedDepth)) {
        return false;
    }
    auto depths = xcb_screen_allowed_depths_iterator(screen);
    for (; depths.rem; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; depths.data->depth == wantedDepth && visuals.rem; xcb_visualtype_next(&visuals)) {
            const xcb_visualtype_t& type = *visuals.data;
            if (type._class == XCB_VISUAL_CLASS_TRUE_COLOR && type.red_mask == 0xff0000 &&
                type.green_mask == 0xff00 && type.blue_mask == 0xff) {
                visualId = type.visual_id;
                visualDepth = wantedDepth;
                return true;
            }
        }
    }
    return false;
}

bool Connection::hasPixelsOf32Bits(uint8_t ofDepth) const {
    auto formats = xcb_setup_pixmap_formats_iterator(xcb_get_setup(connection));
    for (; formats.rem; xcb_format_next(&formats)) {
        if (formats.data->depth == ofDepth) {
            return formats.data->bits_per_pixel == 32;
        }
    }
    return false;
}

bool Connection::canShareMemory() const {
    // A file descriptor can be passed to a server on this machine only, and to try it on another
    // kind of socket would end the connection.
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (getsockname(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address),
                    &length) != 0 ||
        address.ss_family != AF_UNIX) {
        return false;
    }
    const auto* extension = xcb_get_extension_data(connection, &xcb_shm_id);
    if (!extension || !extension->present) {
        return false;
    }
    const Reply<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(connection, xcb_shm_query_version(connection), nullptr));
    return version && (version->major_version > 1 ||
                       (version->major_version == 1 && version->minor_version >= 2));
}

void Connection::toScreen(xcb_window_t window, int32_t& x, int32_t& y) const {
    const Reply<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, window, root(), int16_t(x), int16_t(y)),
        nullptr));
    if (reply) {
        x = reply->dst_x;
        y = reply->dst_y;
    }
}

xcb_window_t Connection::topLevelOf(xcb_window_t window) const {
    constexpr int kDeepest = 32;
    xcb_window_t at = window;
    for (int i = 0; i < kDeepest && at && at != root(); ++i) {
        const auto state = xcb_get_property(connection, 0, at, atom(Atom::WmState),
                                            XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
        const auto tree = xcb_query_tree(connection, at);
        const Reply<xcb_get_property_reply_t> property(
            xcb_get_property_reply(connection, state, nullptr));
        const Reply<xcb_query_tree_reply_t> above(xcb_query_tree_reply(connection, tree, nullptr));
        if (property && property->type != XCB_ATOM_NONE) {
            return at;
        }
        at = above ? above->parent : kNone;
    }
    return window;
}

xcb_window_t Connection::focus() const {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : kNone;
}

void Connection::setTitle(xcb_window_t window, const std::string& title) const {
    const auto set = [&](xcb_atom_t property, xcb_atom_t type) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            uint32_t(title.size()), title.data());
    };
    set(XCB_ATOM_WM_NAME, atom(Atom::Utf8String));
    set(atom(Atom::NetWmName), atom(Atom::Utf8String));
}

void Connection::makeTopLevel(xcb_window_t window, int32_t width, int32_t height) const {
    setAtoms(window, Atom::WmProtocols, Atom::WmDeleteWindow);
    // WM_SIZE_HINTS: flags, 4 unused, smallest size, largest size, then what stays unset.
    constexpr uint32_t kMinAndMax = 1u << 4 | 1u << 5;
    std::array<uint32_t, 18> hints{kMinAndMax, 0, 0, 0, 0};
    hints[5] = hints[7] = uint32_t(width);
    hints[6] = hints[8] = uint32_t(height);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, uint32_t(hints.size()), hints.data());
}

void Connection::setAtoms(xcb_window_t window, Atom property, Atom value) const {
    const xcb_atom_t atomValue = atom(value);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_ATOM,
                        32, 1, &atomValue);
}

}  // namespace tessel8::x11
