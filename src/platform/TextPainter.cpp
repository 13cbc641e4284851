#include "platform/TextPainter.h"

#include <algorithm>

#include "platform/Utf8.h"
#include "resources/Resources.h"

namespace tessel8 {

namespace {

const resources::Glyph& glyphOf(const resources::Font& font, char32_t code) {
    const auto found = std::lower_bound(font.codes.begin(), font.codes.end(), uint32_t(code));
    const bool known = found != font.codes.end() && *found == code;
    // The box lies behind the last character.
    return font.glyphs[known ? size_t(found - font.codes.begin()) : font.codes.size()];
}

/// `share` of 255 of the colour over the ground, rounded.
uint32_t blended(uint32_t ground, uint32_t colour, uint32_t share) {
    uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const uint32_t under = ground >> shift & 0xff, over = colour >> shift & 0xff;
        result |= (over * share + under * (255 - share) + 127) / 255 << shift;
    }
    return result;
}

}  // namespace

int32_t textWidth(std::string_view text, int32_t fontSize) {
    const resources::Font& font = resources::font(fontSize);
    int32_t width = 0;
    while (!text.empty()) {
        width += glyphOf(font, utf8::takeFirst(text)).advance;
    }
    return width;
}

int32_t lineHeight(int32_t fontSize) {
    const resources::Font& font = resources::font(fontSize);
    return font.ascent + font.descent;
}

int32_t centredBaseline(int32_t top, int32_t bottom, int32_t fontSize) {
    return top + (bottom - top - lineHeight(fontSize)) / 2 + resources::font(fontSize).ascent;
}

void drawText(const Surface& surface, const PixelRect& clip, int32_t x, int32_t baseline,
              std::string_view text, int32_t fontSize, uint32_t colour) {
    const resources::Font& font = resources::font(fontSize);
    const PixelRect visible = clip.intersected(surface.bounds());
    while (!text.empty()) {
        const resources::Glyph& glyph = glyphOf(font, utf8::takeFirst(text));
        const int32_t left = x + glyph.left, top = baseline - glyph.top;
        const PixelRect part =
            visible.intersected({left, top, left + glyph.width, top + glyph.height});
        for (int32_t row = part.top; row < part.bottom; ++row) {
            const uint8_t* coverage =
                font.coverage + glyph.offset + size_t(row - top) * glyph.width;
            uint32_t* pixels = surface.row(row);
            for (int32_t column = part.left; column < part.right; ++column) {
                pixels[column] = blended(pixels[column], colour, coverage[column - left]);
            }
        }
        x += glyph.advance;
    }
}

}  // namespace tessel8
