#include "platform/linux/LinuxDialog.h"

#include <utility>

namespace tessel8::x11 {

namespace {

// What both tools exit with.
constexpr int kAccepted = 0, kCancelled = 1;

std::string withoutLineEnd(std::string text) {
    if (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

}  // namespace

LinuxDialog::LinuxDialog(const std::shared_ptr<Session>& theSession,
                         const std::optional<Command>& command, BuiltIn theBuiltIn,
                         Answered whenAnswered)
    : Part(theSession),
      makeBuiltIn(std::move(theBuiltIn)),
      answered(std::move(whenAnswered)),
      hold(session()) {
    if (command) {
        tool = std::make_unique<ChildProgram>(*command);
    } else {
        showBuiltIn();
    }
}

void LinuxDialog::showBuiltIn() {
    builtIn = makeBuiltIn();
    hold.reset();
}

void LinuxDialog::tick(uint32_t /*now*/) {
    if (!tool || !tool->hasEnded()) {
        return;
    }
    const auto done = std::move(tool);
    if (done->exitStatus() != kAccepted && done->exitStatus() != kCancelled) {
        showBuiltIn();
        return;
    }
    hold.reset();
    const bool accepted = done->exitStatus() == kAccepted;
    answerWith(
        [call = answered, text = accepted ? withoutLineEnd(done->output()) : ""] { call(text); });
}

void LinuxDialog::close() {
    tool.reset();
    hold.reset();
}

}  // namespace tessel8::x11
