// The graph's picture of a tap, pixel by pixel.

#include "editor/CDelayTimeVolume.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace tessel8 {
namespace {

constexpr int32_t kWidth = 540, kHeight = 120;
constexpr uint32_t kDark = 62 << 16 | 89 << 8 | 78, kLight = 142 << 16 | 205 << 8 | 177;
const CRect kView{225, 40, 531, 113};

// Seven columns wide, eight rows high.
const char* const kNumbers[] = {"...#.....##......#......#......#......#.....####........",
                                "..####..##..##.....#.....#.....#.....#.....######.......",
                                ".#####.....#.....#.......#..#....#..#...#...###.........",
                                "....#.....##....#.#...#..#...######....#......#.........",
                                ".#####..#......####.......#.#....#..#...#...###.........",
                                "...##....#.....#......####...#...#..#...#...###.........",
                                ".#####......#.....#.....#.....#......#......#......#....",
                                "..###...#...#..#...#..####...#...#..#...#...###........."};

const std::map<char, std::vector<int32_t>> kDivisions = {
    {'6', {50, 99, 147, 196, 245, 294}},
    {'7', {43, 85, 127, 168, 210, 252, 294}},
    {'8', {38, 74, 111, 147, 184, 221, 257, 294}},
    {'9', {34, 66, 99, 131, 164, 196, 229, 261, 294}},
    {'a', {30, 60, 89, 118, 147, 177, 206, 235, 265, 294}},
    {'b', {28, 54, 81, 107, 134, 161, 187, 214, 241, 267, 294}}};

struct Picture {
    std::vector<uint32_t> pixels = std::vector<uint32_t>(size_t(kWidth) * kHeight);

    void column(int32_t x, int32_t first, int32_t last, uint32_t colour) {
        for (int32_t y = first; y <= last; ++y) {
            pixels[size_t(y) * kWidth + size_t(x)] = colour;
        }
    }
    void ground(uint32_t frame, int32_t range) {
        for (int32_t x = 225; x < 531; ++x) {
            column(x, 40, 112, frame * 0x10101);
        }
        for (const int32_t offset : kDivisions.at("888888888868a6789ab888"[range + 1])) {
            column(225 + offset, 106, 111, kDark);
            for (int32_t y = 40; y <= 106; y += 6) {
                column(225 + offset, y, y, kDark);
                column(226 + offset, y, y, kDark);
            }
        }
    }
    /// The flag stands right of the stem, between the rows 11 and 1 above `foot`.
    void flag(int32_t x, int32_t foot, int32_t tap, bool on) {
        for (int32_t i = 3; i <= 11; ++i) {
            column(x + i, foot - 11, foot - 1, kDark);
            column(x + i, foot - 10, foot - 1, i == 11 || on ? kDark : kLight);
        }
        for (int32_t i = 0; i < 56; ++i) {
            if (const int32_t y = foot - 9 + i / 7; kNumbers[tap - 1][i] == '#') {
                column(x + 4 + i % 7, y, y, on ? kLight : kDark);
            }
        }
    }
    /// A core leaves the outermost pixel of its column open.
    void stem(int32_t x, int32_t foot, int32_t level, bool core) {
        const int32_t first = level <= foot ? level - 2 : foot - 1;
        const int32_t last = level <= foot ? foot - 1 : level;
        column(x, first, last, kDark);
        column(x + 2, first, last, kDark);
        column(x + 1, core ? foot - 1 : first, core ? foot - 1 : last, kDark);
        if (const int32_t start = level <= foot ? foot - 2 : foot; core) {
            column(x + 1, std::min(start, level - 1), std::max(start, level - 1), kLight);
        }
    }
};

TEST(DelayTimeVolume, DrawsEveryState) {
    // Three level scales of one colour each, 24 bits a pixel, rows of 920 bytes from the foot.
    std::vector<uint8_t> file = {'B', 'M'};
    file.resize(54);
    file[10] = 54, file[14] = 40, file[18] = 50, file[19] = 1, file[22] = 219, file[28] = 24;
    for (const uint8_t colour : {3, 2, 1}) {
        file.insert(file.end(), 73 * 920, colour);
    }
    const auto scales = makeShared<CBitmap>(std::span(file));
    const std::map<float, int32_t> times = {{-1, 225}, {0.1f, 254}, {0.5f, 372}, {2, 518}};
    const std::map<float, int32_t> levels = {{0, 110}, {0.31f, 89}, {0.5f, 75}, {1.5f, 40}};
    int32_t range = -1;
    for (int32_t state = 0; state < 8 * 8; ++state) {
        const int32_t tap = 1 + state % 8, foot = state & 32 ? 110 : 75;
        CDelayTimeVolume view(kView, nullptr, 426, tap == 8 ? scales.get() : nullptr, 3, tap);
        view.setTapActive(float(state & 8));
        view.setTapToFeedback(float(state & 16));
        view.setBaseline(state & 32);
        for (const auto& [time, x] : times) {
            for (const auto& [level, y] : levels) {
                range = range < 20 ? range + 1 : -1;
                view.setGridScale(range);
                view.setBackgroundFrame(2 + range % 2);
                view.setBackgroundFrame(range < 9 ? 0 : 4);  // there is none such
                view.setTapTime(time);
                view.setTapLevel(level);
                Picture expected, drawn;
                CDrawContext context({drawn.pixels.data(), kWidth, kHeight});
                view.draw(context);
                if (tap == 8) {
                    expected.ground(uint32_t(2 + range % 2), range);
                }
                expected.flag(x, foot, tap, state & 8);
                expected.stem(x, foot, y, state & 16);
                EXPECT_TRUE(drawn.pixels == expected.pixels)
                    << state << " at " << time << ", " << level;
            }
        }
        for (const auto news :
             {&CDelayTimeVolume::setTapTime, &CDelayTimeVolume::setTapLevel,
              &CDelayTimeVolume::setTapActive, &CDelayTimeVolume::setTapToFeedback}) {
            (view.*news)(0.0f);
            view.setDirty(false);
            view.setBaseline(state & 32);
            EXPECT_FALSE(view.isDirty());
            (view.*news)(0.0f);  // no difference
            EXPECT_TRUE(view.isDirty());
        }
    }
}

}  // namespace
}  // namespace tessel8
