#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/DialogPane.h"

namespace tessel8::x11 {

/// The built-in message: lines of text and one button.
class MessagePane : public DialogPane {
  public:
    MessagePane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                const std::string& title, const std::string& text, std::function<void()> whenEnded);

  protected:
    void accepted() override;
    void cancelled() override { accepted(); }
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    MessagePane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                const std::string& title, std::vector<std::string> theLines,
                std::function<void()> whenEnded);

    std::vector<std::string> lines;
    std::function<void()> ended;
};

}  // namespace tessel8::x11
