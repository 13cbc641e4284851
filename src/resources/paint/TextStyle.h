#pragma once

#include "resources/paint/Palette.h"

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

}  // namespace tessel8::paint
