#pragma once

#include <cstdint>
#include <vector>

#include "resources/paint/Picture.h"

namespace tessel8::paint {

constexpr int32_t kPanelWidth = 870, kPanelHeight = 565;
constexpr int32_t kBackground = 128;  ///< number of the panel's background picture
constexpr int32_t kRowPitch = 36;     ///< from one tap row to the next, pixels
constexpr int32_t kTaps = 8;

/// When a strip is seen; `kSwapped` ones take the place of another in the course of play.
enum class Mode : uint8_t { kBoth, kPanel, kGraph, kSwapped };

/// Where a strip is seen: `count` rectangles of the size of one image, each `stepX`, `stepY` from
/// the one before. `shown` and `shownStep` choose the images of the preview.
struct Place {
    int32_t left, top;
    int32_t count = 1, stepX = 0, stepY = 0;
    Mode mode = Mode::kBoth;
    int32_t shown = 0, shownStep = 0;
};

/// A numbered picture of `images` images below each other.
struct Strip {
    int32_t number, width, height, images;  ///< size of one image, pixels
    std::vector<Place> places;              ///< in the order of drawing; none for glyph sheets
    /// It paints up to its edges by design; all others leave the ground to their outermost pixels.
    bool ownRim = false;

    /// The rectangle of the first place, or one at the origin for a strip without a place.
    Box firstBox() const;
};

/// All strips of the panel in the order of drawing.
const std::vector<Strip>& stripTable();

}  // namespace tessel8::paint
