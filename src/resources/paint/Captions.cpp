// The words of the plate, and the rules and brackets that go with them.

#include "resources/paint/CaptionTable.h"
#include "resources/paint/Families.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

namespace {

void drawSection(const Canvas& canvas, const Section& section) {
    const double width = section.right - section.left;
    canvas.rounded(section.left, section.top, width, 2, 1);
    canvas.fill(section.colour);
    TextStyle style;
    style.colour = section.colour;
    style.maxWidth = width;
    drawText(canvas, section.title, section.left + width / 2, section.top + kSectionTitle, style);
}

/// Horizontal rules beside words, in pixels: left, right, top.
constexpr int32_t kRules[][3] = {
    {264, 334, 186}, {382, 429, 186},                                    // 0 to the range
    {151, 163, 543},                                                     // save to load
    {203, 247, 543}, {313, 357, 543}, {414, 418, 543}, {458, 462, 543},  // over their groups
    {478, 482, 543}, {523, 527, 543},
};

/// The ends of the brackets over the groups of the preset strip, left and right.
constexpr int32_t kBrackets[][2] = {{203, 356}, {414, 461}, {478, 526}};

}  // namespace

void paintCaptions(const Canvas& canvas) {
    for (const Section& section : sections()) {
        drawSection(canvas, section);
    }
    for (const Caption& caption : captions()) {
        if (caption.right > 0) {
            drawJustified(canvas, caption.word, caption.x, caption.right, caption.y, caption.style);
        } else {
            drawText(canvas, caption.word, caption.x, caption.y, caption.style);
        }
    }
    for (const auto& [left, right, top] : kRules) {
        canvas.block(left, top, right - left, 1, kRowLine);
    }
    for (const auto& [left, right] : kBrackets) {
        canvas.block(left, 543, 1, 4, kRowLine);
        canvas.block(right, 543, 1, 4, kRowLine);
    }
}

}  // namespace tessel8::paint
