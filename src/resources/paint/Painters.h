#pragma once

#include "resources/paint/Canvas.h"
#include "resources/paint/StripTable.h"

namespace tessel8::paint {

/// One image of a strip, to be painted where it is first seen on the panel.
struct Image {
    const Strip& strip;
    int32_t index;  ///< from 0
    Box box;        ///< on the panel

    /// The position of the image in its strip, 0 to 1.
    double value() const { return strip.images > 1 ? double(index) / (strip.images - 1) : 0.0; }
};

/// Draws what an image adds to the ground behind it.
using Painter = void (*)(const Canvas&, const Image&);

/// The painter of a strip; null for a number that no file of this folder paints.
Painter painterOf(int32_t number);

/// The panel without its controls, the display's captions included.
Picture paintBackground();

/// A whole strip, image below image, over the ground that `background` shows at its place.
Picture paintStrip(const Strip& strip, const Picture& background);

}  // namespace tessel8::paint
