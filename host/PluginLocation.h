#pragma once

#include <filesystem>

namespace tessel8::host {

/// `chosen` if it is not empty; else the effect's own file: beside this executable, in lib/vst
/// beside the executable's folder as an installed system has it, or in the user's ~/.vst. Throws
/// UserError if it is nowhere.
std::filesystem::path pluginFile(const std::filesystem::path& chosen);

}  // namespace tessel8::host
