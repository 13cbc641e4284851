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
    {27, 73, "TAP", kMint},      {78, 121, "FEEDBACK", kAmber}, {127, 228, "LEVEL", kMint},
    {233, 483, "DELAY", kMint},  {491, 648, "FILTER", kIce},    {652, 725, "MODULATION", kRose},
    {729, 785, "DRIVE", kCoral}, {789, 845, "REVERB", kViolet},
};

struct Head {
    double centre;
    const char* word;
    double room;
};

const Head kHeads[] = {
    {42, "ON", 30},      {65.5, "SEND", 20},   {92.5, "AMT", 22},   {115, "PRE", 21},
    {142.5, "GAIN", 28}, {177.5, "WIDTH", 29}, {211.5, "BAL", 22},  {358, "TIME", 40},
    {500.5, "ON", 21},   {526.5, "TYPE", 26},  {561.5, "FREQ", 26}, {597, "RESO", 26},
    {631.5, "GAIN", 26}, {665, "SRC", 20},     {685.5, "INV", 17},  {709.5, "DEPTH", 28},
    {739, "ON", 21},     {769, "AMT", 22},     {798.5, "ON", 19},   {827, "MIX", 20},
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
    {743, 40, "TAP PAD", 38},
    {756, 110, "REVERB", 60, kViolet},
    {772, 122, "DAMP", 36},
    {810, 122, "MIX", 36},
    // Feedback row.
    {177.5, 529, "GAIN"},
    {211, 529, "PAN L", 30},
    {237, 511, "LINK", 16},
    {265.5, 529, "PAN R", 30},
    {561.5, 529, "FREQ"},
    {598.5, 529, "RESO"},
    {666.5, 529, "SRC"},
    {709.5, 529, "DEPTH"},
    {769.5, 529, "AMT"},
    // Preset strip.
    {45.5, 547, "SAVE", 26},
    {96.5, 547, "LOAD", 26},
    {125.5, 547, "SAVE", 26},
    {188.5, 547, "LOAD", 26},
    {280, 547, "PROGRAM", 80},
    {379, 547, "STEP", 30},
    {421.5, 547, "STORE", 29},
    {454.5, 547, "RECALL", 30},
    {485.5, 547, "STORE", 29},
    {519.5, 547, "RECALL", 30},
    {438, 561, "A"},
    {502.5, 561, "B"},
};

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
}

void drawTapNumbers(const Canvas& canvas) {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        TextStyle style;
        style.colour = kQuiet;
        style.capHeight = 8;
        drawText(canvas, std::to_string(tap + 1), 858, 215 + kRowPitch * tap, style);
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

    style.colour = kCaption;
    style.spacing = 4;
    drawText(canvas, "VANTOR", 157, 50, style);
    style.colour = kQuiet;
    style.spacing = 3;
    drawText(canvas, "VANTORAUDIO", 690, 560, style);
    style.spacing = 0.4;
    style.align = Align::kRight;
    drawText(canvas, "KEYS", 838, 560, style);

    style.align = Align::kCentre;
    style.colour = kAmber;
    style.capHeight = 9;
    style.spacing = 2;
    drawText(canvas, "MASTER FEEDBACK", 388, 503, style);
}

}  // namespace tessel8::paint
