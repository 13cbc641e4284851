#pragma once

#include <cstdint>
#include <span>

namespace tessel8::resources {

/// The bytes of an uncompressed bitmap file (the format with the "BM" head; 8 bits a pixel with a
/// palette, or 24), in read-only memory; empty if there is no picture of that number.
std::span<const uint8_t> bitmapFile(int32_t number);

/// One character's picture: coverage 0 to 255, rows from the top without gaps.
struct Glyph {
    uint16_t width, height;
    int16_t left, top;  ///< from the pen to the picture's left, from the baseline up to its top
    uint16_t advance;   ///< pixels to the next pen position
    uint32_t offset;    ///< of the coverage in `Font::coverage`
};

/// A baked font: antialiased pictures of Latin, Greek, Cyrillic and punctuation.
struct Font {
    int32_t size;                     ///< nominal height in pixels
    int32_t ascent, descent;          ///< from the baseline, both positive
    std::span<const uint32_t> codes;  ///< code points in ascending order
    std::span<const Glyph> glyphs;    ///< one each, and a box for anything else behind the last
    const uint8_t* coverage;
};

/// The font of the nearest size; there are two, 9 (fields) and 12 (menus and dialogs).
const Font& font(int32_t size);

}  // namespace tessel8::resources
