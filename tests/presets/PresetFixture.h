#pragma once

// The whole effect with its panel on a window worked by hand, and settings of the test's own.

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "editor/Tessel8Editor.h"
#include "shell/Tessel8.h"
#include "support/ImageWriter.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace fs = std::filesystem;

inline std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline Bytes bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

inline void write(const fs::path& file, const Bytes& bytes) {
    std::ofstream(file, std::ios::binary) << std::string(bytes.begin(), bytes.end());
}

/// Opens nothing and lets the test give the answers.
struct AnsweringWindow : FakeWindow {
    using FakeWindow::FakeWindow;
    struct Piece : LineEdit, PopupMenu, Dialog {
        std::string text() const override { return {}; }
    };
    std::unique_ptr<LineEdit> openLineEdit(const LineEditSettings&, TextEnd end) override {
        return endText = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings& s,
                                             std::function<void(int32_t)> end) override {
        return menu = s, endMenu = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<Dialog> openFileDialog(const FileDialogSettings& s, TextEnd end) override {
        return title = s.title, endText = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<Dialog> openMessage(const std::string& heading, const std::string& text,
                                        std::function<void()>) override {
        return messages += heading + "|" + text + ";", std::make_unique<Piece>();
    }
    void takeKeyboardFocus() override { ++focusTaken; }

    std::string title, messages;
    PopupMenuSettings menu;
    TextEnd endText;
    std::function<void(int32_t)> endMenu;
    int focusTaken = 0;
};

/// An instance with its panel open. Places on the strip are told by their x.
struct Instance {
    static constexpr int32_t kSaveBank = 45, kBankLabel = 70, kLoadBank = 96, kSavePreset = 125,
                             kPresetLabel = 157, kLoadPreset = 188, kField = 250, kList = 350,
                             kDown = 368, kUp = 390, kStoreA = 421, kRecallA = 454, kRecallB = 519,
                             kFocus = 847, kManual = 862;
    struct Editor : Tessel8Editor {
        using Tessel8Editor::Tessel8Editor;
        Shared<NewFrame> makeFrame(void*) override {
            const auto makeWindow = [this](WindowListener& listener) {
                auto made = std::make_unique<AnsweringWindow>(listener);
                window = made.get();
                return made;
            };
            return makeShared<NewFrame>(CRect{0, 0, 870, 565}, makeWindow, this, clock);
        }
        AnsweringWindow* window = nullptr;
    };

    Instance() { editor.open(nullptr); }
    AnsweringWindow& window() { return *editor.window; }
    void press(int32_t x, uint32_t buttons = mouse::kLeft, int32_t y = 556) {
        window().listener.mouseDown({x, y, buttons});
    }
    void click(int32_t x, uint32_t buttons = mouse::kLeft, int32_t y = 556) {
        press(x, buttons, y);
        window().listener.mouseUp({x, y, buttons});
    }
    void choose(int32_t key, const fs::path& file, uint32_t buttons = mouse::kLeft) {
        click(key, buttons);
        window().endText(file);
    }
    template <typename Control>
    Control& at(int32_t x) {
        return dynamic_cast<Control&>(*editor.getFrame()->getViewAt({double(x), 556}));
    }
    std::string field() { return at<CTextEdit>(kField).getText(); }
    std::string title(int32_t index) { return *at<COptionMenu>(kList).getEntry(index); }
    std::string name(int32_t index) {
        char text[kNameBytes + 1] = "";
        effect.getProgramNameIndexed(0, index, text);
        return text;
    }
    int32_t current() { return effect.getCurrentProgramIndex(); }
    int entry(int32_t controller) { return effect.controllerMapData()[controller]; }

    Tessel8 effect{nullptr};
    Editor editor{effect, &effect};
};

struct PresetTest : testing::Test {
    PresetTest() {
        std::string pattern = fs::temp_directory_path() / "tessel8-XXXXXX";
        home = mkdtemp(pattern.data());
        setenv("XDG_CONFIG_HOME", home.c_str(), 1);
        settings = home / "Vantor-audio/Vantor Tessel Echo";
    }
    ~PresetTest() override { fs::remove_all(home); }

    fs::path home, settings;
};

}  // namespace tessel8
