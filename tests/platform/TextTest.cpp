#include <gtest/gtest.h>

#include <vector>

#include "platform/Damage.h"
#include "platform/MenuLayout.h"
#include "platform/TextEditing.h"
#include "platform/TextPainter.h"
#include "platform/Utf8.h"

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
    edit.insert("n\n\x01\xff");
    EXPECT_EQ(edit.text(),
              "gr\xc3\xbcn \xef\xbf\xbd"
              "dich")
        << "one line without controls, well-formed";
}

TEST(Utf8Test, ReadsBrokenTextByteByByte) {
    // Overlong, a surrogate, beyond the last code point, cut off.
    for (const char* broken : {"\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82"}) {
        std::string_view rest = broken;
        while (!rest.empty()) {
            const size_t before = rest.size();
            EXPECT_EQ(utf8::takeFirst(rest), utf8::kReplacement) << broken;
            EXPECT_EQ(rest.size(), before - 1);
        }
    }
    std::string_view last = "\xf4\x8f\xbf\xbf";
    EXPECT_EQ(utf8::takeFirst(last), char32_t(0x10ffff));
}

TEST(TextPainterTest, BlendsInsideItsClip) {
    EXPECT_EQ(textWidth("ab\xff", 9), 6 + 6 + 8) << "what is no character is a box";
    std::vector<uint32_t> pixels(20 * 10, 0x000000);
    const Surface surface{pixels.data(), 20, 10};
    drawText(surface, {7, 0, 20, 10}, 0, 8, "ab", 9, 0xff8000);
    EXPECT_EQ(surface.row(2)[4], 0u) << "left of the clip";
    EXPECT_EQ(surface.row(1)[7], 0x804000u) << "128 of 255";
    EXPECT_EQ(surface.row(7)[10], 0x804000u);
    EXPECT_EQ(surface.row(8)[10], 0u) << "on the baseline";
}

TEST(MenuLayoutTest, StaysOnTheScreenInColumns) {
    const std::vector<std::string> entries(10, "entry");
    const PixelRect screen{0, 0, 400, 300};
    const MenuLayout menu(entries, 4, screen, 390, 290);
    EXPECT_EQ(menu.place().right, 400);
    EXPECT_EQ(menu.place().bottom, 300);
    EXPECT_EQ(menu.entry(5).top, menu.entry(1).top);
    EXPECT_EQ(menu.entryAt(menu.entry(9).left, menu.entry(9).top), 9);
    EXPECT_EQ(menu.entryAt(menu.entry(9).left, menu.entry(9).bottom), -1) << "a short column";
    EXPECT_EQ(menu.stepped(8, MenuStep::Left), 4);
    EXPECT_EQ(menu.stepped(7, MenuStep::Right), 7) << "nothing there";
    EXPECT_LE(MenuLayout(std::vector<std::string>(100, "x"), 0, screen, 0, 0).place().bottom, 300);
}

TEST(DamageTest, JoinsNeighboursAndKeepsFarPartsApart) {
    Damage damage;
    damage.add({0, 0, 10, 10});
    damage.add({10, 0, 20, 10});
    damage.add({500, 500, 510, 510});
    const auto parts = damage.take();
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0].right, 20);
    EXPECT_TRUE(damage.isEmpty());
}
