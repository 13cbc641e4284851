// The graph's grounds, its rulers, and the scales of levels.

#include <cmath>
#include <string>
#include <vector>

#include "resources/paint/Families.h"
#include "resources/paint/PixelFont.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kLevelSpan = 70;  // rows of the graph from level 0 to level 1

/// Offsets of the vertical divisions from time 0; the graph draws its own lines at the same places.
std::vector<int32_t> divisions(int32_t count) {
    switch (count) {
        case 6:
            return {50, 99, 147, 196, 245, 294};
        case 7:
            return {43, 85, 127, 168, 210, 252, 294};
        case 9:
            return {34, 66, 99, 131, 164, 196, 229, 261, 294};
        case 10:
            return {30, 60, 89, 118, 147, 177, 206, 235, 265, 294};
        case 11:
            return {28, 54, 81, 107, 134, 161, 187, 214, 241, 267, 294};
        default:
            return {38, 74, 111, 147, 184, 221, 257, 294};
    }
}

struct Ruler {
    int32_t count;                    ///< of the divisions
    std::vector<const char*> labels;  ///< one a division, "" where none fits
};

const std::vector<Ruler>& rulers() {
    static const std::vector<Ruler> table = {
        {8, {"", "25", "", "50", "", "75", "", "100ms"}},
        {8, {"", "125", "", "250", "", "375", "", "500ms"}},
        {8, {"", "250", "", "500", "", "750", "", "1s"}},
        {8, {"", "500", "", "1000", "", "1500", "", "2s"}},
        {8, {"", "1000", "", "2000", "", "3000", "", "4s"}},
        {8, {"1s", "2s", "3s", "4s", "5s", "6s", "7s", "8s"}},
        {8, {"", "1/4", "", "1/2", "", "3/4", "", "Beat"}},
        {8, {"", "1/4", "", "1/2", "", "3/4", "", "Bar"}},
        {8, {"", "1/2", "", "1", "", "3/2", "", "Bar2"}},
        {6, {"", "1", "", "2", "", "Bar3"}},
        {8, {"", "1", "", "2", "", "3", "", "Bar4"}},
        {10, {"", "1", "", "2", "", "3", "", "4", "", "Bar5"}},
        {6, {"1", "2", "3", "4", "5", "Bar6"}},
        {7, {"1", "2", "3", "4", "5", "6", "Bar7"}},
        {8, {"1", "2", "3", "4", "5", "6", "7", "Bar8"}},
        {9, {"1", "2", "3", "4", "5", "6", "7", "8", "Bar9"}},
        {10, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}},
        {11, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}},
        {8, {"1s", "2s", "3s", "4s", "5s", "6s", "7s", "8s"}},
    };
    return table;
}

struct Mark {
    double value;
    const char* label;
};

const std::vector<Mark> kPercent = {{1, "100"}, {0.75, "75"}, {0.5, "50"}, {0.25, "25"}, {0, "0"}};

/// What stands at the levels of each edit parameter.
const std::vector<std::vector<Mark>>& levelScales() {
    static const std::vector<std::vector<Mark>> table = {
        {{1, "+12"}, {0.75, "+7"}, {0.5, "0"}, {0.25, "-12"}, {0, "OFF"}},
        {{1, "200"}, {0.875, "100"}, {0.5, "0"}, {0.125, "-100"}, {0, "-200"}},
        {{1, "R"}, {0.75, "50"}, {0.5, "C"}, {0.25, "50"}, {0, "L"}},
        {{1, "20k"}, {0.801, "5k"}, {0.566, "1k"}, {0.333, "200"}, {0.133, "50"}, {0, "20"}},
        kPercent,
        {{1, "+18"}, {0.75, "+9"}, {0.5, "0"}, {0.25, "-9"}, {0, "-18"}},
        {{1, "EF"}, {0.75, "75"}, {0.5, "50"}, {0.25, "25"}, {0, "LFO"}},
        {{1, "100"}, {0.75, "50"}, {0.5, "0"}, {0.25, "-50"}, {0, "-100"}},
        kPercent,
        kPercent,
        kPercent,
    };
    return table;
}

void drawDotted(const Canvas& canvas, const Box& box, int32_t y, Colour colour) {
    for (int32_t x = box.left; x < box.right; x += 3) {
        canvas.rectangle(x, y, 1, 1);
    }
    canvas.fill(colour);
}

}  // namespace

void paintGraphGround(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const Colour line = kLcd, dots = mix(kLcdMiddle, kLcd, 0.8);
    const auto row = [&box](double level) {
        return box.top + kLevelSpan - int32_t(level * kLevelSpan);
    };
    canvas.block(box.left, box.top, box.width(), box.height(), kLcdMiddle);
    canvas.block(box.left, row(1), box.width(), 1, line);
    canvas.block(box.left, row(0), box.width(), 1, line);
    for (const double level : {0.25, 0.5, 0.75}) {
        drawDotted(canvas, box, row(level), dots);
    }
    if (image.index >= 1) {
        canvas.block(box.left, row(0.5), box.width(), 1, line);
    }
    if (image.index == 2) {
        drawDotted(canvas, box, row(0.125), dots);
        drawDotted(canvas, box, row(0.875), dots);
    }
}

void paintRuler(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const Ruler& ruler = rulers()[size_t(image.index)];
    canvas.block(box.left, box.top, box.width(), box.height(), kLcd);
    const std::vector<int32_t> places = divisions(ruler.count);
    for (size_t i = 0; i < places.size(); ++i) {
        const std::string label = ruler.labels[i];
        if (label.empty()) {
            canvas.block(box.left + places[i], box.top, 1, 3, kLcdSoft);
            continue;
        }
        const int32_t width = pixelWidth(label);
        const int32_t left = std::min(places[i] - width / 2, box.width() - width);
        drawPixels(canvas, label, box.left + left, box.top, kLcdText);
    }
    drawPixels(canvas, "0", box.left, box.top, kLcdText);
}

void paintLevelScale(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const bool graph = image.index >= 11;
    // The row of level 1 and the rows from there to level 0, beside the bars or beside the graph.
    const double top = graph ? 0 : 11, span = graph ? 70 : 80;
    int32_t free = 0;  // the first row that no label has taken yet
    for (const Mark& mark : levelScales()[size_t(image.index % 11)]) {
        const double y = top + span * (1 - mark.value);
        const int32_t row = std::max(free, int32_t(std::lround(y)) - 3);
        free = row + kPixelHeight + 1;
        drawNarrow(canvas, mark.label, box.left + 8.5, box.top + row, kLcdText);
    }
}

void paintMeterScale(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    constexpr int32_t kMeterLeft = 9, kMeterWidth = 145;
    for (int32_t decibels = 0; decibels >= -42; decibels -= 6) {
        const double share = 1 + decibels * std::log(10.0) / 20 / 5;
        const double x = box.left + kMeterLeft + std::round(share * (kMeterWidth - 1));
        drawPixels(canvas, std::to_string(-decibels),
                   int32_t(x) - pixelWidth(std::to_string(-decibels)) / 2, box.top + 2,
                   image.index == 0 ? kLcdSoft : kLcdText);
        canvas.block(x, box.top, 1, 1, kLcdSoft);
        canvas.block(x, box.bottom - 1, 1, 1, kLcdSoft);
    }
    drawNarrow(canvas, "dB", box.right - 3.5, box.top + 2, kLcdSoft);
}

}  // namespace tessel8::paint
