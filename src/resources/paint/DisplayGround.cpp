// The green display: its glass, and the words that stand on it in both of its modes.

#include "resources/paint/CaptionTable.h"
#include "resources/paint/Families.h"
#include "resources/paint/PixelFont.h"

namespace tessel8::paint {

namespace {

constexpr Box kGlass = {220, 35, 650, 150};

}  // namespace

void paintDisplayGround(const Canvas& canvas) {
    const double width = kGlass.width(), height = kGlass.height();
    // A black frame let into the plate, darker where the light does not reach.
    canvas.rounded(kGlass.left - 7, kGlass.top - 7, width + 14, height + 14, 7);
    canvas.fill(kRowLight);
    canvas.rounded(kGlass.left - 7, kGlass.top - 7.8, width + 14, height + 14, 7);
    canvas.fill({16, 19, 22});
    canvas.rounded(kGlass.left - 6, kGlass.top - 6, width + 12, height + 12, 6);
    canvas.fillBetween(0, kGlass.top - 6, {38, 43, 48}, 0, kGlass.bottom + 6, {20, 23, 26});
    canvas.rounded(kGlass.left - 1, kGlass.top - 1, width + 2, height + 2, 2);
    canvas.fill({12, 16, 15});
    canvas.block(kGlass.left, kGlass.top, width, height, kLcd);
    // The frame's shadow on the glass: outside of every control.
    canvas.block(kGlass.left, kGlass.top, width, 1, kLcdDeep);
    canvas.block(kGlass.left, kGlass.top, 1, height, kLcdDeep);

    canvas.block(441, 40, 1, 106, kLcdDim);
    canvas.block(559, 40, 1, 106, kLcdDim);
    canvas.block(225, 122, 210, 1, kLcdDim);
    for (const DisplayWord& word : displayWords()) {
        drawPixelsBetween(canvas, word.word, word.left, word.right, word.top, kLcdSoft);
    }
    canvas.block(412, 130, 1, 2, kLcdText);  // decimal points of the tempo and of the LFO
    canvas.block(604, 72, 1, 2, kLcdText);
}

}  // namespace tessel8::paint
