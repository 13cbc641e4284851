#pragma once

#include <string>

#include "resources/paint/Canvas.h"
#include "resources/paint/TextStyle.h"

namespace tessel8::paint {

/// Sets one line of the panel's typeface with its baseline at `y`. Returns the width in pixels.
double drawText(const Canvas& canvas, const std::string& text, double x, double y,
                const TextStyle& style);

/// Sets a line from `left` to `right`, with whatever space between its letters that takes.
void drawJustified(const Canvas& canvas, const std::string& text, double left, double right,
                   double y, TextStyle style);

}  // namespace tessel8::paint
