#pragma once

#include <cstdint>
#include <vector>

#include "resources/PanelLayout.h"
#include "resources/paint/Picture.h"

namespace tessel8::paint {

constexpr int32_t kFirstRow = 192;  ///< top of the first tap row, pixels
constexpr int32_t kRowPitch = 36;   ///< from one tap row to the next, pixels
constexpr int32_t kTaps = 8;

/// A numbered picture of `images` images below each other.
struct Strip {
    int32_t number, width, height, images;  ///< size of one image, pixels
    std::vector<Box> places;                ///< where it is seen; none for glyph sheets
    /// It paints up to its edges by design; all others leave the ground to their outermost pixels.
    bool ownRim = false;

    /// The rectangle of the first place, or one at the origin for a strip without a place.
    Box firstBox() const;
};

/// All strips of the panel but the background, in the order of the panel's layout.
const std::vector<Strip>& stripTable();

}  // namespace tessel8::paint
