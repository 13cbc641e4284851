// A font of blocks: every character of ASCII is 5 by 7 pixels of half coverage and 6 wide, and
// what it doesn't know is 8 wide.

#include <array>
#include <numeric>

#include "resources/Resources.h"

namespace tessel8::resources {

const Font& font(int32_t /*size*/) {
    static const auto coverage = [] {
        std::array<uint8_t, 35> half{};
        half.fill(128);
        return half;
    }();
    static const auto codes = [] {
        std::array<uint32_t, 95> ascii{};
        std::iota(ascii.begin(), ascii.end(), uint32_t(' '));
        return ascii;
    }();
    static const auto glyphs = [] {
        std::array<Glyph, 96> blocks{};
        blocks.fill({5, 7, 0, 7, 6, 0});
        blocks.front().width = 0;  // the space
        blocks.back().advance = 8;
        return blocks;
    }();
    static const Font blocks{9, 7, 2, codes, glyphs, coverage.data()};
    return blocks;
}

}  // namespace tessel8::resources
