#pragma once

#include <string_view>

#include "platform/Surface.h"

namespace tessel8 {

// Text from the baked fonts: the same pixels on every system. Texts are UTF-8; broken sequences
// and unknown characters show as a box.

/// Pixels from the first pen position to the last.
int32_t textWidth(std::string_view text, int32_t fontSize);

/// From the highest character's top to the lowest one's bottom, in pixels.
int32_t lineHeight(int32_t fontSize);

/// The baseline of a line in the middle between two edges.
int32_t centredBaseline(int32_t top, int32_t bottom, int32_t fontSize);

/// Draws with the pen starting at `x` on `baseline`, inside `clip` only.
void drawText(const Surface& surface, const PixelRect& clip, int32_t x, int32_t baseline,
              std::string_view text, int32_t fontSize, uint32_t colour);

}  // namespace tessel8
