#pragma once

#include <filesystem>

namespace tessel8::host {

/// Prints a table of all parameters of the effect: index, name, value, display text and label.
void listParams(const std::filesystem::path& plugin);

}  // namespace tessel8::host
