#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tessel8::host {

/// All bytes of a file. Throws UserError where it cannot be read or has more than `most` bytes.
std::vector<uint8_t> readFile(const std::filesystem::path& file, size_t most);

}  // namespace tessel8::host
