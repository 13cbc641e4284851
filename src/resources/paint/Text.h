#pragma once

#include <string>

#include "resources/paint/Canvas.h"

namespace tessel8::paint {

enum class Align { kLeft, kCentre, kRight };

/// How a caption is set.
struct TextStyle {
    double capHeight = 7;  ///< pixels from the baseline to the top of a capital
    Colour colour = kCaption;
    Align align = Align::kCentre;
    double maxWidth = 0;   ///< pixels; a longer text is condensed. 0 is no limit
    double spacing = 0.4;  ///< pixels between letters
    bool bold = true;
};

/// Sets one line of the panel's typeface with its baseline at `y`. Returns the width in pixels.
double drawText(const Canvas& canvas, const std::string& text, double x, double y,
                const TextStyle& style);

/// Sets a line from `left` to `right`, with whatever space between its letters that takes.
void drawJustified(const Canvas& canvas, const std::string& text, double left, double right,
                   double y, TextStyle style);

}  // namespace tessel8::paint
