// Every word of the plate: sections, column heads, knobs, the preset strip.

#include <string>

#include "resources/paint/Families.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

namespace {

struct Section {
    double left, right;
    const char* title;
    Colour colour;
};

const Section kSections[] = {
    {27, 54, "TAP", kMint},      {58, 121, "FEEDBACK", kAmber}, {127, 228, "LEVEL", kMint},
    {232, 484, "DELAY", kMint},  {491, 649, "FILTER", kIce},    {653, 725, "MODULATION", kRose},
    {729, 786, "DRIVE", kCoral}, {790, 845, "REVERB", kViolet},
};

struct Head {
    double centre;
    const char* word;
    double room;
};

const Head kHeads[] = {
    {41.5, "ON", 27},    {65.5, "SEND", 19},   {91, "AMT", 19},      {113.5, "PRE", 16},
    {142.5, "GAIN", 27}, {177.5, "WIDTH", 28}, {211.5, "BAL", 22},   {358, "TIME", 40},
    {500.5, "ON", 20},   {526.5, "TYPE", 24},  {561.5, "FREQ", 25},  {597, "RESO", 25},
    {631.5, "GAIN", 25}, {665, "SRC", 18},     {685.5, "\u00D8", 9}, {709.5, "DEPTH", 27},
    {738.5, "ON", 18},   {768.5, "AMT", 21},   {798.5, "ON", 18},    {827, "MIX", 19},
};

struct Caption {
    double x, y;  ///< middle and baseline
    const char* word;
    double room = 0;
    Colour colour = kCaption;
};

const Caption kCaptions[] = {
    {70.5, 113, "INPUT"},
    {121, 113, "MIX"},
    {170, 113, "OUTPUT"},
    {704, 67, "SETS"},
    {772, 121, "DAMP", 34},
    {810, 121, "MIX", 34},
    // Feedback row.
    {37.5, 529, "ON"},
    {86, 529, "MODE"},
    {129.5, 529, "TAP", 18},
    {177.5, 529, "GAIN"},
    {211, 529, "PAN L", 29},
    {238, 511, "LINK", 20},
    {265.5, 529, "PAN R", 29},
    {500.5, 529, "ON"},
    {526.5, 529, "TYPE", 24},
    {561.5, 529, "FREQ"},
    {598.5, 529, "RESO"},
    {666.5, 529, "SRC"},
    {709.5, 529, "DEPTH", 28},
    {739.5, 529, "ON"},
    {769.5, 529, "AMT"},
    {820, 529, "STOP ALL", 48},
    // Preset strip: between the keys of a memo.
    {438, 561, "A"},
    {502.5, 561, "B"},
};

/// A title over a group of the preset strip, with a bracket down to its ends.
struct Bracket {
    double left, right;
    const char* title;
};

const Bracket kBrackets[] = {
    {203, 357, "PROGRAM"}, {365, 393, "STEP"}, {414, 462, "MEMO"}, {478, 527, "MEMO"}};

void drawSections(const Canvas& canvas) {
    for (const Section& section : kSections) {
        canvas.rounded(section.left, 168.5, section.right - section.left, 2, 1);
        canvas.fill(section.colour);
        TextStyle style;
        style.colour = section.colour;
        style.maxWidth = section.right - section.left;
        drawText(canvas, section.title, (section.left + section.right) / 2, 180, style);
    }
    for (const Head& head : kHeads) {
        TextStyle style;
        style.maxWidth = head.room;
        drawText(canvas, head.word, head.centre, 190, style);
    }
    // From the start of the sliders to the range that the display's zoom gives them.
    TextStyle style;
    style.colour = kQuiet;
    drawText(canvas, "0", 257, 190, style);
    style.align = Align::kRight;
    const double range = drawText(canvas, "RANGE", 471, 190, style);
    canvas.block(264, 186, 68, 1, kRowLine);
    canvas.block(384, 186, 471 - range - 4 - 384, 1, kRowLine);
}

void drawTapNumbers(const Canvas& canvas) {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        TextStyle style;
        style.capHeight = 8;
        drawText(canvas, std::to_string(tap + 1), 858, 215 + kRowPitch * tap, style);
    }
}

/// The words at both ends of a group of files, above its keys.
void drawFileWords(const Canvas& canvas, double left, double right) {
    TextStyle style;
    style.align = Align::kLeft;
    const double save = drawText(canvas, "SAVE", left, 547, style);
    style.align = Align::kRight;
    const double load = drawText(canvas, "LOAD", right, 547, style);
    canvas.block(left + save + 4, 543, right - load - left - save - 8, 1, kRowLine);
}

void drawBrackets(const Canvas& canvas) {
    for (const Bracket& bracket : kBrackets) {
        TextStyle style;
        style.maxWidth = bracket.right - bracket.left - 4;
        const double middle = (bracket.left + bracket.right) / 2;
        const double half = drawText(canvas, bracket.title, middle, 547, style) / 2 + 4;
        if (bracket.left + 3 < middle - half) {
            canvas.block(bracket.left, 543, middle - half - bracket.left, 1, kRowLine);
            canvas.block(middle + half, 543, bracket.right - middle - half, 1, kRowLine);
            canvas.block(bracket.left, 543, 1, 4, kRowLine);
            canvas.block(bracket.right - 1, 543, 1, 4, kRowLine);
        }
    }
}

}  // namespace

void paintCaptions(const Canvas& canvas) {
    drawSections(canvas);
    drawTapNumbers(canvas);
    for (const Caption& caption : kCaptions) {
        TextStyle style;
        style.colour = caption.colour;
        style.maxWidth = caption.room;
        drawText(canvas, caption.word, caption.x, caption.y, style);
    }
    drawBrackets(canvas);
    drawFileWords(canvas, 37.5, 104.5);
    drawFileWords(canvas, 117.5, 196.5);
    TextStyle style;
    style.align = Align::kLeft;
    style.colour = kQuiet;
    style.spacing = 2;
    drawText(canvas, "EIGHT-TAP STEREO DELAY", 220, 20, style);
    style.align = Align::kCentre;
    style.spacing = 0.6;
    style.colour = kCaption;
    drawText(canvas, "TAP EDIT", 493, 20, style);
    style.colour = kRose;
    drawText(canvas, "MODULATION", 605, 20, style);

    canvas.rounded(725, 93, 105, 2, 1);
    canvas.fill(kViolet);
    style.colour = kViolet;
    drawText(canvas, "REVERB", 777.5, 106, style);
    canvas.rounded(681, 21, 81, 2, 1);
    canvas.fill(kMint);
    style.colour = kMint;
    drawText(canvas, "TAP PAD", 721.5, 34, style);

    style.colour = kCaption;
    drawJustified(canvas, "VANTOR", 113, 197, 51, style);
    style.colour = kQuiet;
    drawJustified(canvas, "VANTORAUDIO", 620, 760, 560, style);
    style.spacing = 0.4;
    style.align = Align::kRight;
    drawText(canvas, "KEYBOARD", 838, 560, style);

    style.align = Align::kCentre;
    style.colour = kAmber;
    style.capHeight = 9;
    style.spacing = 2;
    drawText(canvas, "MASTER FEEDBACK", 388, 503, style);
}

}  // namespace tessel8::paint
