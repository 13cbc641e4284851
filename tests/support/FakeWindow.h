#pragma once

// A window and a clock that are worked by hand.

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/Window.h"
#include "toolkit/Relaxed.h"
#include "toolkit/TickClock.h"

namespace tessel8 {

struct FakeClock : TickClock {
    uint32_t now() const override { return tick; }
    void sleep(uint32_t milliseconds) override { tick = tick + milliseconds; }

    Relaxed<uint32_t> tick = 1000;
};

struct FakeWindow : Window {
    using TextEnd = std::function<void(const std::string&)>;

    explicit FakeWindow(WindowListener& hearer) : listener(hearer) {}
    bool processEvents() override {
        deepest = std::max(deepest, ++depth);
        for (const auto& event : std::exchange(events, {})) {
            event();
        }
        return --depth >= 0;
    }
    void processPaints() override { ++paints; }
    void invalidate(const PixelRect& part) override { damage = damage.united(part); }
    MouseState currentMouse() override { return mouse; }
    void takeKeyboardFocus() override {}
    std::unique_ptr<LineEdit> openLineEdit(const LineEditSettings&, TextEnd) override {
        return nullptr;
    }
    std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings&,
                                             std::function<void(int32_t)>) override {
        return nullptr;
    }
    std::unique_ptr<Dialog> openFileDialog(const FileDialogSettings&, TextEnd) override {
        return nullptr;
    }
    std::unique_ptr<Dialog> openMessage(const std::string&, const std::string&,
                                        std::function<void()>) override {
        return nullptr;
    }
    bool closeAsked() const override { return false; }

    WindowListener& listener;
    std::vector<std::function<void()>> events;  ///< handled at the next `processEvents`
    PixelRect damage;
    MouseState mouse;
    int depth = 0, deepest = 0, paints = 0;
};

}  // namespace tessel8
