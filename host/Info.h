#pragma once

#include <filesystem>

namespace tessel8::host {

/// Prints what a VST 2.4 file says about itself.
void printInfo(const std::filesystem::path& plugin);

}  // namespace tessel8::host
