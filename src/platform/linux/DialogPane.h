#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/FocusLoan.h"
#include "platform/linux/Pane.h"

namespace tessel8::x11 {

/// What the built-in dialogs have in common: a window of their own above the host's, the keyboard,
/// and buttons along the lower edge.
class DialogPane : public Pane {
  public:
    static constexpr int32_t kFontSize = 12, kMargin = 10, kButtonHeight = 24;  // pixels
    static constexpr uint32_t kGround = 0xe4e4e4, kText = 0x101010, kFrame = 0x808080;
    static constexpr uint32_t kLitGround = 0x3068b0, kLitText = 0xffffff;

    DialogPane(const std::shared_ptr<Session>& theSession, const Pane& panel,
               const std::string& title, int32_t width, int32_t height);
    ~DialogPane() override;

    void mouseDown(const MouseState& mouse) override;
    void mouseUp(const MouseState& mouse) override;
    void keyPressed(const KeyPress& key) override;
    void exposed() override;
    void close() override;
    void closeAsked() override;

  protected:
    /// Adds a button left of those before.
    void addButton(const std::string& label, std::function<void()> act);
    /// Return was pressed, or Escape or the window's close button.
    virtual void accepted() = 0;
    virtual void cancelled() = 0;
    bool isOpen() const { return open; }
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    struct Button {
        std::string label;
        PixelRect place;
        std::function<void()> act;
    };

    FocusLoan focusLoan;
    std::optional<ModalHold> hold;
    std::vector<Button> buttons;
    int32_t pressed = -1;
    bool open = true, hasBeenSeen = false;
};

}  // namespace tessel8::x11
