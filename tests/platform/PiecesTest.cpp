// Line edits and menus, as a user at keyboard and mouse meets them.

#include <optional>

#include "support/PanelHost.h"

using namespace tessel8;
using namespace tessel8::testing;

namespace {

const std::string kGerman = "gr\xc3\xbc\xc3\x9f";

struct LineEditTest : Host {
    std::optional<std::string> result;
    std::unique_ptr<LineEdit> edit;

    void openEdit(const std::string& text) {
        result.reset();
        edit = window->openLineEdit({{20, 20, 120, 40}, text}, [this](const std::string& end) {
            result = end;
            edit.reset();  // as a holder does that has no more use for it
        });
        EXPECT_TRUE(untilFocused());
    }
    std::string ended() {
        EXPECT_TRUE(until([&] { return result.has_value(); }));
        EXPECT_EQ(user.focus(), parent) << "the keyboard is given back";
        return result.value_or("nothing");
    }
    std::string edited(const std::string& text, const std::string& keys) {
        openEdit(text);
        user.type(keys);
        return ended();
    }
};

struct MenuTest : Host {
    std::optional<int32_t> choice;
    std::unique_ptr<PopupMenu> menu;

    void openMenu(int32_t perColumn = 0) {
        choice.reset();
        menu = window->openPopupMenu({20, 20, {"one", "two", "three", "four"}, 1, perColumn},
                                     [this](int32_t c) { choice = c, menu.reset(); });
        EXPECT_TRUE(until([&] { return user.pixel(20, 20) == 0x808080; })) << "its frame";
    }
    int32_t chosen() {
        EXPECT_TRUE(until([&] { return choice.has_value(); }));
        return choice.value_or(-2);
    }
    int32_t chosenBy(const std::string& keys, int32_t perColumn = 0) {
        openMenu(perColumn);
        user.type(keys);
        return chosen();
    }
};

}  // namespace

TEST_F(LineEditTest, TakesKeysAndGivesTheKeyboardBack) {
    EXPECT_EQ(edited("old", "n e w Return"), "new");
    EXPECT_EQ(edited("abc", "Home x End BackSpace y Return"), "xaby");
    EXPECT_EQ(edited("one two", "End C-S-Left S-b Return"), "one B");
    EXPECT_EQ(edited("old", "n Escape"), "old");
}

TEST_F(LineEditTest, EndsWithAClickElsewhereThatStillCounts) {
    openEdit("old");
    user.type("n");
    user.click(150, 100);
    EXPECT_EQ(ended(), "n");
    EXPECT_TRUE(until([&] { return panel.calls.back() == "up 150,100 2"; }));
}

TEST_F(LineEditTest, SelectsByMouse) {
    openEdit("abcdef");  // characters are 6 pixels wide and begin 3 pixels from the frame
    user.moveTo(20 + 3 + 12, 30);
    user.press();
    user.moveTo(20 + 3 + 24, 30);
    user.release();
    user.type("x Return");
    EXPECT_EQ(ended(), "abxef");
}

TEST_F(LineEditTest, CopiesAndPastesWithinAndBetweenPrograms) {
    EXPECT_EQ(edited(kGerman, "C-c End C-v Return"), kGerman + kGerman);
    const auto work = [&] { window->processEvents(); };
    EXPECT_EQ(user.selection("CLIPBOARD", "UTF8_STRING", work), kGerman);
    EXPECT_EQ(user.selection("CLIPBOARD", "STRING", work), "gr\xfc\xdf");

    const std::unique_ptr<Window> source = std::move(window);
    window = open(parent);  // knows nothing of what the other one has copied
    openEdit("");
    user.type("C-v");
    EXPECT_TRUE(until([&] { return source->processEvents() && edit->text() == kGerman; }));
}

TEST_F(MenuTest, IsLedByTheKeyboard) {
    EXPECT_EQ(chosenBy("Return"), 1);
    EXPECT_EQ(chosenBy("Down Down Return"), 3);
    EXPECT_EQ(chosenBy("Up Up Return"), 3) << "round the top";
    EXPECT_EQ(chosenBy("Right Return", 2), 3) << "the next of two columns";
    EXPECT_EQ(chosenBy("Down Escape"), -1);
}

TEST_F(MenuTest, IsLedByTheMouseWithoutThePanelHearingOfIt) {
    openMenu();
    user.click(40, 20 + 2 + 2 * 13 + 5);  // rows are 13 pixels high inside a frame of 2
    EXPECT_EQ(chosen(), 2);
    openMenu();
    user.click(150, 140);
    EXPECT_EQ(chosen(), -1);
    for (const std::string& call : panel.calls) {
        EXPECT_NE(call.substr(0, 4), "down");
    }
}

TEST_F(MenuTest, UnderAHeldButtonLeavesTheReleaseToThePanelAndStays) {
    told("down", [&] { user.moveTo(30, 40), user.press(); });
    openMenu();
    EXPECT_EQ(told("up", [&] { user.release(); }).back(), "up 30,40 2");
    EXPECT_FALSE(choice);
    user.type("Return");
    EXPECT_EQ(chosen(), 1);
}
