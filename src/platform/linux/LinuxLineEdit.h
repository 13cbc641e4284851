#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Window.h"
#include "platform/linux/FieldControl.h"
#include "platform/linux/FocusLoan.h"
#include "platform/linux/Pane.h"

namespace tessel8::x11 {

/// A line edit: a small window over the panel that has the keyboard while it is open.
class LinuxLineEdit : public LineEdit, public Pane {
  public:
    LinuxLineEdit(const std::shared_ptr<Session>& theSession, xcb_window_t panel,
                  const LineEditSettings& settings,
                  std::function<void(const std::string&)> whenEnded);
    ~LinuxLineEdit() override;

    std::string text() const override { return control.text(); }

    void mouseDown(const MouseState& mouse) override;
    void mouseMoved(const MouseState& mouse) override { control.mouseMoved(mouse); }
    void mouseUp(const MouseState& mouse) override { control.mouseUp(mouse); }
    void keyPressed(const KeyPress& key) override;
    void focusChanged(bool has) override;
    void exposed() override;
    void tick(uint32_t now) override;
    void pressedOutside() override;
    void keyboardOffered() override;
    void close() final;

  protected:
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    void end(const std::string& finalText);

    FieldControl control;
    std::string original;
    std::function<void(const std::string&)> ended;
    FocusLoan focusLoan;
    bool open = true, hasFocus = false, hadFocus = false;
};

}  // namespace tessel8::x11
