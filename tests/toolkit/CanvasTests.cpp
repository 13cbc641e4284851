// Pixels against maps that were drawn by hand.

#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace {

constexpr CColor kInk{0, 0, '#'}, kPaint{0, 0, 'o'};
constexpr int32_t kWidth = 8, kHeight = 6;

/// What a drawing leaves on a canvas of dots, row by row.
std::string drawn(const std::function<void(CDrawContext&)>& draw) {
    std::vector<uint32_t> pixels(kWidth * kHeight, '.');
    const auto context = makeShared<CDrawContext>(Surface{pixels.data(), kWidth, kHeight});
    context->setFrameColor(kInk);
    context->setFillColor(kPaint);
    draw(*context);
    std::string map;
    for (size_t i = 0; i < pixels.size(); ++i) {
        map.append(i % kWidth == 0 ? "\n" : "").append(1, char(pixels[i]));
    }
    return map;
}

void line(CDrawContext& c, CPoint from, CPoint to) {
    c.moveTo(from);
    c.lineTo(to);
}

}  // namespace

TEST(Canvas, DrawsTheMapsPixels) {
    // Lines stand one higher than their coordinates and have both their ends.
    EXPECT_EQ(drawn([](auto& c) {
                  line(c, {1, 3}, {4, 3}), line(c, {6, 5}, {6, 2});
              }),
              "\n........\n......#.\n.####.#.\n......#.\n......#.\n........");
    EXPECT_EQ(drawn([](auto& c) {
                  line(c, {1, 5}, {4, 2}), c.lineTo({7, 5});
              }),
              "\n........\n....#...\n...#.#..\n..#...#.\n.#.....#\n........");
    // Rectangles stand where they say.
    EXPECT_EQ(drawn([](auto& c) {
                  c.drawRect({1, 1, 6, 5}, RectStyle::FilledAndStroked);
              }),
              "\n........\n.#####..\n.#ooo#..\n.#ooo#..\n.#####..\n........");
    EXPECT_EQ(drawn([](auto& c) {
                  c.drawRect({5, 4, 9, 9}, RectStyle::Filled);
              }),
              "\n........\n........\n........\n........\n.....ooo\n.....ooo");
    // A point is two pixels and leaves pen and colour as they were.
    EXPECT_EQ(drawn([](auto& c) {
                  line(c, {0, 6}, {0, 6}), c.drawPoint({3, 2}, kPaint), c.lineTo({2, 6});
              }),
              "\n........\n...oo...\n........\n........\n........\n###.....");
    // Nothing passes the clip rectangle, not even by an offset.
    EXPECT_EQ(drawn([](auto& c) {
                  c.setClipRect({2, 1, 5, 9}), c.setOffset({1, 0});
                  line(c, {-1, 6}, {7, 6}), c.drawRect({-4, -4, 3, 3}, RectStyle::Filled);
              }),
              "\n........\n..oo....\n..oo....\n........\n........\n..###...");
}

TEST(Bitmap, DrawsAPartAndNothingBeyondIt) {
    // Two by two pixels of 24 bits, the foot first, each row padded to four bytes.
    std::vector<uint8_t> file = bitmapHead(54, 2, 2, 24);
    file.resize(54 + 16);
    file[54] = 'c', file[57] = 'd', file[62] = 'a', file[65] = 'b';
    const auto whole = makeShared<CBitmap>(std::span<const uint8_t>(file));
    EXPECT_EQ(whole->getWidth(), 2);
    EXPECT_EQ(drawn([&](auto& c) {
                  whole->draw(c, {0, 0, 8, 3});
                  whole->draw(c, {4, 3, 8, 6}, {1, 0});
                  whole->draw(c, {1, 4, 3, 6}, {-1, -1});
              }),
              "\nab......\ncd......\n........\n....b...\n....d...\n..a.....");

    for (const size_t place : {size_t(0), size_t(10), size_t(18), size_t(28), size_t(30)}) {
        std::vector<uint8_t> broken = file;
        broken[place] = 77;
        const auto nothing = makeShared<CBitmap>(std::span<const uint8_t>(broken));
        EXPECT_EQ(drawn([&](auto& c) { nothing->draw(c, {0, 0, 8, 6}); }), drawn([](auto&) {}));
    }
}

}  // namespace tessel8
