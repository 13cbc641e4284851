// Keys and switches of the slate: what is on is bright, what is off is dark; labels stay readable
// in both.

#include "resources/paint/Keys.h"

#include <algorithm>
#include <numbers>
#include <string>

#include "resources/paint/Families.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

namespace {

struct ToggleRow {
    int32_t number;
    const char* label;  ///< "~" is the chain of links
    Colour colour;
    double capHeight = 7;
};

const ToggleRow kToggles[] = {
    {141, "FB", kAmber}, {194, "~", kMint}, {198, "ON", kCoral}, {204, "PRE", kCoral},
    {203, "", kViolet},  {201, "", kIce},   {240, "", kAmber},   {142, "", kRose},
    {210, "", kAmber},   {193, "", kAmber}, {199, "", kCoral},   {208, "ON", kViolet, 8},
};

struct TwoWayRow {
    int32_t number;
    const char* upper;
    const char* lower;
    Colour colour;
};

const TwoWayRow kTwoWays[] = {
    {221, "DELAY", "TEMPO", kMint},
    {207, "TAPS", "OUT", kViolet},
    {209, "SPRING", "PLATE", kViolet},
};

template <typename Table>
const auto& rowOf(const Table& table, int32_t number) {
    return *std::find_if(std::begin(table), std::end(table),
                         [number](const auto& row) { return row.number == number; });
}

void drawLabel(const Canvas& canvas, const std::string& text, const Box& box, double capHeight,
               double y, double room, Colour colour) {
    TextStyle style;
    style.capHeight = capHeight;
    style.colour = colour;
    style.maxWidth = room;
    style.spacing = 0.2;
    drawText(canvas, text, box.centreX(), y, style);
}

/// The lamp of a key without a word: a bar on a tall key, a dot on a small one.
void drawLamp(const Canvas& canvas, const Box& box, bool on, Colour colour) {
    const double x = box.centreX(), y = box.centreY();
    const Colour edge = on ? mix(colour, kBlack, 0.25) : kWell;
    const Colour light = on ? mix(colour, kWhite, 0.9) : mix(colour, kWell, 0.78);
    if (box.height() < 20) {
        canvas.circle(x, y, 2.6);
        canvas.fill(edge);
        canvas.circle(x, y, 1.9);
        canvas.fill(light);
        return;
    }
    canvas.rounded(x - 2.5, y - 8, 5, 16, 2.5);
    canvas.fill(edge);
    canvas.rounded(x - 2, y - 7.5, 4, 15, 2);
    canvas.fill(light);
}

}  // namespace

void drawKey(const Canvas& canvas, double left, double top, double width, double height,
             KeyState state, Colour colour) {
    const double radius = std::min({3.0, width / 4, height / 4});
    const double right = left + width, bottom = top + height;
    canvas.rounded(left, top, width, height, radius);
    canvas.fill(kWell);
    const bool lit = state == KeyState::kLit;
    const Colour upper = lit ? mix(colour, kWhite, 0.36) : kKeyTop;
    const Colour lower = lit ? mix(colour, kBlack, 0.16) : kKeyFoot;
    canvas.rounded(left + 0.8, top + 0.8, width - 1.6, height - 1.6, radius - 0.4);
    canvas.fillBetween(left, top, mix(upper, kWhite, lit ? 0.35 : 0.2), right, bottom,
                       mix(lower, kBlack, 0.25));
    canvas.rounded(left + 1.6, top + 1.6, width - 3.2, height - 3.2, std::max(0.5, radius - 1));
    canvas.fillBetween(left, top, upper, left, bottom, lower);
}

void drawChain(const Canvas& canvas, double x, double y, double scale, Colour colour) {
    cairo_t* cairo = canvas.cairo();
    cairo_save(cairo);
    cairo_translate(cairo, x, y);
    cairo_scale(cairo, scale, scale);
    canvas.rounded(-6.5, -2.4, 6.6, 4.8, 2.4);
    canvas.stroke(colour, 1.5);
    canvas.rounded(-0.1, -2.4, 6.6, 4.8, 2.4);
    canvas.stroke(colour, 1.5);
    canvas.line(-2.6, 0, 2.6, 0);
    canvas.stroke(colour, 1.7);
    cairo_restore(cairo);
}

void paintToggle(const Canvas& canvas, const Image& image) {
    const ToggleRow& row = rowOf(kToggles, image.strip.number);
    const Box& box = image.box;
    const bool on = image.index == 1;
    drawKey(canvas, box.left + 1, box.top + 1, box.width() - 2, box.height() - 2,
            on ? KeyState::kLit : KeyState::kOff, row.colour);
    const Colour ink = on ? kInk : kQuiet;
    const std::string label = row.label;
    if (label == "~") {
        drawChain(canvas, box.centreX(), box.centreY(), box.width() > 15 ? 0.95 : 0.62, ink);
    } else if (label.empty()) {
        drawLamp(canvas, box, on, row.colour);
    } else {
        drawLabel(canvas, label, box, row.capHeight, box.centreY() + row.capHeight / 2,
                  box.width() - 7, ink);
    }
}

