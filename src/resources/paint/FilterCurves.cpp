// The filter types: the shape of the response over the name.

#include <cmath>
#include <functional>
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
    drawPixelsBetween(canvas, type.name, ground.left, ground.right, ground.bottom - 9, kLcdText);
}

void paintWaves(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const std::function<double(double)> waves[] = {
        [](double x) {
            const double sine = std::sin(x * 6.2832);
            return std::copysign(std::pow(std::abs(sine), 0.65), sine);
        },
        [](double x) { return x < 0.5 ? 1.0 : -1.0; },
        [](double x) { return x < 0.25   ? 4 * x
                              : x < 0.75 ? 2 - 4 * x
                                         : 4 * x - 4; },
        [](double x) { return 1 - 4 * std::fmod(x, 0.5); },
        [](double x) {
            constexpr double kSteps[] = {0.3, -0.7, 1, -0.2, -1};
            return kSteps[int32_t(x * 4.99)];
        },
    };
    for (int32_t i = 0; i < 5; ++i) {
        const double left = box.left + 79.0 * i / 5, right = box.left + 79.0 * (i + 1) / 5;
        const bool lit = i == image.index;
        canvas.rounded(std::round(left) + 1, box.top + 1, std::round(right - left) - 2, 9, 1.5);
        canvas.fill(lit ? kLcdText : kLcdDeep);
        cairo_new_path(canvas.cairo());
        for (int32_t step = 0; step <= 40; ++step) {
            cairo_line_to(canvas.cairo(), left + 2.8 + (right - left - 5.6) * step / 40,
                          box.top + 5.5 - 3 * waves[i](step / 40.0));
        }
        canvas.stroke(lit ? kLcdInk : kLcdSoft, 1.1);
    }
}

}  // namespace tessel8::paint
