// Line edits and menus, as a user at keyboard and mouse meets them.

#include <xkbcommon/xkbcommon-keysyms.h>

#include <optional>

#include "XClient.h"

using namespace tessel8;
using namespace tessel8::testing;

namespace {

constexpr uint32_t kHome = XKB_KEY_Home, kEnd = XKB_KEY_End, kReturn = XKB_KEY_Return,
                   kEscape = XKB_KEY_Escape, kShift = XKB_KEY_Shift_L, kControl = XKB_KEY_Control_L;

struct LineEditTest : Host {
    std::optional<std::string> result;
    std::unique_ptr<LineEdit> edit;

    void openEdit(const std::string& text) {
        result.reset();
        edit = window->openLineEdit({{20, 20, 120, 40}, text}, [this](const std::string& end) {
            result = end;
            edit.reset();  // as a holder does that has no more use for it
        });
        EXPECT_TRUE(until([&] { return user.focus() != hostFocus; }));
    }
    std::string ended() {
        EXPECT_TRUE(until([&] { return result.has_value(); }));
        EXPECT_EQ(user.focus(), hostFocus);
        return result.value_or("nothing");
    }
    std::string edited(const std::string& text, const std::function<void()>& act) {
        openEdit(text);
        act();
        user.type({kReturn});
        return ended();
    }
    xcb_window_t hostFocus = [this] {
        xcb_set_input_focus(user.x, XCB_INPUT_FOCUS_PARENT, parent, XCB_CURRENT_TIME);
        return user.focus();
    }();
};

struct MenuTest : Host {
    std::optional<int32_t> choice;
    std::unique_ptr<PopupMenu> menu;

    void openMenu(int32_t x, int32_t y, int32_t perColumn = 0, int32_t current = 1) {
        choice.reset();
        menu = window->openPopupMenu({x, y, {"one", "two", "three", "four"}, current, perColumn},
                                     [this](int32_t chosen) {
                                         choice = chosen;
                                         menu.reset();
                                     });
        EXPECT_TRUE(until([&] { return user.pixel(x, y) == 0x808080; })) << "its frame";
    }
    int32_t chosen() {
        EXPECT_TRUE(until([&] { return choice.has_value(); }));
        return choice.value_or(-2);
    }
    int32_t chosenBy(const std::vector<uint32_t>& keys, int32_t perColumn = 0) {
        openMenu(20, 20, perColumn);
        user.type(keys);
        return chosen();
    }
};

}  // namespace

TEST_F(LineEditTest, TakesKeysAndGivesTheKeyboardBack) {
    EXPECT_EQ(edited("old", [&] { user.type({'n', 'e', 'w'}); }), "new");
    EXPECT_EQ(edited("abc",
                     [&] {
                         user.type({kHome, 'x', kEnd, XKB_KEY_BackSpace, 'y'});
                     }),
              "xaby");
    EXPECT_EQ(edited("one two", [&] { user.type({kEnd}), user.type({'h'}, {kShift}); }),
              "one twoH");
    EXPECT_EQ(edited("one two",
                     [&] {
                         user.type({kEnd});
                         user.type({XKB_KEY_Left}, {kControl, kShift});
                         user.type({XKB_KEY_Delete});
                     }),
              "one ");
    openEdit("old");
    user.type({'n', kEscape});
    EXPECT_EQ(ended(), "old");
}

TEST_F(LineEditTest, EndsWithAClickElsewhereThatStillCounts) {
    openEdit("old");
    user.type({'n'});
    EXPECT_EQ(told("up", [&] { user.click(150, 100); }).back(), "up 150,100 2");
    EXPECT_EQ(ended(), "n");
}

TEST_F(LineEditTest, SelectsByMouse) {
    // Characters are 6 pixels wide and begin 3 pixels from the frame.
    EXPECT_EQ(edited("abcdef",
                     [&] {
                         user.moveTo(20 + 3 + 12, 30);
                         user.press();
                         user.moveTo(20 + 3 + 24, 30);
                         user.release();
                         user.type({'x'});
                     }),
              "abxef");
}

TEST_F(LineEditTest, CopiesAndPastesWithinAndWithOtherPrograms) {
    EXPECT_EQ(edited("gr\xc3\xbc\xc3\x9f",
                     [&] {
                         user.type({'c'}, {kControl});
                         user.type({kEnd});
                         user.type({'v', 'v'}, {kControl});
                     }),
              "gr\xc3\xbc\xc3\x9fgr\xc3\xbc\xc3\x9fgr\xc3\xbc\xc3\x9f");
    EXPECT_EQ(user.askFor("CLIPBOARD", "UTF8_STRING", [&] { window->processEvents(); }),
              "gr\xc3\xbc\xc3\x9f");
    EXPECT_EQ(user.askFor("CLIPBOARD", "STRING", [&] { window->processEvents(); }), "gr\xfc\xdf");

    user.offer("CLIPBOARD", "\xd1\x8f");
    EXPECT_EQ(edited("",
                     [&] {
                         user.type({'v'}, {kControl});
                         EXPECT_TRUE(until([&] { return user.serve() && !edit->text().empty(); }));
                     }),
              "\xd1\x8f");
}

TEST_F(MenuTest, IsLedByTheKeyboard) {
    EXPECT_EQ(chosenBy({kReturn}), 1);
    EXPECT_EQ(chosenBy({XKB_KEY_Down, XKB_KEY_Down, kReturn}), 3);
    EXPECT_EQ(chosenBy({XKB_KEY_Up, XKB_KEY_Up, kReturn}), 3) << "round the top";
    EXPECT_EQ(chosenBy({XKB_KEY_Right, kReturn}, 2), 3) << "the next of two columns";
    EXPECT_EQ(chosenBy({XKB_KEY_Down, kEscape}), -1);
}

TEST_F(MenuTest, IsLedByTheMouseWithoutThePanelHearingOfIt) {
    user.moveTo(5, 5);
    told("moved", [&] { user.moveTo(6, 6); });
    openMenu(20, 20);
    panel.calls.clear();
    user.click(40, 20 + 2 + 2 * 13 + 5);  // rows are 13 pixels high inside a frame of 2
    EXPECT_EQ(chosen(), 2);
    openMenu(20, 20);
    user.click(150, 140);
    EXPECT_EQ(chosen(), -1);
    for (const std::string& call : panel.calls) {
        EXPECT_NE(call.substr(0, 2), "do") << call;
        EXPECT_NE(call.substr(0, 2), "up") << call;
    }
}

TEST_F(MenuTest, UnderAHeldButtonLeavesTheReleaseToThePanelAndStays) {
    told("down", [&] { user.moveTo(30, 30), user.press(); });
    openMenu(20, 20, 0, 0);
    EXPECT_EQ(told("up", [&] { user.release(); }).back(), "up 30,30 2");
    EXPECT_FALSE(choice);
    user.type({kReturn});
    EXPECT_EQ(chosen(), 0);
}
