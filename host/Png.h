#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "PendingFile.h"

namespace tessel8::host {

/// Rows from the top, each pixel as the bytes red, green and blue, without gaps.
struct Picture {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint8_t> rgb;
};

/// Writes the picture as PNG and gives the file its name. Throws UserError where that fails.
void writePng(PendingFile& file, const Picture& picture);

}  // namespace tessel8::host
