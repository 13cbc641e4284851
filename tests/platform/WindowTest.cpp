#include <unistd.h>

#include <csignal>

#include "platform/linux/PipeSignalGuard.h"
#include "support/PanelHost.h"

using namespace tessel8;
using namespace tessel8::testing;
using Calls = std::vector<std::string>;
using WindowTest = Host;

TEST_F(WindowTest, PaintsAndSendsOnlyWhatIsDamaged) {
    panel.painted.clear();
    panel.colour = 0xabcdef;
    window->invalidate({10, 20, 30, 40});
    EXPECT_TRUE(panel.painted.empty()) << "later, not at once";
    window->processPaints();
    EXPECT_EQ(panel.painted.size(), 1u);
    EXPECT_TRUE(until([&] { return user.pixel(29, 39) == 0xabcdef; }));
    EXPECT_EQ(user.pixel(10, 20), 0xabcdefu);
    EXPECT_EQ(user.pixel(30, 39), 0x123456u);
    EXPECT_EQ(user.pixel(29, 40), 0x123456u);
}

TEST_F(WindowTest, LivesInAnUnmappedTinyParentOfAnotherVisual) {
    const xcb_window_t tiny = user.makeParent(1, 1, 32);
    panel.colour = 0x00ff55;
    const auto second = open(tiny);
    ASSERT_TRUE(second && second->processEvents());
    const uint32_t size[] = {200, 150};
    xcb_configure_window(user.x, tiny, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    panel.painted.clear();
    user.map(tiny);
    EXPECT_TRUE(until([&] { return second->processEvents() && user.pixel(199, 149) == 0x00ff55; }));
    EXPECT_TRUE(panel.painted.empty()) << "what was painted once is shown again";
}

TEST_F(WindowTest, TellsButtonsModifiersAndTheWheel) {
    const auto turn = [&](uint8_t button) {
        return told("", [&] { user.click(40, 30, button); }).back();
    };
    EXPECT_EQ(told("up", [&] { user.click(40, 30, 3); }),
              (Calls{"moved 40,30 0", "down 40,30 8", "up 40,30 8"}));
    EXPECT_EQ(turn(4), "wheel1 40,30 0");
    EXPECT_EQ(turn(5), "wheel-1 40,30 0");
    EXPECT_EQ(turn(6), "wheel1 40,30 0") << "to the left";
    EXPECT_EQ(turn(7), "wheel-1 40,30 0");
    user.press(2);
    EXPECT_EQ(window->currentMouse().buttons, mouse::kMiddle) << "asked at this moment";
    EXPECT_EQ(window->currentMouse().y, 30);
    user.release(2);
    user.hold({"Shift_L", "Control_L", "Alt_L"});
    EXPECT_EQ(told("up", [&] { user.click(40, 30); }).back(), "up 40,30 114");
}

TEST_F(WindowTest, DragsOutsideAndLeavesAfterwards) {
    user.moveTo(10, 10);
    EXPECT_EQ(told("left",
                   [&] {
                       user.press();
                       user.moveTo(20, 20);
                       user.moveTo(30, 30);  // two that wait are one
                       user.moveTo(-30, 300);
                       user.release();
                   }),
              (Calls{"moved 10,10 0", "down 10,10 2", "moved 30,30 2", "moved -30,300 2",
                     "up -30,300 2", "left"}));
}

TEST_F(WindowTest, KnowsADoubleClickByTimeAndDistance) {
    const auto click = [&](int x) { return told("up", [&] { user.click(x, 10); })[1]; };
    EXPECT_EQ(click(10), "down 10,10 2");
    EXPECT_EQ(click(14), "down 14,10 1026");
    EXPECT_EQ(click(14), "down 14,10 2") << "a third one begins anew";
    sleepMilliseconds(450);
    EXPECT_EQ(click(14), "down 14,10 2");
    EXPECT_EQ(click(19), "down 19,10 2");
}

TEST_F(WindowTest, DoesNothingMoreOnceTheParentIsGone) {
    const auto second = open(parent);  // two panels at once
    EXPECT_TRUE(second->processEvents());
    xcb_destroy_window(user.x, parent);
    user.sync();
    EXPECT_TRUE(until([&] { return !window->processEvents() && !second->processEvents(); }));
    panel.painted.clear();
    window->invalidate({0, 0, 10, 10});
    window->processPaints();
    EXPECT_TRUE(panel.painted.empty());
    EXPECT_FALSE(open(parent)) << "a window that isn't there";
}

TEST_F(WindowTest, SurvivesTheEndOfTheServer) {
    const char* server = std::getenv("XVFB_PID");
    ASSERT_TRUE(server);
    ASSERT_EQ(kill(std::atoi(server), SIGKILL), 0);
    sleepMilliseconds(100);
    window->invalidate({0, 0, 200, 150});
    window->processPaints();
    EXPECT_EQ(window->currentMouse().buttons, 0u);
    EXPECT_FALSE(window->processEvents());
    EXPECT_FALSE(open(parent));
}

TEST_F(WindowTest, OfItsOwnHearsThatItShallClose) {
    window = open(0);
    EXPECT_TRUE(until([&] { return user.pixel(-50, 0) == panel.colour; })) << "at the top left";
    EXPECT_FALSE(window->closeAsked());
    user.askToClose(user.topWindow());
    EXPECT_TRUE(until([&] { return window->closeAsked(); }));
}

TEST(PipeSignalGuardTest, TakesTheSignalOfABrokenPipe) {
    signal(SIGPIPE, SIG_DFL);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const x11::PipeSignalGuard guard;
    EXPECT_EQ(write(ends[1], "x", 1), -1);
}
