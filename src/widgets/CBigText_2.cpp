#include "widgets/CBigText_2.h"

#include <algorithm>

#include "widgets/TextSheets.h"

namespace tessel8 {

namespace {

constexpr size_t kCells = 12;
constexpr size_t kTextPlaces = 23;  ///< characters and the marks between them

// Pixels.
constexpr int32_t kPitch = 18;
constexpr int32_t kGlyphWidth = 11;
constexpr int32_t kMarkAt = 12;
constexpr int32_t kMarkWidth = 7;
constexpr int32_t kRowHeight = 16;

constexpr char kNoMark = 1;  ///< a row of the mark sheet that shows nothing

/// The code of a character that stands as a mark, 0 for all others.
char markOf(char character) {
    switch (character) {
        case ':':
            return 2;
        case '.':
            return 3;
        case ';':
            return 4;
        default:
            return 0;
    }
}

void drawRow(CDrawContext& context, const CBitmap& sheet, int32_t row, int32_t x, int32_t width) {
    sheet.draw(context, toRect({x, 0, x + width, kRowHeight}), {0.0, double(row * kRowHeight)});
}

}  // namespace

CBigText_2::CBigText_2(const CRect& rect, CControlListener* hearer, int32_t identity,
                       CBitmap* ground, CBitmap* glyphs, CBitmap* marks)
    : CControl(rect, hearer, identity, ground), glyphSheet(glyphs), markSheet(marks) {}

bool CBigText_2::isTypeOf(std::string_view name) const {
    return name == "CBigText_2" || CControl::isTypeOf(name);
}

void CBigText_2::setText(std::string_view text) {
    Text packed;
    packed.fill(' ');
    size_t cells = 0;
    for (const char character : text) {
        const char mark = markOf(character);
        if (!mark) {
            packed[2 * cells++] = character;
        } else if (cells > 0) {
            packed[2 * cells - 1] = mark;
        }
        if (cells > kCells) {
            break;
        }
    }
    show(packed);
}

void CBigText_2::setRawText(std::string_view text) {
    Text packed;
    packed.fill(' ');
    for (size_t i = 0; i < std::min(text.size(), kTextPlaces); ++i) {
        const char mark = markOf(text[i]);
        packed[i] = i % 2 == 0 ? text[i] : mark ? mark : kNoMark;
    }
    show(packed);
}

void CBigText_2::show(const Text& text) {
    if (!std::equal(text.begin(), text.begin() + kTextPlaces, shown.begin())) {
        std::copy_n(text.begin(), kTextPlaces, shown.begin());
        setDirty();
    }
}

void CBigText_2::setGlyphSheet(CBitmap* sheet) {
    glyphSheet = Shared<CBitmap>(sheet);
    setDirty();
}

void CBigText_2::setMarkSheet(CBitmap* sheet) {
    markSheet = Shared<CBitmap>(sheet);
    setDirty();
}

void CBigText_2::draw(CDrawContext& context) {
    if (!offscreen) {
        offscreen = COffscreenContext::create(getFrame(), size.width(), size.height());
    }
    if (!offscreen) {
        return;
    }
    if (background) {
        background->draw(*offscreen, {0.0, 0.0, size.width(), size.height()});
    }
    for (size_t i = 0; i < kCells && glyphSheet && markSheet && shown[2 * i]; ++i) {
        const int32_t x = kPitch * int32_t(i);
        drawRow(*offscreen, *glyphSheet, glyphRow(shown[2 * i]), x, kGlyphWidth);
        if (const char mark = shown[2 * i + 1]; mark) {
            drawRow(*offscreen, *markSheet, mark - 1, x + kMarkAt, kMarkWidth);
        }
    }
    offscreen->copyFrom(context, size);
    setDirty(false);
}

}  // namespace tessel8
