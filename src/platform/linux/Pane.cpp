#include "platform/linux/Pane.h"

#include <utility>

#include "platform/linux/PipeSignalGuard.h"

namespace tessel8::x11 {

Pane::Pane(std::shared_ptr<Session> theSession, const Settings& settings)
    : Part(std::move(theSession)) {
    const Connection& connection = session().connection();
    const PixelRect& place = settings.place;
    picture = std::make_unique<Picture>(connection, place.width(), place.height());

    // Colour map and border are the window's own: the parent may have another visual. Without a
    // background the server never flashes one.
    constexpr uint32_t kMask = XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_BIT_GRAVITY |
                               XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP;
    const uint32_t values[] = {
        XCB_BACK_PIXMAP_NONE,
        0,
        XCB_GRAVITY_NORTH_WEST,
        settings.overWindowManager,
        settings.events | XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY,
        connection.colormap()};
    window = xcb_generate_id(session().xcb());
    const auto made = xcb_create_window_checked(
        session().xcb(), connection.depth(), window, settings.parent, int16_t(place.left),
        int16_t(place.top), uint16_t(place.width()), uint16_t(place.height()), 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, connection.visual(), kMask, values);
    const Reply<xcb_generic_error_t> refused(xcb_request_check(session().xcb(), made));
    alive = !refused && !connection.isLost();

    context = xcb_generate_id(session().xcb());
    const uint32_t noExposures = 0;
    xcb_create_gc(session().xcb(), context, window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
    session().panes[window] = this;
    damage.add(bounds());
}

Pane::~Pane() {
    const PipeSignalGuard guard;
    session().panes.erase(window);
    picture.reset();
    xcb_free_gc(session().xcb(), context);
    if (alive) {
        xcb_destroy_window(session().xcb(), window);
    }
    session().connection().flush();
}

void Pane::show() {
    xcb_map_window(session().xcb(), window);
    session().connection().flush();
}

void Pane::hide() {
    xcb_unmap_window(session().xcb(), window);
    session().connection().flush();
}

void Pane::takeFocus() {
    // Refused while an ancestor is not shown; there is no answer to wait for.
    xcb_set_input_focus(session().xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

void Pane::expose(const PixelRect& part) {
    uncovered.add(part.intersected(bounds()));
    exposed();
}

void Pane::paintDamage() {
    if (!alive || (damage.isEmpty() && uncovered.isEmpty())) {
        return;
    }
    if (!damage.isEmpty()) {
        picture->settle();
    }
    // What the listener invalidates while it paints waits for the next time.
    for (const PixelRect& part : damage.take()) {
        paint(picture->surface(), part);
        uncovered.add(part);
    }
    for (const PixelRect& part : uncovered.take()) {
        picture->show(window, context, part);
    }
}

}  // namespace tessel8::x11
