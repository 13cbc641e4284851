// The plate: its light, the field of the tap rows with their grooves, the wells of the groups.

#include "resources/paint/Families.h"
#include "resources/paint/Logo.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kFieldLeft = 20, kFieldRight = 850, kFirstRow = 192;
constexpr int32_t kFeedbackTop = 480, kFeedbackBottom = 532;

void drawPlate(const Canvas& canvas) {
    canvas.rectangle(0, 0, kPanelWidth, kPanelHeight);
    canvas.fillBetween(0, 0, mix(kPlate, kWhite, 0.09), 0, 168, kPlate);
    canvas.block(0, 168, kPanelWidth, kPanelHeight - 168, kPlate);
    canvas.block(0, 0, kPanelWidth, 1, mix(kPlate, kWhite, 0.25));
}

void drawField(const Canvas& canvas) {
    canvas.rounded(kFieldLeft - 1, 164.2, kFieldRight - kFieldLeft + 2, kFeedbackBottom - 163.2, 5);
    canvas.fill(kRowLight);
    canvas.rounded(kFieldLeft - 1, 163, kFieldRight - kFieldLeft + 2, kFeedbackBottom - 163, 5);
    canvas.fill(kRowDark);
    canvas.rounded(kFieldLeft, 164, kFieldRight - kFieldLeft, kFeedbackBottom - 165, 4);
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
    drawPresetField(canvas);
    paintDisplayGround(canvas);
    paintCaptions(canvas);
    drawTiles(canvas, 300, 514, 6, 22, kAmber);
    canvas.over(panel);
    return panel;
}

}  // namespace tessel8::paint
