// The delay sliders: a groove with ten divisions, the time in mint, a cap with a line, and the
// step keys at both ends.

#include "resources/paint/Families.h"
#include "resources/paint/Keys.h"

namespace tessel8::paint {

namespace {

constexpr double kMargin = 12;  // from the rectangle's edge to the cap's outermost centre
constexpr double kCapWidth = 12, kCapHeight = 24;

}  // namespace

void paintSlider(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const double y = box.top + 19, first = box.left + kMargin;
    const double span = box.width() - 2 * kMargin;
    const double x = first + span * image.value();

    for (int32_t i = 0; i <= 10; ++i) {
        const double tick = first + span * i / 10;
        const double height = i % 5 == 0 ? 4 : 2.5;
        canvas.block(tick - 0.5, y + 7, 1, height, kQuiet.withAlpha(i % 5 == 0 ? 0.9 : 0.55));
    }
    canvas.rounded(first - 5, y - 3.5, span + 10, 7, 3.5);
    canvas.fill(kRowLight);
    canvas.rounded(first - 5, y - 4, span + 10, 7, 3.5);
    canvas.fill(kRowDark);
    canvas.rounded(first - 4, y - 3, span + 8, 5.5, 2.7);
    canvas.fill(kWell);
    canvas.rounded(first - 3, y - 2, x - first + 3 + 3, 3.5, 1.7);
    canvas.fill(kMint);

    const double left = x - kCapWidth / 2, top = y - kCapHeight / 2;
    for (int32_t ring = 2; ring >= 1; --ring) {
        canvas.rounded(left + 0.5, top + 1, kCapWidth, kCapHeight, 2.5);
        cairo_set_line_width(canvas.cairo(), ring);
        canvas.fill(kBlack.withAlpha(0.25));
    }
    canvas.rounded(left, top, kCapWidth, kCapHeight, 2.5);
    canvas.fillBetween(left, top, {150, 160, 170}, left + kCapWidth, top + kCapHeight,
                       {48, 54, 61});
    canvas.rounded(left + 0.8, top + 0.8, kCapWidth - 1.6, kCapHeight - 1.6, 2);
    canvas.fillBetween(left, top, {112, 122, 133}, left + kCapWidth, top + kCapHeight,
                       {66, 74, 83});
    canvas.rounded(x - 1.1, top + 3, 2.2, kCapHeight - 6, 1);
    canvas.fill({248, 250, 250});
}

void paintStepKey(const Canvas& canvas, const Image& image) {
    const bool up = image.strip.number == 138, pressed = image.index == 1;
    const double x = image.box.centreX(), y = 211;
    drawKey(canvas, x - 6, y - 13, 12, 26, pressed ? KeyState::kLit : KeyState::kOff, kMint);
    const double tip = up ? 3 : -3;
    canvas.triangle(x + tip, y, x - tip * 0.8, y - 4.5, x - tip * 0.8, y + 4.5);
    canvas.fill(pressed ? kInk : kCaption);
}

}  // namespace tessel8::paint
