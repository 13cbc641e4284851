// The words, digits and letters of the display.

#include <algorithm>
#include <string>
#include <vector>

#include "resources/paint/Families.h"
#include "resources/paint/Lcd.h"
#include "resources/paint/PixelFont.h"

namespace tessel8::paint {

namespace {

struct WordRow {
    int32_t number;
    std::vector<std::string> words;  ///< one an image
};

/// Single words of which each image shows one.
const std::vector<WordRow>& wordTable() {
    static const std::vector<WordRow> table = {
        {164, {"IN", "OUT"}},
        {165, {"", "L"}},
        {166, {"", "R"}},
        {179,
         {"TAP GAIN", "TAP WIDTH", "TAP BAL", "FLT FREQ", "FLT RESO", "FLT GAIN", "MOD SOURCE",
          "MOD DEPTH", "TAP DRIVE", "TAP REVERB", "TAP FB AMT"}},
        {186, {"IN", "TAP1", "TAP2", "TAP3", "TAP4", "TAP5", "TAP6", "TAP7", "TAP8", "OUT"}},
        {157,
         {"100 ms", "500 ms", "1000 ms", "2000 ms", "4000 ms", "8000 ms", "1 Beat", "1 Bar",
          "2 Bars", "3 Bars", "4 Bars", "5 Bars", "6 Bars", "7 Bars", "8 Bars", "9 Bars", "10 Bars",
          "11 Bars", "8000 ms"}},
    };
    return table;
}

struct SwitchRow {
    int32_t number;
    const char* word;
};

/// Words that are dark in the first image and lit in the second.
const SwitchRow kSwitches[] = {{171, "MIDI"}, {172, "LEARN"}, {169, "LFO/EF"}, {187, "SYNC"}};

const std::string& wordOf(const Image& image) {
    const auto& table = wordTable();
    const auto row = std::find_if(table.begin(), table.end(), [&image](const WordRow& entry) {
        return entry.number == image.strip.number;
    });
    return row->words[size_t(image.index)];
}

}  // namespace

void paintWord(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    drawPixelsBetween(canvas, wordOf(image), box.left, box.right,
                      box.top + (box.height() - kPixelHeight) / 2, kLcdText);
}

void paintSource(const Canvas& canvas, const Image& image) {
    drawLcdKey(canvas, image.box, false);
    drawPixelsBetween(canvas, wordOf(image), image.box.left, image.box.right, image.box.top + 2,
                      kLcdText);
}

void paintRange(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    drawPixelsBetween(canvas, wordOf(image), box.left, box.right, box.top, kLcdText);
    drawPixels(canvas, "DEL", box.left + 2, box.top + 11, kLcdSoft);
    drawPixels(canvas, "ZOOM", box.left + 23, box.top + 11, kLcdSoft);
}

void paintSwitchWord(const Canvas& canvas, const Image& image) {
    const auto* row = std::find_if(
        std::begin(kSwitches), std::end(kSwitches),
        [&image](const SwitchRow& entry) { return entry.number == image.strip.number; });
    drawLcdWord(canvas, image.box, row->word, image.index == 1);
}

void paintTimeMode(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const char* const words[] = {"TIME", "NOTE", "SYNC"};
    const int32_t edges[] = {0, 28, 55, 83};
    for (int32_t i = 0; i < 3; ++i) {
        drawLcdWord(canvas, {box.left + edges[i], box.top, box.left + edges[i + 1], box.bottom},
                    words[i], i == image.index);
    }
}

void paintMeterMode(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    const char* const words[] = {"IN", "OUT", "COM"};
    for (int32_t i = 0; i < 3; ++i) {
        const int32_t top = box.top + 12 * i;
        drawLcdWord(canvas, {box.left, top, box.right, top + 11}, words[i], i == image.index);
    }
}

void paintDigit(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    canvas.block(box.left, box.top, box.width(), box.height(), kLcd);
    if (image.index < 10) {
        drawPixels(canvas, std::string(1, char('0' + image.index)), box.left, box.top, kLcdText);
    } else if (image.index == 30) {
        drawPixels(canvas, "T", box.left, box.top, kLcdText);
    }
}

void paintSmallGlyph(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    canvas.block(box.left, box.top, box.width(), box.height(), kLcd);
    drawPixels(canvas, std::string(1, char(image.index)), box.left, box.top, kLcdText);
}

void paintBigGlyph(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    canvas.block(box.left, box.top, box.width(), box.height(), kLcd);
    // The big line writes angles in degrees, and the question mark stands for the sign.
    drawBig(canvas, image.index == '?' ? kDegree : char(image.index), box.left, box.top, kLcdText);
}

void paintMark(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    canvas.block(box.left, box.top, box.width(), box.height(), kLcd);
    const std::vector<int32_t> rows[] = {{}, {4, 11}, {13}, {3, 8, 13}};
    for (const int32_t row : rows[image.index]) {
        canvas.block(box.left + 2, box.top + row, 2, 2, kLcdText);
    }
}

/// Mode and tap of the master feedback stand in one window, of which each strip paints its part.
void paintFeedbackMode(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    drawLcdWindow(canvas, {box.left, box.top, box.right + 19, box.bottom});
    const char* const modes[] = {"MULTIECHO", "MULTITAP", "MULTIFB"};
    drawPixelsBetween(canvas, "MODE", box.left + 2, box.right, box.top + 5, kLcdSoft);
    drawPixelsBetween(canvas, modes[image.index], box.left + 2, box.right, box.top + 15, kLcdText);
}

void paintFeedbackTap(const Canvas& canvas, const Image& image) {
    const Box& box = image.box;
    drawLcdWindow(canvas, {box.left - 68, box.top, box.right, box.bottom});
    canvas.block(box.left, box.top + 4, 1, box.height() - 8, kLcdDim);
    drawNarrow(canvas, "TAP", box.left + 9.5, box.top + 5, kLcdSoft);
    const std::string number =
        image.index == 0 ? std::string("-") : std::string(1, char('0' + image.index));
    drawPixels(canvas, number, box.left + 7, box.top + 15, kLcdText);
}

}  // namespace tessel8::paint
