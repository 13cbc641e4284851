// Round knobs: a body lit from the top left, a pointer, and around it the arc of the value.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "resources/paint/Families.h"

namespace tessel8::paint {

namespace {

enum class Arc : uint8_t { kFromStart, kFromMiddle, kMirrored };

struct KnobRow {
    int32_t number;
    double radius;  ///< of the arc's outer edge, pixels
    Arc arc;
    Colour colour;
};

constexpr double kTapRadius = 13.9, kFeedbackRadius = 14.8;

const KnobRow kKnobs[] = {
    {195, 19, Arc::kFromStart, kMint},
    {196, 19, Arc::kFromMiddle, kMint},
    {237, 19, Arc::kFromMiddle, kMint},
    {205, 16.5, Arc::kFromStart, kViolet},
    {206, 16.5, Arc::kFromStart, kViolet},
    {238, kTapRadius, Arc::kFromStart, kAmber},
    {133, kTapRadius, Arc::kFromMiddle, kMint},
    {131, kTapRadius, Arc::kMirrored, kMint},
    {222, kTapRadius, Arc::kFromMiddle, kMint},
    {225, kTapRadius, Arc::kFromStart, kIce},
    {226, kTapRadius, Arc::kFromStart, kIce},
    {227, kTapRadius, Arc::kFromMiddle, kIce},
    {228, kTapRadius, Arc::kFromMiddle, kRose},
    {229, kTapRadius, Arc::kFromMiddle, kRose},
    {223, kTapRadius, Arc::kFromStart, kCoral},
    {224, kTapRadius, Arc::kFromStart, kViolet},
    {134, kFeedbackRadius, Arc::kFromStart, kAmber},
    {132, kFeedbackRadius, Arc::kFromMiddle, kAmber},
    {231, kFeedbackRadius, Arc::kFromMiddle, kAmber},
    {232, kFeedbackRadius, Arc::kFromStart, kIce},
    {233, kFeedbackRadius, Arc::kFromStart, kIce},
    {234, kFeedbackRadius, Arc::kFromMiddle, kRose},
    {235, kFeedbackRadius, Arc::kFromMiddle, kRose},
    {236, kFeedbackRadius, Arc::kFromStart, kCoral},
};

constexpr double kTurn = 2 * std::numbers::pi;

/// The angle of a value as Cairo counts it: from the right, clockwise. 270 degrees in all.
double angleOf(double value) {
    return kTurn * (0.375 + 0.75 * value);
}

/// Where the centre lies: on one line for a whole row, whatever the heights of its strips.
double centreY(const Box& box) {
    const bool tapRow = box.top >= 192 && box.top < 480;
    return tapRow ? 211.0 : box.top >= 480 ? 501.0 : box.centreY() + 1;
}

void drawArc(const Canvas& canvas, double x, double y, double radius, double from, double to,
             double width, Colour colour) {
    cairo_t* cairo = canvas.cairo();
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
    cairo_new_path(cairo);
    cairo_arc(cairo, x, y, radius, std::min(from, to), std::max(from, to));
    canvas.stroke(colour, width);
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
}

void drawTicks(const Canvas& canvas, double x, double y, double radius) {
    for (int32_t i = 0; i <= 10; ++i) {
        const double dx = std::cos(angleOf(i / 10.0)), dy = std::sin(angleOf(i / 10.0));
        const double end = radius + (i % 5 == 0 ? 3.4 : 2.4);
        canvas.line(x + dx * (radius + 1.5), y + dy * (radius + 1.5), x + dx * end, y + dy * end);
        canvas.stroke(i % 5 == 0 ? kQuiet : kRowLine, 0.9);
    }
}

void drawBody(const Canvas& canvas, double x, double y, double radius) {
    const double lit = radius * 0.72;
    for (int32_t ring = 3; ring >= 1; --ring) {  // the shadow, soft at its edge
        canvas.circle(x + 0.08 * radius, y + 0.14 * radius, radius + 0.35 * ring);
        canvas.fill(kBlack.withAlpha(0.16));
    }
    canvas.circle(x, y, radius);
    canvas.fillBetween(x - lit, y - lit, {138, 149, 160}, x + lit, y + lit, {38, 43, 49});
    canvas.circle(x, y, radius - 0.9);
    canvas.fillBetween(x - lit, y - lit, {98, 108, 119}, x + lit, y + lit, {56, 63, 71});
    canvas.circle(x, y, radius * 0.68);
    canvas.fillBetween(x - lit, y - lit, {74, 82, 92}, x + lit, y + lit, {92, 101, 112});
}

}  // namespace

void paintKnob(const Canvas& canvas, const Image& image) {
    const KnobRow& knob =
        *std::find_if(std::begin(kKnobs), std::end(kKnobs),
                      [&image](const KnobRow& row) { return row.number == image.strip.number; });
    const double x = image.box.centreX(), y = centreY(image.box);
    const double thick = knob.radius * 0.2, ring = knob.radius - thick / 2;
    const double value = image.value();

    if (knob.radius > 18) {
        drawTicks(canvas, x, y, knob.radius);
    }
    drawArc(canvas, x, y, ring, angleOf(0), angleOf(1), thick + 0.6, kRowDark);
    drawArc(canvas, x, y, ring, angleOf(0), angleOf(1), thick, kWell);
    const double start = knob.arc == Arc::kFromStart    ? 0.0
                         : knob.arc == Arc::kFromMiddle ? 0.5
                                                        : 1 - value;
    if (std::abs(value - start) > 0.001) {
        const bool reversed = knob.arc == Arc::kMirrored && value < 0.5;
        const Colour colour = reversed ? mix(knob.colour, kWell, 0.45) : knob.colour;
        drawArc(canvas, x, y, ring, angleOf(start), angleOf(value), thick, colour);
    }
    if (knob.arc != Arc::kFromStart) {  // where the middle is
        drawArc(canvas, x, y, ring, angleOf(0.5) - 0.07, angleOf(0.5) + 0.07, thick, kCaption);
    }

    const double body = knob.radius - thick - 1.2;
    drawBody(canvas, x, y, body);
    const double dx = std::cos(angleOf(value)), dy = std::sin(angleOf(value));
    const double width = std::max(2.0, knob.radius * 0.15);
    canvas.line(x + dx * body * 0.30 + 0.5, y + dy * body * 0.30 + 0.6, x + dx * body * 0.9 + 0.5,
                y + dy * body * 0.9 + 0.6);
    canvas.stroke(kBlack.withAlpha(0.45), width);
    canvas.line(x + dx * body * 0.30, y + dy * body * 0.30, x + dx * body * 0.9,
                y + dy * body * 0.9);
    canvas.stroke({248, 250, 250}, width);
}

}  // namespace tessel8::paint
