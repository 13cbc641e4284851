#pragma once

#include <xcb/xcb.h>

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "platform/linux/Connection.h"

namespace tessel8::x11 {

/// The two texts that programs exchange: what was copied, and what was marked last.
enum class Selection : uint8_t { Clipboard, Primary };

/// Our side of that exchange, both ways, in UTF-8. What we offer is lost with the window.
class Clipboard {
  public:
    using Received = std::function<void(const std::string&)>;

    explicit Clipboard(const Connection& theConnection) : connection(theConnection) {}

    /// The window that stands for us in the exchange; nothing works without one.
    void useWindow(xcb_window_t theWindow) { window = theWindow; }

    void offer(Selection selection, const std::string& text, xcb_timestamp_t time);
    /// Asks for the text; `received` gets it later, or at once where it is our own. A text that
    /// is too long for one piece (about 1 MB) doesn't come, and a new request replaces the last.
    void request(Selection selection, const void* asker, Received received);
    /// Drops the request of an asker that goes.
    void forget(const void* asker);

    void lost(const xcb_selection_clear_event_t& event);
    void asked(const xcb_selection_request_event_t& event);
    void arrived(const xcb_selection_notify_event_t& event);

  private:
    struct Offer {
        std::optional<std::string> text;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
    };
    struct Request {
        Selection selection;
        const void* asker;
        Received received;
        Atom target;
    };

    xcb_atom_t atomOf(Selection selection) const;
    Offer* offerOf(xcb_atom_t selection);
    bool answer(const Offer& offered, const xcb_selection_request_event_t& event,
                xcb_atom_t property);
    void askFor(Atom target);
    std::optional<std::string> transferred();

    const Connection& connection;
    xcb_window_t window = XCB_WINDOW_NONE;
    std::array<Offer, 2> offers;
    std::optional<Request> waiting;
};

}  // namespace tessel8::x11
