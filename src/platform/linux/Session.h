#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/MouseWord.h"
#include "platform/linux/Clipboard.h"
#include "platform/linux/Connection.h"
#include "platform/linux/Keyboard.h"

namespace tessel8::x11 {

class Part;
class Pane;

/// Everything that one panel has open on one connection, and the way of an event to the pane that
/// it is for. Lives as long as the last of its parts.
class Session {
  public:
    /// Null if the display cannot be reached.
    static std::shared_ptr<Session> open();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const Connection& connection() const { return *link; }
    xcb_connection_t* xcb() const { return link->xcb(); }
    Clipboard& clipboard() { return exchange; }
    /// The server's time of the last event that had one.
    xcb_timestamp_t time() const { return lastTime; }

    /// True once nothing can be shown any more: the connection is lost, or the panel's window went
    /// with its parent.
    bool isGone() const { return ended || link->isLost(); }
    /// Closes what the panel has open; its holders keep objects that do nothing.
    void end();
    void offerKeyboard();

    /// Hands out all events that wait, then lets every part do what is due.
    void processEvents();
    void paint();
    /// Ends what a press elsewhere ends, as a line edit; `pressed` itself stays.
    void endTransients(const Part* pressed = nullptr);

    /// A menu or dialog is open: the panel takes no mouse.
    bool isModal() const { return modalParts > 0; }

  private:
    friend class Part;
    friend class Pane;
    friend class ModalHold;

    struct Answer {
        const Part* from;
        std::function<void()> call;
    };

    explicit Session(std::unique_ptr<Connection> opened);

    Pane* paneOf(xcb_window_t window) const;
    bool has(const Part* part) const;
    void remove(const Part* part);
    void forEachPart(const std::function<void(Part&)>& act);
    void giveAnswers();
    void tick();

    void handle(const xcb_generic_event_t& event);
    void handleWindow(const xcb_generic_event_t& event);
    void handleKey(const xcb_key_press_event_t& event);
    void handleMotion(const xcb_motion_notify_event_t& event);
    void handlePress(const xcb_button_press_event_t& event);
    void handleRelease(const xcb_button_release_event_t& event);
    void handleCrossing(const xcb_enter_notify_event_t& event);
    void giveMotion();
    bool isDoubleClick(const xcb_button_press_event_t& event);

    std::unique_ptr<Connection> link;
    Keyboard keyboard;
    Clipboard exchange;
    std::vector<Part*> parts;
    std::map<xcb_window_t, Pane*> panes;
    std::vector<Answer> answers;
    std::optional<xcb_motion_notify_event_t> motion;  ///< the last that waits
    xcb_button_press_event_t lastPress{};
    xcb_window_t pressed = XCB_WINDOW_NONE;  ///< where the last button went down
    xcb_timestamp_t lastTime = XCB_CURRENT_TIME;
    int modalParts = 0;
    bool ended = false, painting = false;
};

/// Keeps the mouse from the panel while it exists.
class ModalHold {
  public:
    explicit ModalHold(Session& theSession) : session(theSession) { ++session.modalParts; }
    ~ModalHold() { --session.modalParts; }
    ModalHold(const ModalHold&) = delete;
    ModalHold& operator=(const ModalHold&) = delete;

  private:
    Session& session;
};

/// Something that lives on a session until it is destroyed.
class Part {
  public:
    explicit Part(std::shared_ptr<Session> theSession);
    virtual ~Part();
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    /// Called with every `processEvents`; `now` is `millisecondTick`.
    virtual void tick(uint32_t /*now*/) {}
    /// A button went down in another part, or another menu or dialog opens.
    virtual void pressedOutside() {}
    /// The keyboard may be taken by who is open for it.
    virtual void keyboardOffered() {}
    /// The panel is gone: nothing of this part may be left, and nobody is told.
    virtual void close() {}

  protected:
    Session& session() const { return *shared; }
    /// Has `call` made soon from within `processEvents`, unless this part is gone by then. The
    /// call may destroy the part.
    void answerWith(std::function<void()> call);

  private:
    std::shared_ptr<Session> shared;
};

/// Buttons and modifiers of an event as the listener's word.
uint32_t mouseWord(uint16_t state);

}  // namespace tessel8::x11
