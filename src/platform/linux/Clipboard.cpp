#include "platform/linux/Clipboard.h"

#include <string_view>
#include <utility>

#include "platform/Utf8.h"

namespace tessel8::x11 {

namespace {

/// The old type of text has one byte a character.
std::string latin1(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const char32_t code = utf8::takeFirst(text);
        result += code < 0x100 ? char(code) : '?';
    }
    return result;
}

std::string fromLatin1(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        utf8::append(text, uint8_t(byte));
    }
    return text;
}

}  // namespace

xcb_atom_t Clipboard::atomOf(Selection selection) const {
    return selection == Selection::Primary ? xcb_atom_t(XCB_ATOM_PRIMARY)
                                           : connection.atom(Atom::Clipboard);
}

Clipboard::Offer* Clipboard::offerOf(xcb_atom_t selection) {
    for (const Selection each : {Selection::Clipboard, Selection::Primary}) {
        if (atomOf(each) == selection) {
            return &offers[size_t(each)];
        }
    }
    return nullptr;
}

void Clipboard::offer(Selection selection, const std::string& text, xcb_timestamp_t time) {
    offers[size_t(selection)] = {text, time};
    xcb_set_selection_owner(connection.xcb(), window, atomOf(selection), time);
}

void Clipboard::request(Selection selection, const void* asker, Received received) {
    if (const auto& own = offers[size_t(selection)].text) {
        received(*own);
        return;
    }
    waiting = Request{selection, asker, std::move(received), Atom::Utf8String};
    askFor(Atom::Utf8String);
}

void Clipboard::askFor(Atom target) {
    waiting->target = target;
    xcb_convert_selection(
        connection.xcb(), window, atomOf(waiting->selection),
        target == Atom::Utf8String ? connection.atom(target) : xcb_atom_t(XCB_ATOM_STRING),
        connection.atom(Atom::Transfer), XCB_CURRENT_TIME);
}

void Clipboard::forget(const void* asker) {
    if (waiting && waiting->asker == asker) {
        waiting.reset();
    }
}

void Clipboard::lost(const xcb_selection_clear_event_t& event) {
    if (Offer* offered = offerOf(event.selection)) {
        offered->text.reset();
    }
}

void Clipboard::asked(const xcb_selection_request_event_t& event) {
    // Old programs name no property and mean the target's.
    const xcb_atom_t property = event.property ? event.property : event.target;
    const Offer* offered = offerOf(event.selection);
    const bool answered = offered && offered->text && answer(*offered, event, property);

    xcb_selection_notify_event_t reply{};
    reply.response_type = XCB_SELECTION_NOTIFY;
    reply.time = event.time;
    reply.requestor = event.requestor;
    reply.selection = event.selection;
    reply.target = event.target;
    reply.property = answered ? property : xcb_atom_t(XCB_ATOM_NONE);
    // The request sends 32 bytes, the event is shorter.
    std::array<char, 32> bytes{};
    static_assert(sizeof reply <= bytes.size());
    std::copy_n(reinterpret_cast<const char*>(&reply), sizeof reply, bytes.data());
    xcb_send_event(connection.xcb(), 0, event.requestor, 0, bytes.data());
}

bool Clipboard::answer(const Offer& offered, const xcb_selection_request_event_t& event,
                       xcb_atom_t property) {
    const auto put = [&](xcb_atom_t type, uint8_t bits, size_t count, const void* data) {
        xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, event.requestor, property,
                            type, bits, uint32_t(count), data);
        return true;
    };
    const auto putText = [&](xcb_atom_t type, const std::string& text) {
        const size_t most = xcb_get_maximum_request_length(connection.xcb()) * 4 - 64;
        return text.size() <= most && put(type, 8, text.size(), text.data());
    };
    const auto is = [&](Atom target) { return event.target == connection.atom(target); };

    if (is(Atom::Targets)) {
        const std::array<xcb_atom_t, 6> targets{
            connection.atom(Atom::Targets),    connection.atom(Atom::Timestamp),
            connection.atom(Atom::Utf8String), connection.atom(Atom::PlainText),
            connection.atom(Atom::Text),       XCB_ATOM_STRING};
        return put(XCB_ATOM_ATOM, 32, targets.size(), targets.data());
    }
    if (is(Atom::Timestamp)) {
        return put(XCB_ATOM_INTEGER, 32, 1, &offered.time);
    }
    if (is(Atom::Utf8String) || is(Atom::PlainText)) {
        return putText(event.target, *offered.text);
    }
    if (is(Atom::Text)) {
        return putText(connection.atom(Atom::Utf8String), *offered.text);
    }
    return event.target == XCB_ATOM_STRING && putText(XCB_ATOM_STRING, latin1(*offered.text));
}

void Clipboard::arrived(const xcb_selection_notify_event_t& event) {
    if (!waiting || event.selection != atomOf(waiting->selection)) {
        return;
    }
    if (event.property == XCB_ATOM_NONE && waiting->target == Atom::Utf8String) {
        askFor(Atom::Text);  // the old type then
        return;
    }
    const Request request = *std::exchange(waiting, std::nullopt);
    if (event.property == XCB_ATOM_NONE) {
        return;
    }
    if (const auto text = transferred()) {
        request.received(*text);
    }
}

std::optional<std::string> Clipboard::transferred() {
    constexpr uint32_t kMostWords = 1u << 18;
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection.xcb(),
        xcb_get_property(connection.xcb(), 1, window, connection.atom(Atom::Transfer),
                         XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
        nullptr));
    if (!reply || reply->format != 8 || reply->type == connection.atom(Atom::Incr)) {
        return std::nullopt;
    }
    const std::string_view bytes(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                 size_t(xcb_get_property_value_length(reply.get())));
    return reply->type == XCB_ATOM_STRING ? fromLatin1(bytes) : std::string(bytes);
}

}  // namespace tessel8::x11
