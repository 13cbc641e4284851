#include <unistd.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <csignal>

#include "XClient.h"
#include "platform/linux/PipeSignalGuard.h"

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
    ASSERT_EQ(panel.painted.size(), 1u);
    EXPECT_EQ(panel.painted[0].left, 10);
    EXPECT_EQ(panel.painted[0].bottom, 40);
    EXPECT_TRUE(until([&] { return user.pixel(29, 39) == 0xabcdef; }));
    EXPECT_EQ(user.pixel(10, 20), 0xabcdefu);
    EXPECT_EQ(user.pixel(30, 39), 0x123456u);
    EXPECT_EQ(user.pixel(29, 40), 0x123456u);
}

TEST_F(WindowTest, ShowsAgainWhatWasCoveredWithoutAskingTheListener) {
    panel.painted.clear();
    const xcb_window_t cover = user.makeParent(50, 50);
    user.map(cover);
    EXPECT_NE(user.pixel(20, 20), panel.colour);
    xcb_destroy_window(user.x, cover);
    user.sync();
    EXPECT_TRUE(until([&] { return user.pixel(20, 20) == panel.colour; }));
    EXPECT_TRUE(panel.painted.empty());
}

TEST_F(WindowTest, LivesInAnUnmappedTinyParentOfAnotherVisual) {
    const xcb_window_t tiny = user.makeParent(1, 1, 32);
    const auto second = open(tiny);
    ASSERT_TRUE(second);
    EXPECT_TRUE(second->processEvents());
    const uint32_t size[] = {200, 150};
    xcb_configure_window(user.x, tiny, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    panel.colour = 0x00ff55;
    second->invalidate({0, 0, 200, 150});
    user.map(tiny);
    EXPECT_TRUE(until([&] { return second->processEvents() && user.pixel(199, 149) == 0x00ff55; }));
}

TEST_F(WindowTest, TellsButtonsModifiersAndTheWheel) {
    const auto turn = [&](uint8_t button) { return [&, button] { user.click(40, 30, button); }; };
    EXPECT_EQ(told("up", turn(3)), (Calls{"moved 40,30 0", "down 40,30 8", "up 40,30 8"}));
    EXPECT_EQ(told("wheel", turn(4)).back(), "wheel1 40,30 0");
    EXPECT_EQ(told("wheel", turn(5)).back(), "wheel-1 40,30 0");
    EXPECT_EQ(told("wheel", turn(6)).back(), "wheel1 40,30 0");
    EXPECT_EQ(told("wheel", turn(7)).back(), "wheel-1 40,30 0");
    user.hold({XKB_KEY_Shift_L, XKB_KEY_Control_L, XKB_KEY_Alt_L});
    EXPECT_EQ(told("up", turn(2)).back(), "up 40,30 116");
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
    EXPECT_EQ(
        told("up", [&] { user.click(10, 10), user.click(13, 10), user.click(13, 10); }),
        (Calls{"moved 10,10 0", "down 10,10 2", "up 10,10 2", "moved 13,10 0", "down 13,10 1026",
               "up 13,10 2", "moved 13,10 0", "down 13,10 2", "up 13,10 2"}));
    sleepMilliseconds(450);
    EXPECT_EQ(told("up", [&] { user.click(13, 10); })[1], "down 13,10 2");
    EXPECT_EQ(told("up", [&] { user.click(19, 10); })[1], "down 19,10 2");
}

TEST_F(WindowTest, AsksForTheMouseAtThatMoment) {
    user.moveTo(77, 66);
    user.press(2);
    const MouseState now = window->currentMouse();
    user.release(2);
    EXPECT_EQ(now.x, 77);
    EXPECT_EQ(now.y, 66);
    EXPECT_EQ(now.buttons, mouse::kMiddle);
}

TEST_F(WindowTest, DoesNothingMoreOnceTheParentIsGone) {
    const auto second = open(parent);  // two panels at once: this one closes first
    EXPECT_TRUE(second->processEvents());
    xcb_destroy_window(user.x, parent);
    user.sync();
    EXPECT_TRUE(until([&] { return !window->processEvents() && !second->processEvents(); }));
    window->invalidate({0, 0, 10, 10});
    panel.painted.clear();
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

TEST(PipeSignalGuardTest, TakesTheSignalOfABrokenPipeAndNothingElse) {
    signal(SIGPIPE, SIG_DFL);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    {
        const x11::PipeSignalGuard guard;
        EXPECT_EQ(write(ends[1], "x", 1), -1);
    }
    close(ends[1]);
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_FALSE(sigismember(&blocked, SIGPIPE));
}
