#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Fill.h"
#include "platform/Window.h"
#include "support/XClient.h"

namespace tessel8::testing {

/// Writes down what it is told, and paints every damaged part in the colour of the moment.
struct Recorder : WindowListener {
    std::vector<std::string> calls;
    std::vector<PixelRect> painted;
    uint32_t colour = 0x123456;

    void note(const std::string& what, const MouseState& m) {
        calls.push_back(what + " " + std::to_string(m.x) + "," + std::to_string(m.y) + " " +
                        std::to_string(m.buttons));
    }
    void paint(const Surface& surface, const PixelRect& damaged) override {
        painted.push_back(damaged);
        fillRect(surface, damaged, surface.bounds(), colour);
    }
    void mouseDown(const MouseState& m) override { note("down", m); }
    void mouseMoved(const MouseState& m) override { note("moved", m); }
    void mouseUp(const MouseState& m) override { note("up", m); }
    void mouseLeft() override { calls.emplace_back("left"); }
    void wheel(const MouseState& m, float distance) override {
        note("wheel" + std::to_string(int(distance)), m);
    }
};

/// A host that has the keyboard, with an open panel of 200 by 150.
struct Host : ::testing::Test {
    XClient user;
    Recorder panel;
    xcb_window_t parent = user.makeParent(200, 150);
    std::unique_ptr<Window> window = open(parent);

    Host() {
        user.map(parent);
        xcb_set_input_focus(user.x, XCB_INPUT_FOCUS_PARENT, parent, XCB_CURRENT_TIME);
        EXPECT_TRUE(until([&] { return user.pixel(100, 100) == panel.colour; }));
    }

    std::unique_ptr<Window> open(xcb_window_t in) {
        return Window::create(reinterpret_cast<void*>(uintptr_t(in)), 200, 150, "Panel", panel);
    }
    /// Lets the panel work as a host's timer does, until something is the case.
    bool until(const std::function<bool()>& isTheCase) {
        for (const uint32_t start = millisecondTick(); millisecondTick() - start < 3000;) {
            window->processEvents();
            if (isTheCase()) {
                return true;
            }
            sleepMilliseconds(2);
        }
        return false;
    }
    /// Until the keyboard belongs to the panel.
    bool untilFocused() {
        return until([&] { return user.focus() != parent; });
    }
    /// Does something and gives what the panel was told, up to a call that begins with `last`.
    std::vector<std::string> told(const std::string& last, const std::function<void()>& act) {
        panel.calls.clear();
        act();
        EXPECT_TRUE(until([&] {
            return !panel.calls.empty() && panel.calls.back().rfind(last, 0) == 0;
        })) << last;
        return panel.calls;
    }
};

}  // namespace tessel8::testing
