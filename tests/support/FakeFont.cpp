// A font of blocks: every character of ASCII is 5 by 7 pixels of half coverage and 6 wide, and
// what it doesn't know is 8 wide.

#include <numeric>
#include <vector>

#include "resources/Resources.h"

namespace tessel8::resources {

const Font& font(int32_t /*size*/) {
    static const std::vector<uint8_t> coverage(35, 128);
    static std::vector<uint32_t> codes(95);
    static std::vector<Glyph> glyphs(96, Glyph{5, 7, 0, 7, 6, 0});
    std::iota(codes.begin(), codes.end(), uint32_t(' '));
    glyphs.back().advance = 8;
    static const Font blocks{9, 7, 2, codes, glyphs, coverage.data()};
    return blocks;
}

}  // namespace tessel8::resources
