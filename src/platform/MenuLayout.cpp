#include "platform/MenuLayout.h"

#include <algorithm>

#include "platform/TextPainter.h"

namespace tessel8 {

namespace {

constexpr int32_t kFrame = 2, kTextRight = 14, kRowGap = 4;  // pixels

}  // namespace

MenuLayout::MenuLayout(const std::vector<std::string>& entries, int32_t perColumn,
                       const PixelRect& screen, int32_t x, int32_t y)
    : count(int32_t(entries.size())), rowHeight(lineHeight(kFontSize) + kRowGap) {
    const int32_t fitting = std::max(1, (screen.height() - 2 * kFrame) / rowHeight);
    const int32_t wanted = perColumn > 0 ? std::min(perColumn, count) : count;
    rows = std::clamp(wanted, 1, fitting);

    columnLefts.push_back(kFrame);
    for (int32_t first = 0; first < count; first += rows) {
        int32_t widest = 0;
        for (int32_t i = first; i < std::min(count, first + rows); ++i) {
            widest = std::max(widest, textWidth(entries[size_t(i)], kFontSize));
        }
        columnLefts.push_back(columnLefts.back() + kTextLeft + widest + kTextRight);
    }
    const int32_t width = columnLefts.back() + kFrame, height = rows * rowHeight + 2 * kFrame;
    const int32_t left = std::max(screen.left, std::min(x, screen.right - width));
    const int32_t top = std::max(screen.top, std::min(y, screen.bottom - height));
    onScreen = {left, top, left + width, top + height};
}

PixelRect MenuLayout::entry(int32_t index) const {
    const auto column = size_t(index / rows);
    const int32_t top = kFrame + index % rows * rowHeight;
    return {columnLefts[column], top, columnLefts[column + 1], top + rowHeight};
}

int32_t MenuLayout::entryAt(int32_t x, int32_t y) const {
    for (int32_t i = 0; i < count; ++i) {
        if (entry(i).contains(x, y)) {
            return i;
        }
    }
    return -1;
}

int32_t MenuLayout::stepped(int32_t from, MenuStep step) const {
    const auto ifThere = [&](int32_t to) { return to >= 0 && to < count ? to : from; };
    switch (step) {
        case MenuStep::Up:
            return from > 0 ? from - 1 : count - 1;
        case MenuStep::Down:
            return from + 1 < count ? from + 1 : std::min(0, count - 1);
        case MenuStep::Left:
            return ifThere(from - rows);
        case MenuStep::Right:
            return ifThere(from < 0 ? 0 : from + rows);
        case MenuStep::First:
            return std::min(0, count - 1);
        case MenuStep::Last:
            return count - 1;
    }
    return from;
}

}  // namespace tessel8
