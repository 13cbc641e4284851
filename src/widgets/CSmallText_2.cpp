#include "widgets/CSmallText_2.h"

#include "widgets/DisplayColours.h"
#include "widgets/TextSheets.h"

namespace tessel8 {

namespace {

// Pixels.
constexpr int32_t kPitch = 6;
constexpr int32_t kGlyphWidth = 5;
constexpr int32_t kRowHeight = 7;

}  // namespace

CSmallText_2::CSmallText_2(const CRect& rect, CControlListener* hearer, int32_t identity,
                           CBitmap* glyphs)
    : CControl(rect, hearer, identity), glyphSheet(glyphs) {}

bool CSmallText_2::isTypeOf(std::string_view name) const {
    return name == "CSmallText_2" || CControl::isTypeOf(name);
}

void CSmallText_2::setText(std::string_view text) {
    bool isChanged = text.size() < kCells;  // a short text always counts as a new one
    for (size_t i = 0; i < kCells; ++i) {
        const char character = i < text.size() ? text[i] : ' ';
        isChanged = isChanged || character != shown[i];
        shown[i] = character;
    }
    if (isChanged) {
        setDirty();
    }
}

void CSmallText_2::setGlyphSheet(CBitmap* sheet) {
    glyphSheet = Shared<CBitmap>(sheet);
    setDirty();
}

void CSmallText_2::draw(CDrawContext& context) {
    if (!offscreen) {
        offscreen = COffscreenContext::create(getFrame(), size.width(), size.height());
        if (!offscreen) {
            return;
        }
        // The glyphs leave a column free between them.
        offscreen->setFrameColor(kDisplayGround);
        offscreen->setFillColor(kDisplayGround);
        offscreen->drawRect({0.0, 0.0, size.width(), size.height()}, RectStyle::FilledAndStroked);
    }
    for (size_t i = 0; i < kCells && glyphSheet && shown[i]; ++i) {
        const int32_t x = kPitch * int32_t(i);
        glyphSheet->draw(*offscreen, toRect({x, 0, x + kGlyphWidth, kRowHeight}),
                         {0.0, double(glyphRow(shown[i]) * kRowHeight)});
    }
    offscreen->copyFrom(context, size);
    setDirty(false);
}

}  // namespace tessel8
