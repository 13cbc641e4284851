#pragma once

#include <string>

#include "resources/paint/Canvas.h"

namespace tessel8::paint {

/// A word of the display in a field of one pixel less than `box` all around: lit it stands dark on
/// a bright field, otherwise bright on the ground.
void drawLcdWord(const Canvas& canvas, const Box& box, const std::string& word, bool lit);

/// A key of the display, a frame of that field; filled while it is pressed.
void drawLcdKey(const Canvas& canvas, const Box& box, bool pressed);

/// The colour of what stands on such a key.
Colour lcdKeyInk(bool pressed);

/// A small window with the display's ground for a choice in the tap rows. Returns the ground.
Box drawLcdWindow(const Canvas& canvas, const Box& box);

}  // namespace tessel8::paint
