// The strip along the bottom: keys for files and memos, the rocker, and two small switches. Their
// second image is the one under the mouse, the last the pressed one.

#include <string>

#include "resources/paint/Families.h"
#include "resources/paint/Keys.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

namespace {

enum class Touch : uint8_t { kRest, kHover, kPressed };

void drawStripKey(const Canvas& canvas, double left, double top, double width, double height,
                  Touch touch) {
    drawKey(canvas, left, top, width, height,
            touch == Touch::kPressed ? KeyState::kLit : KeyState::kOff, kField);
    if (touch == Touch::kHover) {
        canvas.rounded(left + 1, top + 1, width - 2, height - 2, 2);
        canvas.fill(kField.withAlpha(0.25));
    }
}

Colour inkOf(Touch touch) {
    return touch == Touch::kPressed ? kFieldInk : touch == Touch::kHover ? kWhite : kCaption;
}

Touch touchOf(const Image& image) {
    return Touch(image.index);
}

/// A tray with an arrow: down into it to save or store, up out of it to load or recall.
void drawTrayKey(const Canvas& canvas, const Image& image, bool into) {
    const Box& box = image.box;
    const Colour ink = inkOf(touchOf(image));
    drawStripKey(canvas, box.left + 1, box.top + 1, box.width() - 2, 12, touchOf(image));
    const double x = box.centreX(), y = box.top + 7, tip = into ? 1.5 : -4.5;
    const double back = into ? tip - 3.2 : tip + 3.2;
    canvas.triangle(x, tip + y, x - 3.6, back + y, x + 3.6, back + y);
    canvas.fill(ink);
    canvas.block(x - 1, y - 4.5, 2, into ? 3.5 : 6, ink);
    cairo_t* cairo = canvas.cairo();
    cairo_move_to(cairo, x - 5, y + 0.5);
    cairo_line_to(cairo, x - 5, y + 3.5);
    cairo_line_to(cairo, x + 5, y + 3.5);
    cairo_line_to(cairo, x + 5, y + 0.5);
    canvas.stroke(ink, 1.3);
}

}  // namespace

void paintLoadKey(const Canvas& canvas, const Image& image) {
    drawTrayKey(canvas, image, false);
}

void paintSaveKey(const Canvas& canvas, const Image& image) {
    drawTrayKey(canvas, image, true);
}

void paintStripLabel(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    drawStripKey(canvas, box.left + 1, box.top + 1, box.width() - 2, 11, touchOf(image));
    TextStyle style;
    style.colour = inkOf(touchOf(image));
    style.maxWidth = box.width() - 8;
    drawText(canvas, image.strip.number == 992 ? "BANK" : "PRESET", box.centreX(), box.top + 10,
             style);
}

void paintRocker(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    for (int32_t side = 0; side < 2; ++side) {
        const Touch touch = image.index == 3 + side   ? Touch::kPressed
                            : image.index == 1 + side ? Touch::kHover
                                                      : Touch::kRest;
        const double left = box.left + 15 * side + (side == 0 ? 1 : 0);
        drawStripKey(canvas, left, box.top + 1, 14, 11, touch);
        const double x = left + 7, y = box.top + 6.5, tip = side == 0 ? -3 : 3;
        canvas.triangle(x + tip, y, x - tip * 0.7, y - 3.5, x - tip * 0.7, y + 3.5);
        canvas.fill(inkOf(touch));
    }
}

void paintFocusSwitch(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const Colour lamp = image.index == 2   ? kField
                        : image.index == 1 ? mix(kWell, kField, 0.35)
                                           : kWell;
    canvas.rounded(box.left, box.top, box.width(), box.height(), 3.5);
    canvas.fill(kKeyTop);
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 2.5);
    canvas.fill(lamp);
}

void paintManualKey(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const Touch touch = touchOf(image);
    canvas.circle(box.centreX(), box.centreY(), 4.4);
    canvas.fill(touch == Touch::kPressed ? kWhite
                : touch == Touch::kHover ? kField
                                         : mix(kField, kPlate, 0.25));
    TextStyle style;
    style.capHeight = 6.4;
    style.colour = kFieldInk;
    drawText(canvas, "?", box.centreX(), box.centreY() + 3.2, style);
}

}  // namespace tessel8::paint
