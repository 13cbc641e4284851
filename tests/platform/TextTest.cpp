#include <gtest/gtest.h>

#include <vector>

#include "platform/MenuLayout.h"
#include "platform/TextEditing.h"
#include "platform/TextPainter.h"

using namespace tessel8;

TEST(TextEditingTest, MovesBetweenCharactersAndWords) {
    TextEditing edit("gr\xc3\xbc\xc3\x9f dich");
    edit.press(EditKey::Home, false, false);
    edit.press(EditKey::Right, false, true);
    EXPECT_EQ(edit.cursor(), 7u) << "the next word";
    edit.press(EditKey::Left, false, false);
    edit.press(EditKey::Backspace, false, false);
    EXPECT_EQ(edit.text(), "gr\xc3\xbc dich") << "a whole character";
    edit.press(EditKey::End, true, false);
    EXPECT_EQ(edit.selected(), " dich");
    edit.press(EditKey::Left, false, false);
    EXPECT_EQ(edit.cursor(), 4u) << "the selection's start";
    edit.press(EditKey::Delete, false, true);
    edit.insert("n\n\x01\xc0\xaf");  // a character in more bytes than it needs
    EXPECT_EQ(edit.text(),
              "gr\xc3\xbcn \xef\xbf\xbd\xef\xbf\xbd"
              "dich");
}

TEST(TextPainterTest, BlendsInsideItsClip) {
    EXPECT_EQ(textWidth("ab\xff", 9), 6 + 6 + 8) << "what is no character is a box";
    std::vector<uint32_t> pixels(20 * 10, 0x000000);
    const Surface surface{pixels.data(), 20, 10};
    drawText(surface, {7, 0, 20, 10}, 0, 8, "ab", 9, 0xff8000);
    EXPECT_EQ(surface.row(2)[4], 0u) << "left of the clip";
    EXPECT_EQ(surface.row(1)[7], 0x804000u) << "128 of 255";
    EXPECT_EQ(surface.row(8)[10], 0u) << "below the baseline";
}

TEST(MenuLayoutTest, StaysOnTheScreenInColumns) {
    const MenuLayout menu(std::vector<std::string>(10, "entry"), 4, {0, 0, 400, 300}, 390, 290);
    EXPECT_EQ(menu.place().right, 400);
    EXPECT_EQ(menu.place().bottom, 300);
    EXPECT_EQ(menu.entry(5).top, menu.entry(1).top);
    EXPECT_EQ(menu.entryAt(menu.entry(9).left, menu.entry(9).top), 9);
    EXPECT_EQ(menu.entryAt(menu.entry(9).left, menu.entry(9).bottom), -1) << "a short column";
    const MenuLayout high(std::vector<std::string>(100, "x"), 0, {0, 0, 400, 300}, 0, 0);
    EXPECT_LE(high.place().bottom, 300);
}
