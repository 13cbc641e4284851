#include "resources/paint/CaptionTable.h"

namespace tessel8::paint {

namespace {

constexpr double kHeadLine = 190;   // baseline of the column heads
constexpr double kFootLine = 529;   // of the words below the feedback row
constexpr double kTitleLine = 547;  // of the titles of the preset strip
constexpr double kStripLine = 560;  // of the words between its controls

constexpr Caption fitted(double centre, double y, const char* word, double room) {
    return {centre, y, word, {.maxWidth = room}};
}
constexpr Caption head(double centre, const char* word, double room) {
    return fitted(centre, kHeadLine, word, room);
}
constexpr Caption foot(double centre, const char* word, double room = 0) {
    return fitted(centre, kFootLine, word, room);
}
constexpr Caption rowNumber(int32_t tap, const char* word) {
    return {857, 215 + 36.0 * (tap - 1), word, {.capHeight = 8}};
}
constexpr Caption from(double left, double y, const char* word, TextStyle style = {}) {
    style.align = Align::kLeft;
    return {left, y, word, style};
}
constexpr Caption upTo(double right, double y, const char* word, TextStyle style = {}) {
    style.align = Align::kRight;
    return {right, y, word, style};
}
constexpr Caption between(double left, double right, double y, const char* word,
                          TextStyle style = {}) {
    style.align = Align::kLeft;
    return {left, y, word, style, right};
}

const Caption kCaptions[] = {
    // Above the display.
    from(220, 20, "EIGHT-TAP STEREO DELAY", {.colour = kQuiet, .spacing = 2}),
    {493, 20, "TAP EDIT", {.spacing = 0.6}},
    {605, 20, "MODULATION", {.colour = kRose, .spacing = 0.6}},
    // Master, reverb and tap pad.
    between(113, 197, 51, "VANTOR"),
    {70.5, 112, "INPUT"},
    {121, 112, "MIX"},
    {170, 112, "OUTPUT"},
    {704, 67, "SETS"},
    fitted(772, 121, "DAMP", 34),
    fitted(810, 121, "MIX", 34),
    // Column heads. What a lamp's word says holds while it is lit.
    head(41.5, "ON", 27),
    head(65.5, "SEND", 19),
    head(90, "AMT", 18),
    head(113, "POST", 18),
    head(142.5, "GAIN", 27),
    head(177.5, "WIDTH", 28),
    head(211.5, "BAL", 22),
    head(358, "TIME", 40),
    head(500.5, "ON", 20),
    head(526.5, "TYPE", 24),
    head(561.5, "FREQ", 25),
    head(597, "RESO", 25),
    head(631.5, "GAIN", 25),
    head(665, "SRC", 18),
    head(685.5, "\u00D8", 9),
    head(709.5, "DEPTH", 27),
    head(738.5, "ON", 18),
    head(768.5, "AMT", 21),
    head(798.5, "ON", 18),
    head(827, "MIX", 19),
    // From the start of the sliders to the range that the display's zoom gives them.
    {257, kHeadLine, "0", {.colour = kQuiet}},
    upTo(471, kHeadLine, "RANGE", {.colour = kQuiet}),
    head(857, "TAP", 15),
    rowNumber(1, "1"),
    rowNumber(2, "2"),
    rowNumber(3, "3"),
    rowNumber(4, "4"),
    rowNumber(5, "5"),
    rowNumber(6, "6"),
    rowNumber(7, "7"),
    rowNumber(8, "8"),
    // Feedback row.
    foot(37.5, "ON"),
    foot(86, "ROUTING"),
    foot(129.5, "FROM", 22),
    foot(177.5, "GAIN"),
    foot(213, "PAN L", 29),
    fitted(238, 511, "LINK", 18),
    foot(265.5, "PAN R", 29),
    {388, 501, "MASTER FEEDBACK", {.capHeight = 9, .colour = kAmber, .spacing = 2}},
    {388,
     519,
     "TAP \u203A PAN \u203A FILTER \u203A DRIVE \u203A ALL LINES",
     {.colour = kQuiet, .maxWidth = 176}},
    foot(500.5, "ON"),
    foot(526.5, "TYPE", 24),
    foot(561.5, "FREQ"),
    foot(598.5, "RESO"),
    foot(666.5, "SRC"),
    foot(709.5, "DEPTH", 28),
    foot(739.5, "ON"),
    foot(769.5, "AMT"),
    foot(820, "ALL FB OFF", 48),
    // Preset strip.
    from(37.5, kTitleLine, "SAVE"),
    upTo(104.5, kTitleLine, "LOAD"),
    from(117.5, kTitleLine, "SAVE"),
    upTo(196.5, kTitleLine, "LOAD"),
    {280, kTitleLine, "PROGRAM"},
    {379, kTitleLine, "STEP"},
    {438, kTitleLine, "MEMO"},
    {502.5, kTitleLine, "MEMO"},
    {438, kStripLine + 1, "A", {.capHeight = 8}},
    {502.5, kStripLine + 1, "B", {.capHeight = 8}},
    between(620, 750, kStripLine, "VANTORAUDIO", {.colour = kQuiet}),
    upTo(838, kStripLine, "KEYBOARD"),
    fitted(859, kTitleLine, "HELP", 17),
};

const Section kSections[] = {
    {27, 54, 168.5, "TAP", kMint},       {58, 121, 168.5, "FEEDBACK", kAmber},
    {127, 228, 168.5, "LEVEL", kMint},   {232, 484, 168.5, "DELAY", kMint},
    {491, 649, 168.5, "FILTER", kIce},   {653, 725, 168.5, "MODULATION", kRose},
    {729, 786, 168.5, "DRIVE", kCoral},  {790, 845, 168.5, "REVERB", kViolet},
    {725, 830, 93.5, "REVERB", kViolet}, {681, 762, 21.5, "TAP PAD", kMint},
};

const DisplayWord kDisplayWords[] = {
    {336, 363, 136, "NOTE"},     {390, 423, 136, "BPM"},      {578, 595, 77, "NUM"},
    {598, 611, 77, "Hz"},        {614, 631, 77, "DEN"},       {568, 641, 88, "LFO PHASE"},
    {568, 641, 111, "EF SPEED"}, {565, 613, 136, "EF INPUT"},
};

}  // namespace

std::span<const Caption> captions() {
    return kCaptions;
}

std::span<const Section> sections() {
    return kSections;
}

std::span<const DisplayWord> displayWords() {
    return kDisplayWords;
}

}  // namespace tessel8::paint
