#include "editor/CDelayTimeVolume.h"

#include <algorithm>
#include <array>
#include <span>

#include "widgets/DisplayColours.h"

namespace tessel8 {

namespace {

constexpr CColor kDark = kDisplayGround, kLight = kDisplayLight;

constexpr int32_t kBottomMargin = 2;
constexpr int32_t kFootHeight = kBottomMargin + 1;  ///< from the axis to the view's lower edge
constexpr int32_t kFlagRoom = 13;                   ///< right of the axis: a flag at time 1
constexpr int32_t kTickHeight = 6, kGridStep = 6;
constexpr int32_t kLastGrid = 19;

/// Pixels from the axis' left end to the lines of a grid, as many as the range has divisions.
using Offsets = std::span<const int16_t>;
constexpr int16_t kSixths[] = {50, 99, 147, 196, 245, 294};
constexpr int16_t kSevenths[] = {43, 85, 127, 168, 210, 252, 294};
constexpr int16_t kEighths[] = {38, 74, 111, 147, 184, 221, 257, 294};
constexpr int16_t kNinths[] = {34, 66, 99, 131, 164, 196, 229, 261, 294};
constexpr int16_t kTenths[] = {30, 60, 89, 118, 147, 177, 206, 235, 265, 294};
constexpr int16_t kElevenths[] = {28, 54, 81, 107, 134, 161, 187, 214, 241, 267, 294};

Offsets gridOf(int32_t range) {
    switch (range) {
        case 9:
        case 12:
            return kSixths;
        case 13:
            return kSevenths;
        case 15:
            return kNinths;
        case 11:
        case 16:
            return kTenths;
        case 17:
            return kElevenths;
        default:
            return kEighths;
    }
}

/// A stroke of a number's picture, in pixels from its origin.
struct Stroke {
    enum { Move, Line, Point } kind;
    int8_t x, y;
};

constexpr Stroke m(int8_t x, int8_t y) {
    return {Stroke::Move, x, y};
}
constexpr Stroke l(int8_t x, int8_t y) {
    return {Stroke::Line, x, y};
}
constexpr Stroke p(int8_t x, int8_t y) {
    return {Stroke::Point, x, y};
}

// clang-format off
constexpr Stroke kOne[] = {m(5, 3), l(5, 9), p(4, 4), m(4, 9), l(7, 9)};
constexpr Stroke kTwo[] = {p(3, 4), m(4, 3), l(7, 3), p(7, 4), m(7, 5), l(3, 9), l(8, 9)};
constexpr Stroke kThree[] = {m(3, 3), l(7, 3), l(5, 5), l(7, 7), l(7, 8), l(6, 9), l(4, 9),
                             l(2, 7)};
constexpr Stroke kFour[] = {m(6, 9), l(6, 3), l(3, 6), l(3, 7), l(8, 7)};
constexpr Stroke kFive[] = {m(7, 3), l(3, 3), l(3, 5), l(6, 5), l(7, 6), l(7, 8), l(6, 9), l(4, 9),
                            l(2, 7)};
constexpr Stroke kSix[] = {m(6, 3), l(5, 3), l(3, 5), l(3, 8), l(4, 9), l(6, 9), l(7, 8), l(7, 7),
                           l(6, 6), l(3, 6)};
constexpr Stroke kSeven[] = {m(3, 3), l(7, 3), l(7, 4), l(4, 7), l(4, 10)};
constexpr Stroke kEight[] = {m(7, 5), l(7, 4), l(6, 3), l(4, 3), l(3, 4), l(3, 5), l(4, 6), l(6, 6),
                             l(7, 7), l(7, 8), l(6, 9), l(4, 9), l(3, 8), l(3, 6)};
// clang-format on
constexpr std::array<std::span<const Stroke>, 8> kNumbers{kOne,  kTwo, kThree, kFour,
                                                          kFive, kSix, kSeven, kEight};

/// Pixels from the start of an axis of `span` pixels; a NaN stands at 0.
float onAxis(float part, int32_t span) {
    return part > 0.0f ? std::min(part, 1.0f) * float(span) : 0.0f;
}

void setColours(CDrawContext& context, const CColor& colour) {
    context.setFrameColor(colour);
    context.setFillColor(colour);
}

CPoint at(int32_t x, int32_t y) {
    return {double(x), double(y)};
}

void drawLine(CDrawContext& context, const CPoint& from, const CPoint& to) {
    context.moveTo(from);
    context.lineTo(to);
}

}  // namespace

CDelayTimeVolume::CDelayTimeVolume(const CRect& rect, CControlListener* hearer, int32_t identity,
                                   CBitmap* bitmap, int32_t frames, int32_t tap)
    : CControl(rect, hearer, identity, bitmap),
      tapNumber(tap),
      backgroundFrames(frames),
      axisLeft(toPixel(rect.left)),
      axisBottom(toPixel(rect.bottom) - kFootHeight),
      timeSpan(toPixel(rect.width()) - kFlagRoom),
      levelSpan(axisBottom - toPixel(rect.top)),
      stemX(axisLeft),
      levelY(axisBottom),
      baselineY(axisBottom) {}

bool CDelayTimeVolume::isTypeOf(std::string_view name) const {
    return name == "CDelayTimeVolume" || CControl::isTypeOf(name);
}

CBaseObject* CDelayTimeVolume::newCopy() const {
    return new CDelayTimeVolume(*this);
}

void CDelayTimeVolume::setTapTime(float time) {
    stemX = toPixel(onAxis(time, timeSpan)) + axisLeft;
    setDirty();
}

void CDelayTimeVolume::setTapLevel(float level) {
    levelY = axisBottom - int32_t(onAxis(level, levelSpan));
    setDirty();
}

void CDelayTimeVolume::setTapActive(float on) {
    active = on;
    setDirty();
}

void CDelayTimeVolume::setTapToFeedback(float on) {
    toFeedback = on;
    setDirty();
}

void CDelayTimeVolume::setBaseline(int32_t fromFloor) {
    baselineY = fromFloor ? axisBottom : int32_t(float(axisBottom) - float(levelSpan) / 2.0f);
}

void CDelayTimeVolume::setGridScale(int32_t range) {
    grid = std::clamp(range, 1, kLastGrid);
}

void CDelayTimeVolume::setBackgroundFrame(int32_t frame) {
    if (background && frame >= 1 && frame <= backgroundFrames) {
        backgroundY = toPixel(size.height()) * (frame - 1);
    }
}

void CDelayTimeVolume::draw(CDrawContext& context) {
    context.setDrawMode(DrawMode::Aliased);
    context.setLineWidth(1);
    context.setLineStyle(LineStyle::Solid);
    context.setFontColor(kDark);
    setColours(context, kDark);
    if (background) {
        background->draw(context, size, at(0, backgroundY), 1.0f);
        drawGrid(context);
    }
    drawFlag(context);
    drawStem(context);
    setDirty(false);
}

void CDelayTimeVolume::drawGrid(CDrawContext& context) const {
    const int32_t top = toPixel(size.top), bottom = toPixel(size.bottom);
    for (const int16_t offset : gridOf(grid)) {
        const int32_t x = axisLeft + offset;
        drawLine(context, at(x, bottom - 1), at(x, bottom - kTickHeight));
        for (int32_t y = bottom - kTickHeight; y >= top; y -= kGridStep) {
            context.drawPoint(at(x, y), kDark);
        }
    }
}

void CDelayTimeVolume::drawFlag(CDrawContext& context) const {
    constexpr int32_t kFlagStart = 3, kFlagEnd = 11, kFlagHeight = 10;
    const int32_t left = stemX + kFlagStart, right = stemX + kFlagEnd;
    const int32_t bottom = baselineY, top = bottom - kFlagHeight;
    context.moveTo(at(left, bottom));
    context.lineTo(at(left, top));
    context.lineTo(at(right, top));
    context.lineTo(at(right, bottom));
    context.lineTo(at(left, bottom));
    const bool on = active != 0.0f;
    setColours(context, on ? kDark : kLight);
    context.drawRect({double(left), double(top), double(right), double(bottom)},
                     RectStyle::FilledAndStroked);
    drawNumber(context, on ? kLight : kDark);
    setColours(context, kDark);
}

void CDelayTimeVolume::drawNumber(CDrawContext& context, const CColor& colour) const {
    if (tapNumber < 1 || tapNumber > int32_t(kNumbers.size())) {
        return;
    }
    setColours(context, colour);
    for (const Stroke& stroke : kNumbers[size_t(tapNumber - 1)]) {
        const CPoint place = at(stemX + 2 + stroke.x, baselineY - 11 + stroke.y);
        if (stroke.kind == Stroke::Move) {
            context.moveTo(place);
        } else if (stroke.kind == Stroke::Line) {
            context.lineTo(place);
        } else {
            context.drawPoint(place, colour);
        }
    }
}

void CDelayTimeVolume::drawStem(CDrawContext& context) const {
    const int32_t x = stemX, foot = baselineY, level = levelY;
    const int32_t outwards = level <= foot ? -1 : 1;
    drawLine(context, at(x, foot), at(x, level + outwards));
    if (toFeedback == 0.0f) {
        drawLine(context, at(x + 1, foot), at(x + 1, level + outwards));
    } else {
        context.drawPoint(at(x + 1, foot), kDark);
        context.drawPoint(at(x + 1, level), kDark);
        setColours(context, kLight);
        drawLine(context, at(x + 1, foot + outwards), at(x + 1, level));
        setColours(context, kDark);
    }
    drawLine(context, at(x + 2, foot), at(x + 2, level + outwards));
}

}  // namespace tessel8
