#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Window.h"
#include "platform/linux/Pane.h"

namespace tessel8::x11 {

/// The pane that the listener paints and whose mouse it gets, unless a menu or dialog is open.
class PanelPane : public Pane {
  public:
    /// Shown at once, also where the parent is not: it appears along with the parent then.
    /// Without a parent it becomes a window of its own with a title.
    PanelPane(const std::shared_ptr<Session>& theSession, xcb_window_t parent, int32_t width,
              int32_t height, const std::string& title, WindowListener& theListener);

    MouseState currentMouse() const;
    bool isCloseAsked() const { return closing; }

    void mouseDown(const MouseState& mouse) override;
    void mouseMoved(const MouseState& mouse) override;
    void mouseUp(const MouseState& mouse) override;
    void mouseLeft() override;
    void wheel(const MouseState& mouse, float distance) override;
    void closeAsked() override { closing = true; }
    void destroyed() override;

  protected:
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    WindowListener& listener;
    uint32_t held = 0;  ///< the buttons whose press the listener has got, but not their release
    bool closing = false;
};

}  // namespace tessel8::x11
