#pragma once

#include <cstdint>
#include <vector>

namespace tessel8::paint {

/// One baked font as it lies in the pack: a FontHead, the codes, the glyphs, the coverage (see
/// Pack.h). `size` is 9 or 12.
std::vector<uint8_t> bakeFont(int32_t size);

}  // namespace tessel8::paint
