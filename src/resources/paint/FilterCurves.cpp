// The filter types: the shape of the response over the name.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "resources/paint/Families.h"
#include "resources/paint/Lcd.h"
#include "resources/paint/PixelFont.h"

namespace tessel8::paint {

namespace {

/// Level over frequency; both run from 0 to 1, and 0.5 is unity where a filter can boost and cut.
using Shape = double (*)(double);

double bell(double x, double centre, double width) {
    const double d = (x - centre) / width;
    return std::exp(-d * d);
}
double step(double x, double centre, double width) {
    return 1 / (1 + std::exp(-(x - centre) / width));
}

double lowPass(double x) {
    return 0.68 * (1 - step(x, 0.68, 0.055)) + 0.3 * bell(x, 0.56, 0.12);
}
double bandPass(double x) {
    return 0.98 * bell(x, 0.5, 0.22);
}
double highPass(double x) {
    return lowPass(1 - x);
}
double peak(double x) {
    return 0.3 + 0.66 * bell(x, 0.5, 0.16);
}
double lowShelfBell(double x) {
    return 0.35 + 0.5 * (1 - step(x, 0.5, 0.05)) - 0.16 * bell(x, 0.63, 0.1);
}
double lowShelfClean(double x) {
    return 0.85 - 0.5 * (1 - step(x, 0.5, 0.07));
}
double highShelfBell(double x) {
    return lowShelfBell(1 - x);
}
double highShelfClean(double x) {
    return lowShelfClean(1 - x);
}
double gentleLowPass(double x) {
    return 0.8 * (1 - step(x, 0.62, 0.07));
}
double gentleHighPass(double x) {
    return gentleLowPass(1 - x);
}
double narrowBandPass(double x) {
    return 0.98 * bell(x, 0.5, 0.14);
}

struct Type {
    const char* name;
    Shape shape;
};

const Type kTapTypes[] = {{"LPF", lowPass},        {"BPF", bandPass},       {"HPF", highPass},
                          {"PEAK", peak},          {"LSHB", lowShelfBell},  {"LSHC", lowShelfClean},
                          {"HSHB", highShelfBell}, {"HSHC", highShelfClean}};
const Type kFeedbackTypes[] = {{"SVLP", lowPass},  {"SVBP", narrowBandPass},
                               {"SVHP", highPass}, {"BQLP", gentleLowPass},
                               {"BQBP", bandPass}, {"BQHP", gentleHighPass}};

}  // namespace

void paintFilterType(const Canvas& canvas, const Image& image) {
    const Type& type =
        image.strip.number == 143 ? kTapTypes[image.index] : kFeedbackTypes[image.index];
    const Box ground = drawLcdWindow(canvas, image.box);
    const double left = ground.left + 2, width = ground.width() - 4;
    const double foot = ground.top + 14, height = 11;
    for (int32_t pass = 0; pass < 2; ++pass) {  // the area first, then its edge
        cairo_new_path(canvas.cairo());
        for (int32_t i = 0; i <= 40; ++i) {
            cairo_line_to(canvas.cairo(), left + width * i / 40,
                          foot - height * type.shape(i / 40.0));
        }
        if (pass == 0) {
            cairo_line_to(canvas.cairo(), left + width, foot + 0.5);
            cairo_line_to(canvas.cairo(), left, foot + 0.5);
            canvas.fill(kLcdLight.withAlpha(0.3));
        } else {
            canvas.stroke(kLcdText, 1.3);
        }
    }
    drawName(canvas, type.name, ground.centreX(), ground.bottom - 9, kLcdText);
}

/// The waves, one period each, as the columns of a picture of dots: heights from -3 to 3.
void paintWaves(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    constexpr int32_t kWaves = 5, kColumns = 12;
    constexpr int32_t kHeights[kWaves][kColumns] = {
        {0, 2, 3, 3, 3, 2, 0, -2, -3, -3, -3, -2},    // sine
        {3, 3, 3, 3, 3, 3, -3, -3, -3, -3, -3, -3},   // square
        {0, 1, 2, 3, 2, 1, 0, -1, -2, -3, -2, -1},    // triangle
        {3, 2, 1, -1, -2, -3, 3, 2, 1, -1, -2, -3},   // saw
        {1, 1, 1, -2, -2, 3, 3, -1, -1, -1, -3, -3},  // random
    };
    for (int32_t i = 0; i < kWaves; ++i) {
        const int32_t left = box.left + (79 * i + 2) / kWaves,
                      right = box.left + (79 * (i + 1) + 2) / kWaves;
        const bool lit = i == image.index;
        canvas.rounded(left + 1, box.top + 1, right - left - 2, 9, 1.5);
        canvas.fill(lit ? kLcdText : kLcdDeep);
        const int32_t middle = box.top + 5, first = (left + right - kColumns) / 2;
        int32_t before = kHeights[i][0];
        for (int32_t column = 0; column < kColumns; ++column) {
            // A step of more than one row is joined within its column.
            const int32_t height = kHeights[i][column];
            const int32_t near =
                std::abs(height - before) > 1 ? before + (height > before ? 1 : -1) : height;
            const int32_t top = middle - std::max(height, near),
                          foot = middle - std::min(height, near);
            canvas.rectangle(first + column, top, 1, foot - top + 1);
            before = height;
        }
        canvas.fill(lit ? kLcdInk : kLcdSoft);
    }
}

}  // namespace tessel8::paint
