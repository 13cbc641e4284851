#pragma once

#include <cstdint>
#include <span>

#include "resources/paint/TextStyle.h"

namespace tessel8::paint {

/// A word of the plate.
struct Caption {
    double x, y;  ///< the point that `style` aligns to, on the baseline
    const char* word;
    TextStyle style = {};
    double right = 0;  ///< where a word ends that is spaced out from x; 0 for all others
};

/// A section of the tap rows or the display: its colour bar and its title below.
struct Section {
    double left, right;
    double top;  ///< of the bar, pixels
    const char* title;
    Colour colour;
};

/// A word of the display in 5 x 7 dots, in the middle between two columns.
struct DisplayWord {
    int32_t left, right, top;
    const char* word;
};

std::span<const Caption> captions();
std::span<const Section> sections();
std::span<const DisplayWord> displayWords();

/// From the top of a section's bar to its title's baseline, pixels.
constexpr double kSectionTitle = 11.5;

}  // namespace tessel8::paint
