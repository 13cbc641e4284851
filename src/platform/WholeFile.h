#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessel8 {

/// All bytes of a file. Empty where there is none, where it cannot be read, is no regular file or
/// has more than `most` bytes.
std::optional<std::vector<uint8_t>> readWholeFile(const std::string& path, size_t most);

/// Writes a file that takes the place of an older one at once: whatever happens meanwhile, the name
/// stands for the old bytes or for the new ones. False where that failed; then the old file stands.
bool writeWholeFile(const std::string& path, std::span<const uint8_t> bytes);

}  // namespace tessel8
