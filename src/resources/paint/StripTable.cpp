#include "resources/paint/StripTable.h"

#include <algorithm>
#include <iterator>

namespace tessel8::paint {

namespace {

/// Glyphs, scales, bars and lamps that fill their rectangles; the halves of one window; the graph.
constexpr int32_t kOwnRims[] = {145, 146, 147, 148, 149, 150, 151, 152, 153, 157, 159, 161,
                                162, 164, 165, 166, 173, 174, 175, 178, 179, 180, 181, 182,
                                183, 184, 185, 190, 192, 241, 242, 245, 246, 247, 988, 989};

constexpr int32_t kTapPad = 219, kBigGlyphs = 245, kSmallGlyphs = 247;

Strip& sized(std::vector<Strip>& table, int32_t number, int32_t width, int32_t height,
             int32_t images) {
    const auto known = std::ranges::find(table, number, &Strip::number);
    if (known != table.end()) {
        return *known;
    }
    const bool ownRim = std::ranges::find(kOwnRims, number) != std::end(kOwnRims);
    return table.emplace_back(Strip{number, width, height, images, {}, ownRim});
}

void place(std::vector<Strip>& table, int32_t number, int32_t images, const PanelPlace& at) {
    const Box box = {at.left, at.top, at.right, at.bottom};
    sized(table, number, box.width(), box.height(), images).places.push_back(box);
}

void placeControl(std::vector<Strip>& table, const PanelRow& row) {
    if (row.kind == ControlKind::BigText) {  // what it shows is its ground
        place(table, kBigTextGround, 1, row.place);
    } else if (row.kind != ControlKind::SmallText && row.strip != 0 &&
               row.strip != kBackgroundPicture) {
        for (int32_t i = 0; i < row.count; ++i) {
            place(table, row.strip + i * row.stripStep, row.images, row.placeOf(i));
        }
    }
    if (row.strip == kTapPad) {
        place(table, kTapPadLit, row.images, row.place);
    }
}

std::vector<Strip> makeTable() {
    std::vector<Strip> table;
    for (const PanelRow& row : panelRows()) {
        placeControl(table, row);
    }
    for (const PanelRow& row : presetStripRows()) {
        placeControl(table, row);
    }
    sized(table, kBigGlyphs, 11, 16, 128);
    sized(table, kBigTextMarks, 7, 16, 4);
    sized(table, kSmallGlyphs, 5, 7, 128);
    return table;
}

}  // namespace

Box Strip::firstBox() const {
    return places.empty() ? Box{0, 0, width, height} : places[0];
}

const std::vector<Strip>& stripTable() {
    static const std::vector<Strip> table = makeTable();
    return table;
}

}  // namespace tessel8::paint
