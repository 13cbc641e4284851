#pragma once

#include "resources/paint/Canvas.h"

namespace tessel8::paint {

/// Eight tiles in a row, each fainter than the one before: the sign of the product.
void drawTiles(const Canvas& canvas, double left, double y, double size, double pitch,
               Colour colour);

}  // namespace tessel8::paint
