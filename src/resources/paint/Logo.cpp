#include "resources/paint/Logo.h"

#include <cmath>

#include "resources/paint/Families.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

void drawTiles(const Canvas& canvas, double left, double y, double size, double pitch,
               Colour colour) {
    for (int32_t i = 0; i < kTaps; ++i) {
        const double x = left + size / 2 + pitch * i, half = size / 2;
        cairo_t* cairo = canvas.cairo();
        cairo_move_to(cairo, x, y - half);
        cairo_line_to(cairo, x + half, y);
        cairo_line_to(cairo, x, y + half);
        cairo_line_to(cairo, x - half, y);
        cairo_close_path(cairo);
        canvas.fill(mix(colour, kPlate, 1 - std::pow(0.82, i)));
    }
}

void paintLogo(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    TextStyle style;
    const double left = box.left + 2, right = box.right - 2;
    style.capHeight = 13;
    drawJustified(canvas, "TESSEL", left, right, box.top + 15, style);
    style.colour = kMint;
    style.capHeight = 11;
    drawJustified(canvas, "ECHO", left, right, box.top + 32, style);
}

}  // namespace tessel8::paint
