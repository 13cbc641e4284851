#pragma once

#include <array>
#include <string>

#include "resources/paint/Canvas.h"

namespace tessel8::paint {

constexpr char kDegree = 127;
constexpr int32_t kPixelHeight = 7, kPixelPitch = 6;  ///< of the 5 x 7 letters
constexpr int32_t kBigWidth = 11, kBigHeight = 16;    ///< of the big line's cells

/// Width in pixels of a text in the 5 x 7 letters, without the gap behind the last.
constexpr int32_t pixelWidth(const std::string& text) {
    return int32_t(text.size()) * kPixelPitch - 1;
}

/// Draws a text in 5 x 7 dots with its top left at whole pixels. 127 is the degree sign, codes
/// below 32 are blank.
void drawPixels(const Canvas& canvas, const std::string& text, int32_t left, int32_t top,
                Colour colour);

/// The same centred between two columns.
void drawPixelsBetween(const Canvas& canvas, const std::string& text, int32_t left, int32_t right,
                       int32_t top, Colour colour);

/// The 3 x 7 figures of the scales, pitch 4; centred on x.
void drawNarrow(const Canvas& canvas, const std::string& text, double x, int32_t top,
                Colour colour);

/// The 4 x 7 capitals of the filter types, pitch 5; centred on x.
void drawName(const Canvas& canvas, const std::string& text, double x, int32_t top, Colour colour);

/// One character of the big line, drawn from the 5 x 7 letter with doubled dots and smooth corners.
void drawBig(const Canvas& canvas, char code, int32_t left, int32_t top, Colour colour);

}  // namespace tessel8::paint
