#pragma once

#include <filesystem>

namespace tessel8::host {

/// `chosen` if it is not empty; else the effect's own file beside this executable, or in
/// ../lib/vst as an installed system has it.
std::filesystem::path pluginFile(const std::filesystem::path& chosen);

}  // namespace tessel8::host
