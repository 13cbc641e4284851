#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Window.h"
#include "platform/linux/Programs.h"
#include "platform/linux/Session.h"

namespace tessel8::x11 {

/// A dialog while it is open: the desktop's tool, or a built-in one where there is no tool or it
/// doesn't run.
class LinuxDialog : public Dialog, public Part {
  public:
    using BuiltIn = std::function<std::unique_ptr<Part>()>;
    /// Gets what the tool has written; empty when cancelled.
    using Answered = std::function<void(const std::string&)>;

    LinuxDialog(const std::shared_ptr<Session>& theSession, const std::optional<Command>& command,
                BuiltIn theBuiltIn, Answered whenAnswered);

    void tick(uint32_t now) override;
    void close() override;

  private:
    void showBuiltIn();

    std::unique_ptr<ChildProgram> tool;
    BuiltIn makeBuiltIn;
    std::unique_ptr<Part> builtIn;
    Answered answered;
    std::optional<ModalHold> hold;  ///< while the tool runs; a built-in dialog has its own
};

}  // namespace tessel8::x11
