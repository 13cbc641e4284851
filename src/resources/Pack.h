#pragma once

#include <cstdint>

#include "resources/Resources.h"

namespace tessel8::resources {

/// The pack is what the painter writes and the library carries: a PackHead, one PackEntry for each
/// part in ascending order of the numbers, then the parts, each at a multiple of 16 bytes. It is
/// read in place, by the machine that wrote it or one of the same byte order.
struct PackHead {
    uint32_t count, reserved[3];
};

struct PackEntry {
    int32_t number;  ///< of the bitmap; for a font `kFontNumber` less its size
    uint32_t offset, bytes, reserved;
};

constexpr int32_t kFontNumber = 0;

/// In front of a font's codes (32 bits each), its glyphs (one more, the box), and its coverage.
struct FontHead {
    int32_t size, ascent, descent;
    uint32_t count;  ///< of the codes
};

static_assert(sizeof(PackHead) == 16 && sizeof(PackEntry) == 16 && sizeof(FontHead) == 16);
static_assert(sizeof(Glyph) == 16);

}  // namespace tessel8::resources
