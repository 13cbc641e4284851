// What lies on the green display: words, keys, bars, meters, lamps. All of it on whole pixels.

#include "resources/paint/Lcd.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "resources/paint/Families.h"
#include "resources/paint/PixelFont.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kBarWidth = 7;

/// Every other pixel row or column from `from` to `to`, so that the bar looks made of segments.
void drawRows(const Canvas& canvas, int32_t left, int32_t from, int32_t to, Colour colour) {
    for (int32_t y = from; y < to; ++y) {
        canvas.rectangle(left, y, kBarWidth, 1);
    }
    canvas.fill(colour);
}

}  // namespace

void drawLcdWord(const Canvas& canvas, const Box& box, const std::string& word, bool lit) {
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 1.5);
    canvas.fill(lit ? kLcdText : kLcdDeep);
    drawPixelsBetween(canvas, word, box.left, box.right, box.top + (box.height() - 7) / 2,
                      lit ? kLcdInk : kLcdSoft);
}

void drawLcdKey(const Canvas& canvas, const Box& box, bool pressed) {
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 2);
    canvas.fill(pressed ? kLcdText : kLcdDim);
    canvas.rounded(box.left + 2, box.top + 2, box.width() - 4, box.height() - 4, 1.2);
    canvas.fill(pressed ? kLcdText : kLcdDeep);
}

Colour lcdKeyInk(bool pressed) {
    return pressed ? kLcdInk : kLcdText;
}

Box drawLcdWindow(const Canvas& canvas, const Box& box) {
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 2.5);
    canvas.fill(kWell);
    const Box ground = {box.left + 2, box.top + 2, box.right - 2, box.bottom - 2};
    canvas.rounded(ground.left, ground.top, ground.width(), ground.height(), 1.5);
    canvas.fill(kLcd);
    canvas.block(ground.left + 1, ground.top, ground.width() - 2, 1, kLcdDeep);
    return ground;
}

void paintLcdArrow(const Canvas& canvas, const Image& image) {
    const bool pressed = image.index == 1;
    const int32_t number = image.strip.number;
    drawLcdKey(canvas, image.box, pressed);
    const bool left = number == 176 || number == 167;
    const double x = image.box.left + 5.5 + (left ? 0.5 : -0.5), y = image.box.top + 5.5;
    const double tip = left ? -2.5 : 2.5;
    canvas.triangle(x + tip, y, x - tip * 0.8, y - 3, x - tip * 0.8, y + 3);
    canvas.fill(lcdKeyInk(pressed));
}

/// The keys that step numerator and denominator, upwards and around.
void paintFractionKey(const Canvas& canvas, const Image& image) {
    const bool pressed = image.index == 1;
    drawLcdKey(canvas, image.box, pressed);
    const double x = image.box.left + 5.5, y = image.box.top + 5.5;
    canvas.triangle(x, y - 2.5, x + 3, y + 2, x - 3, y + 2);
    canvas.fill(lcdKeyInk(pressed));
}

/// The keys of the controller map: a folder to load, a disk to save, a turning arrow to reset.
void paintMidiKey(const Canvas& canvas, const Image& image) {
    constexpr int32_t kWidth = 9, kHeight = 7;
    const char* const folder =
        "###......"
        "#..#####."
        "#......#."
        "#.#######"
        "##.....#."
        "##....##."
        "#######..";
    const char* const disk =
        ".######.."
        ".#.##.##."
        ".#.##.##."
        ".#######."
        ".##...##."
        ".##...##."
        ".#######.";
    const char* const turn =
        "...###.#."
        "..#...##."
        ".#...###."
        ".#......."
        ".#.....#."
        "..#...#.."
        "...###...";
    const int32_t number = image.strip.number;
    const char* const dots = number == 173 ? folder : number == 175 ? disk : turn;
    const bool pressed = image.index == 1;
    canvas.rounded(image.box.left, image.box.top + 1, image.box.width(), 9, 1.5);
    canvas.fill(pressed ? kLcdText : kLcdDeep);
    for (int32_t y = 0; y < kHeight; ++y) {
        for (int32_t x = 0; x < kWidth; ++x) {
            if (dots[y * kWidth + x] == '#') {
                canvas.rectangle(image.box.left + 2 + x, image.box.top + 2 + y, 1, 1);
            }
        }
    }
    canvas.fill(lcdKeyInk(pressed));
}

