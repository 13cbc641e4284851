#pragma once

#include "resources/paint/Canvas.h"

namespace tessel8::paint {

enum class KeyState : uint8_t { kOff, kLit };

/// The body of a key. A lit key is bright in its section's colour, a dark one takes the slate's.
void drawKey(const Canvas& canvas, double left, double top, double width, double height,
             KeyState state, Colour colour);

/// Two links of a chain around (x, y), about 13 pixels wide.
void drawChain(const Canvas& canvas, double x, double y, double scale, Colour colour);

}  // namespace tessel8::paint
