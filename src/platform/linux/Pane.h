#pragma once

#include <xcb/xcb.h>

#include <memory>

#include "platform/Damage.h"
#include "platform/linux/Keyboard.h"
#include "platform/linux/Picture.h"
#include "platform/linux/Session.h"

namespace tessel8::x11 {

/// One window of the X server with its picture, at a fixed size: the panel, a line edit, a menu, a
/// dialog. What happens in it comes as calls, in pixels from its top left.
class Pane : public Part {
  public:
    struct Settings {
        xcb_window_t parent;
        PixelRect place;                 ///< within the parent
        uint32_t events;                 ///< beside exposure and destruction
        bool overWindowManager = false;  ///< placed and shown without its help
    };

    /// Makes the window, not shown yet; `isAlive` tells if that worked.
    Pane(std::shared_ptr<Session> theSession, const Settings& settings);
    ~Pane() override;

    xcb_window_t id() const { return window; }
    bool isAlive() const { return alive; }
    PixelRect bounds() const { return picture->surface().bounds(); }

    void show();
    void hide();
    /// Gives it the keyboard, as far as it can be seen by now.
    void takeFocus();

    /// Wants a part painted again.
    void invalidate(const PixelRect& part) { damage.add(part.intersected(bounds())); }
    void invalidate() { invalidate(bounds()); }
    /// The server wants a part again whose pixels we still have.
    void expose(const PixelRect& part);
    /// Paints and shows what waits.
    void paintDamage();

    virtual void mouseDown(const MouseState& /*mouse*/) {}
    virtual void mouseMoved(const MouseState& /*mouse*/) {}
    virtual void mouseUp(const MouseState& /*mouse*/) {}
    virtual void mouseLeft() {}
    virtual void wheel(const MouseState& /*mouse*/, float /*distance*/) {}
    virtual void keyPressed(const KeyPress& /*key*/) {}
    virtual void focusChanged(bool /*hasFocus*/) {}
    virtual void exposed() {}
    virtual void closeAsked() {}
    /// The server has removed the window, mostly along with its parent.
    virtual void destroyed() { alive = false; }

  protected:
    virtual void paint(const Surface& surface, const PixelRect& damaged) = 0;

  private:
    xcb_window_t window = XCB_WINDOW_NONE;
    xcb_gcontext_t context = 0;
    std::unique_ptr<Picture> picture;
    Damage damage;     ///< to be painted
    Damage uncovered;  ///< to be shown again
    bool alive = false;
};

}  // namespace tessel8::x11
