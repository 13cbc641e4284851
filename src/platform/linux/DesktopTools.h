#pragma once

#include <optional>
#include <string>

#include "platform/Window.h"
#include "platform/linux/Programs.h"

namespace tessel8::x11 {

/// How the desktop's own dialogs are called up: by its tool, with the top-level window number that
/// the dialog stays above. Empty where none is installed.
std::optional<Command> fileDialogCommand(const FileDialogSettings& settings, uint32_t above);
std::optional<Command> messageCommand(const std::string& title, const std::string& text,
                                      uint32_t above);

}  // namespace tessel8::x11
