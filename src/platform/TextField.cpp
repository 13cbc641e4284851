#include "platform/TextField.h"

#include <algorithm>
#include <cstdlib>

#include "platform/Fill.h"
#include "platform/TextPainter.h"
#include "platform/Utf8.h"

namespace tessel8 {

namespace {

constexpr int32_t kInset = 3;  // pixels from the frame's outside to the text

PixelRect inside(const PixelRect& place) {
    return {place.left + kInset, place.top + 1, place.right - kInset, place.bottom - 1};
}

}  // namespace

TextField::TextField(std::string_view text, const TextFieldLook& theLook)
    : editing(text), look(theLook) {}

int32_t TextField::widthTo(size_t offset) const {
    return textWidth(std::string_view(editing.text()).substr(0, offset), look.fontSize);
}

size_t TextField::offsetAt(const PixelRect& place, int32_t x) const {
    const std::string& text = editing.text();
    const int32_t wanted = x - inside(place).left + scrolled;
    size_t best = 0;
    for (size_t at = 0; at < text.size();) {
        at = utf8::next(text, at);
        if (std::abs(widthTo(at) - wanted) < std::abs(widthTo(best) - wanted)) {
            best = at;
        }
    }
    return best;
}

void TextField::paint(const Surface& surface, const PixelRect& clip, const PixelRect& place,
                      bool showsCursor) {
    const PixelRect inner = inside(place);
    const int32_t cursor = widthTo(editing.cursor());
    const int32_t most = std::max(0, widthTo(editing.text().size()) + 1 - inner.width());
    scrolled = std::clamp(scrolled, cursor + 1 - inner.width(), cursor);
    scrolled = std::clamp(scrolled, 0, most);

    fillRect(surface, clip, place, look.groundColour);
    drawFrame(surface, clip, place, look.frameColour);
    const int32_t left = inner.left - scrolled;
    const int32_t baseline = centredBaseline(inner.top, inner.bottom, look.fontSize);
    const PixelRect textClip = inner.intersected(clip);
    drawText(surface, textClip, left, baseline, editing.text(), look.fontSize, look.textColour);

    const PixelRect marked = PixelRect{left + widthTo(editing.selectionStart()), inner.top + 1,
                                       left + widthTo(editing.selectionEnd()), inner.bottom - 1}
                                 .intersected(textClip);
    fillRect(surface, textClip, marked, look.textColour);
    drawText(surface, marked, left, baseline, editing.text(), look.fontSize, look.groundColour);
    if (showsCursor && marked.isEmpty()) {
        fillRect(surface, textClip,
                 {left + cursor, inner.top + 1, left + cursor + 1, inner.bottom - 1},
                 look.textColour);
    }
}

}  // namespace tessel8
