#pragma once

#include <memory>
#include <string>

#include "platform/Window.h"
#include "platform/linux/Session.h"

namespace tessel8::x11 {

class PanelPane;

/// The panel's window, as a child of the host's or by itself.
class LinuxWindow : public Window {
  public:
    LinuxWindow(std::shared_ptr<Session> theSession, std::unique_ptr<PanelPane> thePanel);
    ~LinuxWindow() override;

    bool processEvents() override;
    void processPaints() override;
    void invalidate(const PixelRect& part) override;
    MouseState currentMouse() override;
    void takeKeyboardFocus() override;
    bool closeAsked() const override;

    std::unique_ptr<LineEdit> openLineEdit(const LineEditSettings& settings,
                                           std::function<void(const std::string&)> ended) override;
    std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings& settings,
                                             std::function<void(int32_t)> ended) override;
    std::unique_ptr<Dialog> openFileDialog(const FileDialogSettings& settings,
                                           std::function<void(const std::string&)> ended) override;
    std::unique_ptr<Dialog> openMessage(const std::string& title, const std::string& text,
                                        std::function<void()> ended) override;

  private:
    std::shared_ptr<Session> session;
    std::unique_ptr<PanelPane> panel;
};

}  // namespace tessel8::x11
