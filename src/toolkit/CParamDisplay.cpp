#include "toolkit/CParamDisplay.h"

#include <array>
#include <cstdio>

#include "platform/TextPainter.h"
#include "resources/Resources.h"

namespace tessel8 {

CParamDisplay::CParamDisplay(const CRect& rect, CControlListener* hearer, int32_t identity,
                             CBitmap* bitmap, int32_t displayStyle)
    : CControl(rect, hearer, identity, bitmap), style(displayStyle) {}

bool CParamDisplay::isTypeOf(std::string_view name) const {
    return name == "CParamDisplay" || CControl::isTypeOf(name);
}

void CParamDisplay::draw(CDrawContext& context) {
    setDirty(false);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", double(getValue()));
    drawDisplay(context, text.data());
}

void CParamDisplay::drawDisplay(CDrawContext& context, const std::string& text) const {
    drawBackground(context);
    if (!background && !(style & kNoFrameStyle)) {
        context.setFillColor(backColour);
        context.setFrameColor(frameColour);
        context.drawRect(size, RectStyle::FilledAndStroked);
    }
    if (style & kNoTextStyle) {
        return;
    }
    const PixelRect place = context.toSurface(size);
    const resources::Font& font = resources::font(fontSize);
    const int32_t baseline = place.top + (place.height() + font.ascent - font.descent) / 2;
    const int32_t room = place.width() - textWidth(text, fontSize);
    const int32_t inset = align == HoriAlign::Left     ? 0
                          : align == HoriAlign::Centre ? room / 2
                                                       : room;
    drawText(context.getSurface(), context.getClipRect().intersected(place), place.left + inset,
             baseline, text, fontSize, fontColour.toPixel());
}

}  // namespace tessel8