void paintTapSwitch(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool on = image.index == 1;
    drawKey(canvas, box.left + 1, box.top + 1, box.width() - 2, box.height() - 2,
            on ? KeyState::kLit : KeyState::kOff, kMint);
    const std::string number(1, char('1' + image.strip.number - 211));
    drawLabel(canvas, number, box, 13, box.centreY() + 6.5, box.width() - 6, on ? kInk : kQuiet);
}

void paintTwoWay(const Canvas& canvas, const Image& image) {
    const TwoWayRow& row = rowOf(kTwoWays, image.strip.number);
    const Box& box = image.box;
    const double left = box.left + 2, width = box.width() - 4;
    canvas.rounded(left - 0.8, box.top + 1.2, width + 1.6, box.height() - 2.4, 3.5);
    canvas.fill(kWell);
    for (int32_t half = 0; half < 2; ++half) {
        const double top = box.top + 2 + half * 18;
        const bool on = half == image.index;
        drawKey(canvas, left, top, width, 18, on ? KeyState::kLit : KeyState::kOff, row.colour);
        drawLabel(canvas, half == 0 ? row.upper : row.lower, box, 7, top + 12.5, width - 5,
                  on ? kInk : kQuiet);
    }
}

void paintPanic(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool on = image.index == 1;
    drawKey(canvas, box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, KeyState::kLit,
            on ? mix(kAlarm, kWhite, 0.45) : mix(kAlarm, kBlack, 0.42));
    drawLabel(canvas, "PANIC", box, 8, box.centreY() + 4, box.width() - 10, on ? kInk : kWhite);
}

void paintPower(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool on = image.index == 1;
    const double x = box.centreX(), y = box.centreY();
    for (int32_t ring = 3; ring >= 1; --ring) {
        canvas.circle(x + 0.8, y + 1.4, 24.5 + 0.6 * ring);
        canvas.fill(kBlack.withAlpha(0.14));
    }
    canvas.circle(x, y, 25);
    canvas.fill(kWell);
    canvas.circle(x, y, 22.6);
    canvas.stroke(on ? kMint : Colour{58, 66, 74}, 3);
    canvas.circle(x, y, 20);
    canvas.fillBetween(x - 14, y - 14, {138, 149, 160}, x + 14, y + 14, {38, 43, 49});
    canvas.circle(x, y, 18.8);
    canvas.fillBetween(x - 14, y - 14, {98, 108, 119}, x + 14, y + 14, {56, 63, 71});
    const Colour sign = on ? mix(kMint, kWhite, 0.35) : Colour{150, 160, 168};
    constexpr double kGapAngle = 0.62, kTop = -std::numbers::pi / 2;
    cairo_new_path(canvas.cairo());
    cairo_arc(canvas.cairo(), x, y + 0.5, 8.6, kTop + kGapAngle,
              kTop - kGapAngle + 2 * std::numbers::pi);
    canvas.stroke(sign, 2.6);
    canvas.line(x, y - 10, x, y - 1);
    canvas.stroke(sign, 2.6);
}

void paintTapPad(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool running = image.strip.number == 220, pressed = image.index == 1;
    const double left = box.left + 3, top = box.top + 3, size = box.width() - 6;
    canvas.rounded(left - 1, top - 1, size + 2, size + 2, 8);
    canvas.fill(kWell);
    canvas.rounded(left + 0.5, top + 0.5, size - 1, size - 1, 7);
    canvas.fill(running ? kMint : Colour{58, 66, 74});
    const Colour face = pressed ? mix(kMint, kWhite, running ? 0.35 : 0.05) : kKeyTop;
    const Colour foot = pressed ? mix(kMint, kBlack, 0.1) : kKeyFoot;
    canvas.rounded(left + 3, top + 3, size - 6, size - 6, 5.5);
    canvas.fillBetween(left, top, mix(face, kWhite, 0.3), left + size, top + size,
                       mix(foot, kBlack, 0.35));
    canvas.rounded(left + 4, top + 4, size - 8, size - 8, 5);
    canvas.fillBetween(left, top, face, left, top + size, foot);
    drawLabel(canvas, "TAP", box, 10, box.centreY() + 5, 36, pressed ? kInk : kCaption);
}

}  // namespace tessel8::paint
