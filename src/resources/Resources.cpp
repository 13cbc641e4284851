#include "resources/Resources.h"

#include <algorithm>
#include <cstdlib>

#include "resources/Pack.h"

extern "C" __attribute__((visibility("hidden"))) const uint8_t tessel8_pack[];

namespace tessel8::resources {

namespace {

std::span<const PackEntry> entries() {
    const auto* head = reinterpret_cast<const PackHead*>(tessel8_pack);
    return {reinterpret_cast<const PackEntry*>(head + 1), head->count};
}

std::span<const uint8_t> part(int32_t number) {
    const auto all = entries();
    const auto found = std::ranges::lower_bound(all, number, {}, &PackEntry::number);
    if (found == all.end() || found->number != number) {
        return {};
    }
    return {tessel8_pack + found->offset, found->bytes};
}

Font readFont(int32_t size) {
    const uint8_t* start = part(kFontNumber - size).data();
    const auto* head = reinterpret_cast<const FontHead*>(start);
    const auto* codes = reinterpret_cast<const uint32_t*>(head + 1);
    const auto* glyphs = reinterpret_cast<const Glyph*>(codes + head->count);
    return {head->size,
            head->ascent,
            head->descent,
            {codes, head->count},
            {glyphs, head->count + 1},
            reinterpret_cast<const uint8_t*>(glyphs + head->count + 1)};
}

}  // namespace

std::span<const uint8_t> bitmapFile(int32_t number) {
    return number > kFontNumber ? part(number) : std::span<const uint8_t>();
}

const Font& font(int32_t size) {
    static const Font fields = readFont(9), menus = readFont(12);
    return size <= 10 ? fields : menus;
}

}  // namespace tessel8::resources
