#pragma once

#include <cstdint>

namespace tessel8 {

/// The row of a glyph sheet that shows a byte of a text: a byte beyond the sheet's 128 rows shows
/// as a space.
inline int32_t glyphRow(char character) {
    const auto code = uint8_t(character);
    return code < 128 ? code : ' ';
}

}  // namespace tessel8
