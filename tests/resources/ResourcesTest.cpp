// The pictures as the panel will use them: of the right size, without seams, readable, and each
// image telling another value.

#include "resources/Resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

#include "resources/paint/CaptionTable.h"
#include "resources/paint/StripTable.h"

using namespace tessel8;
using paint::Picture;
using paint::Strip;

namespace {

Picture decoded(int32_t number) {
    const auto file = resources::bitmapFile(number);
    const auto read = [&file](size_t at) {
        uint32_t value = 0;
        std::memcpy(&value, file.subspan(at, sizeof value).data(), sizeof value);
        return value;
    };
    EXPECT_EQ(read(2), file.size()) << number;
    Picture picture(int32_t(read(18)), int32_t(read(22)));
    const uint32_t bytes = (read(28) & 0xFFFF) / 8, stride = (picture.width * bytes + 3) / 4 * 4;
    for (int32_t y = 0; y < picture.height; ++y) {
        for (int32_t x = 0; x < picture.width; ++x) {
            const size_t at = read(10) + size_t(picture.height - 1 - y) * stride + x * bytes;
            picture.at(x, y) = bytes == 1 ? read(54 + 4 * file[at])
                                          : file[at] | file[at + 1] << 8 | file[at + 2] << 16;
        }
    }
    return picture;
}

int32_t difference(uint32_t a, uint32_t b) {
    const auto channel = [a, b](int32_t i) {
        return std::abs(int(a >> i & 255) - int(b >> i & 255));
    };
    return std::max({channel(0), channel(8), channel(16)});
}

double luminance(uint32_t colour) {
    const auto linear = [colour](int32_t i) { return std::pow((colour >> i & 255) / 255.0, 2.2); };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

}  // namespace

TEST(Pictures, HaveTheirSizesAndShowNoSeamWhereverTheyStand) {
    const Picture panel = decoded(kBackgroundPicture);
    ASSERT_EQ(panel.pixels.size(), 870u * 565u);
    for (const Strip& entry : paint::stripTable()) {
        const Picture strip = decoded(entry.number);
        ASSERT_EQ(strip.width, entry.width) << entry.number;
        ASSERT_EQ(strip.height, entry.height * entry.images) << entry.number;
        for (const paint::Box& place : entry.places) {
            int32_t largest = 0;
            for (int32_t at = 0; at < int32_t(strip.pixels.size()) && !entry.ownRim; ++at) {
                const int32_t x = at % entry.width, row = at / entry.width % entry.height;
                if (x % (entry.width - 1) == 0 || row % (entry.height - 1) == 0) {
                    const uint32_t ground = panel.at(place.left + x, place.top + row);
                    largest = std::max(largest, difference(strip.pixels[at], ground));
                }
            }
            EXPECT_LE(largest, 6) << entry.number << " at " << place.left << ", " << place.top;
        }
    }
}

TEST(Pictures, TellEveryStepFromTheOneBeforeAndEveryLetterFromAllOthers) {
    const std::set<int32_t> kMayRepeat = {157, 161, 162, 185};  // equal ranges, scales, blanks
    for (const Strip& entry : paint::stripTable()) {
        const Picture strip = decoded(entry.number);
        const bool letters = entry.number == 245 || entry.number == 247;
        std::set<std::vector<uint32_t>> seen;
        for (int32_t i = letters ? 32 : 0; i < (letters ? 127 : entry.images); ++i) {
            const bool fresh =
                seen.insert(strip.crop({0, i * entry.height, entry.width, (i + 1) * entry.height})
                                .pixels)
                    .second;
            EXPECT_TRUE(fresh || kMayRepeat.count(entry.number)) << entry.number << " image " << i;
        }
    }
}

/// How many rows of a word have a pixel of at least 4.5 times the contrast with the ground: bold
/// letters leave that a quarter of their box at least.
int32_t clearRows(const Picture& panel, const paint::Box& word) {
    std::vector<double> light;
    for (int32_t y = word.top - 1; y <= word.bottom; ++y) {
        for (int32_t x = word.left; x < word.right; ++x) {
            light.push_back(luminance(panel.at(x, y)));
        }
    }
    std::vector<double> sorted = light;
    std::ranges::nth_element(sorted, sorted.begin() + sorted.size() / 4);
    const double ground = sorted[sorted.size() / 4];
    int32_t rows = 0;
    for (int32_t row = 1; row <= word.height(); ++row) {
        const auto first = light.begin() + row * word.width();
        rows += (*std::max_element(first, first + word.width()) + 0.05) / (ground + 0.05) >= 4.5;
    }
    return rows;
}

TEST(Captions, AreHighAndClear) {
    const Picture panel = decoded(kBackgroundPicture);
    for (const paint::Caption& caption : paint::captions()) {
        constexpr double kBefore[] = {0, 0.5, 1};                  // of the width, by the alignment
        const double width = 4 + 3.0 * std::strlen(caption.word);  // narrow letters
        const double left = caption.x - kBefore[size_t(caption.style.align)] * width;
        const int32_t foot = int32_t(caption.y), high = int32_t(caption.style.capHeight);
        EXPECT_GE(clearRows(panel, {int32_t(left), foot - high, int32_t(left + width), foot}), 7)
            << caption.word << " at " << caption.x << ", " << caption.y;
    }
    for (const paint::Section& section : paint::sections()) {
        const int32_t foot = int32_t(section.top + paint::kSectionTitle);
        EXPECT_GE(clearRows(panel, {int32_t(section.left), foot - 7, int32_t(section.right), foot}),
                  7)
            << section.title;
    }
    for (const paint::DisplayWord& word : paint::displayWords()) {
        EXPECT_EQ(clearRows(panel, {word.left, word.top, word.right, word.top + 7}), 7)
            << word.word;
    }
}

TEST(Captions, StandOverWhatResetsTheirColumns) {
    for (const PanelRow& row : panelRows()) {
        const PanelPlace& at = row.place;
        EXPECT_TRUE(row.kind != ControlKind::ColumnHead ||
                    std::ranges::any_of(paint::captions(),
                                        [&at](const paint::Caption& caption) {
                                            return caption.x > at.left && caption.x < at.right &&
                                                   caption.y > at.top && caption.y < at.bottom;
                                        }))
            << row.tag;
    }
}

TEST(Fonts, KnowTheirLettersAndBoxTheRest) {
    for (const int32_t size : {9, 12}) {
        const resources::Font& font = resources::font(size);
        ASSERT_TRUE(std::ranges::is_sorted(font.codes) && font.size == size);
        ASSERT_EQ(font.glyphs.size(), font.codes.size() + 1);
        for (const uint32_t code : {0x41, 0xE9, 0x141, 0x3A9, 0x416, 0x2026}) {
            const auto found = std::ranges::lower_bound(font.codes, code);
            ASSERT_TRUE(found != font.codes.end() && *found == code) << code;
            const resources::Glyph& glyph = font.glyphs[found - font.codes.begin()];
            const uint8_t* ink = font.coverage + glyph.offset;
            EXPECT_GT(*std::max_element(ink, ink + glyph.width * glyph.height), 128) << code;
        }
    }
}
