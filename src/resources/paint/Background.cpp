// The plate: its light, the field of the tap rows with their grooves, the wells of the groups.

#include <cmath>

#include "resources/paint/Families.h"
#include "resources/paint/Logo.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kFieldLeft = 10, kFieldRight = 865;
constexpr double kBrushing = 0.055;  // opacity of the strongest streak
constexpr int32_t kFeedbackTop = 480, kFeedbackBottom = 532;

void drawPlate(const Canvas& canvas) {
    canvas.rectangle(0, 0, kPanelWidth, kPanelHeight);
    canvas.fillBetween(0, 0, mix(kPlate, kWhite, 0.09), 0, 168, kPlate);
    canvas.block(0, 168, kPanelWidth, kPanelHeight - 168, kPlate);
    // Brushed from left to right: each row a little brighter or darker than the next, and the same
    // all along, so that strips which stand at several places find one ground.
    uint32_t state = 8;
    for (int32_t y = 0; y < kPanelHeight; ++y) {
        state = state * 1664525u + 1013904223u;
        const double light = double(state >> 16 & 255) / 255 - 0.5;
        canvas.block(0, y, kPanelWidth, 1,
                     (light > 0 ? kWhite : kBlack).withAlpha(std::abs(light) * kBrushing));
    }
    canvas.block(0, 0, kPanelWidth, 1, mix(kPlate, kWhite, 0.25));
}

void drawField(const Canvas& canvas) {
    canvas.rounded(kFieldLeft - 1, 167.2, kFieldRight - kFieldLeft + 2, kFeedbackBottom - 166.2, 5);
    canvas.fill(kRowLight);
    canvas.rounded(kFieldLeft - 1, 166, kFieldRight - kFieldLeft + 2, kFeedbackBottom - 166, 5);
    canvas.fill(kRowDark);
    canvas.rounded(kFieldLeft, 167, kFieldRight - kFieldLeft, kFeedbackBottom - 168, 4);
    canvas.fill(kRow);
    for (int32_t row = 0; row <= kTaps; ++row) {
        const int32_t y = kFirstRow + kRowPitch * row;
        canvas.block(kFieldLeft, y - 1, kFieldRight - kFieldLeft, 1, kRowDark);
        canvas.block(kFieldLeft, y, kFieldRight - kFieldLeft, 1, kRowLight);
    }
}

/// Grooves between sections, in the gaps that no control touches.
void drawColumns(const Canvas& canvas) {
    for (const int32_t x : {123, 487}) {
        canvas.block(x, kFirstRow, 1, kFeedbackTop - kFirstRow - 1, kRowDark);
        canvas.block(x + 1, kFirstRow, 1, kFeedbackTop - kFirstRow - 1, kRowLight);
    }
}

/// Bars beside the rows, four and four, for the eye to count by; a rule above the master feedback.
void drawGroups(const Canvas& canvas) {
    for (int32_t group = 0; group < 2; ++group) {
        const double top = kFirstRow + 4.0 * kRowPitch * group + 4;
        canvas.rounded(kFieldLeft + 5, top, 2, 4 * kRowPitch - 8, 1);
    }
    canvas.fill(kRowLine);
    canvas.block(kFieldLeft, kFeedbackTop, kFieldRight - kFieldLeft, 1, kAmber.withAlpha(0.75));
    canvas.block(kFieldLeft, kFeedbackTop + 1, kFieldRight - kFieldLeft, 1, kRowDark);
}

/// A shallow well around a group of controls.
void drawWell(const Canvas& canvas, const Box& box) {
    canvas.rounded(box.left, box.top + 1, box.width(), box.height(), 5);
    canvas.fill(kRowLight);
    canvas.rounded(box.left, box.top, box.width(), box.height(), 5);
    canvas.fill(kRowDark);
    canvas.rounded(box.left + 1, box.top + 1, box.width() - 2, box.height() - 2, 4);
    canvas.fill(kRow);
}

void drawPresetField(const Canvas& canvas) {
    canvas.block(0, 535, kPanelWidth, 1, kRowDark);
    canvas.block(0, 536, kPanelWidth, 1, kRowLight);
    canvas.block(202, 549, 156, 15, kWell);
    canvas.block(203, 550, 154, 13, kField);
    canvas.block(344, 550, 1, 13, mix(kField, kFieldInk, 0.5));
    canvas.triangle(347.5, 555, 353.5, 555, 350.5, 559);
    canvas.fill(kFieldInk);
}

}  // namespace

Picture paintBackground() {
    Picture panel(kPanelWidth, kPanelHeight);
    const Canvas canvas({0, 0, kPanelWidth, kPanelHeight});
    drawPlate(canvas);
    drawField(canvas);
    drawColumns(canvas);
    drawGroups(canvas);
    drawWell(canvas, {41, 97, 200, 164});
    drawWell(canvas, {676, 88, 835, 164});
    drawWell(canvas, {676, 15, 835, 85});
    drawPresetField(canvas);
    paintDisplayGround(canvas);
    paintCaptions(canvas);
    drawTiles(canvas, 552, 556.5, 6, 6.6, kMint);
    canvas.over(panel);
    return panel;
}

}  // namespace tessel8::paint
