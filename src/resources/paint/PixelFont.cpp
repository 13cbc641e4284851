#include "resources/paint/PixelFont.h"

#include <cmath>
#include <span>

#include "resources/paint/PixelGlyphs.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kWide = 5, kName = 4, kNarrow = 3;

const char* dotsOf(char code) {
    return code >= 32 ? kGlyphs[code - 32] : kGlyphs[0];
}

void drawDots(const Canvas& canvas, const char* dots, int32_t width, int32_t left, int32_t top,
              Colour colour) {
    for (int32_t y = 0; y < kPixelHeight; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            if (dots[y * width + x] == '#') {
                canvas.rectangle(left + x, top + y, 1, 1);
            }
        }
    }
    canvas.fill(colour);
}

void drawLetters(const Canvas& canvas, std::span<const NarrowGlyph> letters, int32_t width,
                 const std::string& text, double x, int32_t top, Colour colour) {
    const int32_t pitch = width + 1;
    auto left = int32_t(std::floor(x - (double(text.size()) * pitch - 1) / 2 + 0.5));
    for (const char code : text) {
        for (const NarrowGlyph& glyph : letters) {
            if (glyph.code == code) {
                drawDots(canvas, glyph.dots, width, left, top, colour);
            }
        }
        left += pitch;
    }
}

}  // namespace

void drawPixels(const Canvas& canvas, const std::string& text, int32_t left, int32_t top,
                Colour colour) {
    for (const char code : text) {
        drawDots(canvas, dotsOf(code), kWide, left, top, colour);
        left += kPixelPitch;
    }
}

void drawPixelsBetween(const Canvas& canvas, const std::string& text, int32_t left, int32_t right,
                       int32_t top, Colour colour) {
    drawPixels(canvas, text, left + (right - left - pixelWidth(text)) / 2, top, colour);
}

void drawNarrow(const Canvas& canvas, const std::string& text, double x, int32_t top,
                Colour colour) {
    drawLetters(canvas, kNarrowGlyphs, kNarrow, text, x, top, colour);
}

void drawName(const Canvas& canvas, const std::string& text, double x, int32_t top, Colour colour) {
    drawLetters(canvas, kNameGlyphs, kName, text, x, top, colour);
}

void drawBig(const Canvas& canvas, char code, int32_t left, int32_t top, Colour colour) {
    const char* dots = dotsOf(code);
    const auto set = [dots](int32_t x, int32_t y) {
        return x >= 0 && x < kWide && y >= 0 && y < kPixelHeight && dots[y * kWide + x] == '#';
    };
    // Every dot becomes four; where two neighbours meet at a corner and the other two do not, the
    // quarter between them takes their state: diagonals turn smooth, corners stay square.
    for (int32_t y = 0; y < kPixelHeight; ++y) {
        for (int32_t x = 0; x < kWide; ++x) {
            for (int32_t quarter = 0; quarter < 4; ++quarter) {
                const int32_t right = quarter % 2, low = quarter / 2;
                const bool side = set(x + (right ? 1 : -1), y);
                const bool otherSide = set(x + (right ? -1 : 1), y);
                const bool end = set(x, y + (low ? 1 : -1));
                const bool otherEnd = set(x, y + (low ? -1 : 1));
                const bool smooth = side == end && side != otherSide && end != otherEnd;
                if (smooth ? side : set(x, y)) {
                    canvas.rectangle(left + 2 * x + right, top + 1 + 2 * y + low, 2, 1);
                }
            }
        }
    }
    canvas.fill(colour);
}

}  // namespace tessel8::paint
