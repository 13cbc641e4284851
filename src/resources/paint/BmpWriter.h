#pragma once

#include <cstdint>
#include <vector>

#include "resources/paint/Picture.h"

namespace tessel8::paint {

/// A bitmap file of a picture: 8 bits a pixel where its colours fit into a palette of 256 or come
/// so near that nobody sees it, 24 otherwise. Bottom row first, as the format has it.
std::vector<uint8_t> bitmapFileOf(const Picture& picture);

}  // namespace tessel8::paint