void paintBar(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const int32_t foot = box.bottom - 1, middle = box.top + 40;
    const int32_t level = foot - 2 * image.index;  // the row that the bar reaches
    canvas.block(box.left, box.top, kBarWidth, box.height(), kLcdDeep);
    switch (image.strip.number) {
        case 180:
            drawRows(canvas, box.left, std::min(level, middle), std::max(level, middle) + 1,
                     kLcdText);
            break;
        case 181:
            drawRows(canvas, box.left, level, foot + 1, kLcdText);
            break;
        default: {  // from the middle to both ends; hollow where the sides are swapped
            const int32_t reach = std::abs(level - middle);
            drawRows(canvas, box.left, middle - reach, middle + reach + 1, kLcdText);
            if (level > middle) {
                canvas.block(box.left + 1, middle - reach + 1, kBarWidth - 2, 2 * reach - 1,
                             kLcdDeep);
            }
        }
    }
    if (image.strip.number != 181) {
        canvas.block(box.left, middle, kBarWidth, 1, kLcdLight);
    }
}

void paintBarScale(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    for (int32_t i = 0; i <= 8; ++i) {
        const bool quarter = i % 2 == 0;
        canvas.block(box.left + (quarter ? 0 : 1), box.top + 10 * i, quarter ? 5 : 3, 1,
                     quarter ? kLcdSoft : mix(kLcd, kLcdSoft, 0.5));
    }
}

void paintWideBar(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const int32_t top = box.top + 2, height = box.height() - 4;
    const int32_t reach = 2 * image.index;  // of 73 columns
    canvas.block(box.left, top, box.width(), height, kLcdDeep);
    for (int32_t i = 0; i <= 4; ++i) {
        canvas.block(box.left + 18 * i, top, 1, height, kLcdDim);
    }
    const bool centred = image.strip.number == 182;
    const int32_t from = centred ? std::min(reach, 36) : 0;
    const int32_t to = centred ? std::max(reach, 36) : reach;
    canvas.block(box.left + from, top + 1, to - from + 1, height - 2, kLcdText);
    if (centred) {
        canvas.block(box.left + 36, top - 1, 1, height + 2, kLcdText);
    }
}

void paintMeter(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    for (int32_t i = 0; i < image.strip.images - 1; ++i) {
        // From -6 dB upwards the segments are higher and brighter: the last part of the way.
        const bool lit = i < image.index, high = i >= 62;
        const double inset = high ? 1 : 2;
        canvas.block(box.left + 2 * i, box.top + inset, 1, box.height() - 2 * inset,
                     lit ? (high ? mix(kLcdText, kWhite, 0.5) : kLcdText) : kLcdDim);
    }
}

void paintClipLamp(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    canvas.block(box.left, box.top + 1, box.width(), box.height() - 2,
                 image.index == 1 ? Colour{255, 196, 176} : kLcdDeep);
}

void paintTapLamp(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool on = image.index == 1;
    canvas.block(box.left, box.top, box.width(), box.height(), on ? kLcdText : kLcdDeep);
    drawPixels(canvas, std::string(1, char('1' + image.strip.number - 145)), box.left + 1,
               box.top + 1, on ? kLcdInk : kLcdSoft);
}

void paintGraphSwitch(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool on = image.index == 1;
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 2.5);
    canvas.fill(on ? kLcdText : kLcdDim);
    if (!on) {
        canvas.rounded(box.left + 2, box.top + 2, box.width() - 4, box.height() - 4, 2);
        canvas.fill(kLcdDeep);
    }
    const Colour ink = on ? kLcdInk : kLcdText;
    // Echoes on an axis.
    constexpr std::array<int32_t, 4> kHeights = {10, 7, 5, 3};
    canvas.block(box.left + 4, box.bottom - 5, 12, 1, ink);
    for (size_t i = 0; i < kHeights.size(); ++i) {
        canvas.block(box.left + 5 + 3 * double(i), box.bottom - 5 - kHeights[i], 2, kHeights[i],
                     ink);
    }
}

}  // namespace tessel8::paint
