#pragma once

// The whole effect with its panel on a window worked by hand, and settings of the test's own.

#include <filesystem>
#include <fstream>

#include "editor/Tessel8Editor.h"
#include "shell/Tessel8.h"
#include "support/ImageWriter.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace fs = std::filesystem;

inline std::string contentsOf(const fs::path& file) {
    std::ostringstream contents;
    contents << std::ifstream(file, std::ios::binary).rdbuf();
    return contents.str();
}

/// Opens nothing and lets the test give the answers.
struct AnsweringWindow : FakeWindow {
    using FakeWindow::FakeWindow;
    struct Piece : LineEdit, PopupMenu, Dialog {
        std::string text() const override { return {}; }
    };
    using MenuEnd = std::function<void(int32_t)>;
    using Ended = std::function<void()>;
    std::unique_ptr<LineEdit> openLineEdit(const LineEditSettings&, TextEnd end) override {
        return endText = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings& s, MenuEnd end) override {
        return menu = s, endMenu = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<Dialog> openFileDialog(const FileDialogSettings& s, TextEnd end) override {
        return told = s.title, endText = std::move(end), std::make_unique<Piece>();
    }
    std::unique_ptr<Dialog> openMessage(const std::string& head, const std::string& text,
                                        Ended) override {
        return told = head + "|" + text, std::make_unique<Piece>();
    }
    void takeKeyboardFocus() override { ++focusTaken; }

    std::string told;  ///< the title of the last dialog, or the last message
    PopupMenuSettings menu;
    TextEnd endText;
    MenuEnd endMenu;
    int focusTaken = 0;
};

/// Where the strip's controls lie, from the left.
constexpr int32_t kSaveBank = 45, kBankLabel = 70, kLoadBank = 96, kSavePreset = 125,
                  kPresetLabel = 157, kLoadPreset = 188, kField = 250, kList = 350, kDown = 368,
                  kUp = 390, kStoreA = 421, kRecallA = 454, kRecallB = 519, kFocus = 847,
                  kManual = 862;

/// An instance with its panel open.
struct Instance {
    struct Editor : Tessel8Editor {
        using Tessel8Editor::Tessel8Editor;
        Shared<NewFrame> makeFrame(void*) override {
            const auto make = [this](WindowListener& listener) {
                return std::unique_ptr<Window>(window = new AnsweringWindow(listener));
            };
            return makeShared<NewFrame>(CRect{0, 0, 870, 565}, make, this, clock);
        }
        AnsweringWindow* window = nullptr;
    };
    Instance() { editor.open(nullptr); }

    void click(int32_t x, uint32_t buttons = mouse::kLeft, int32_t y = 556) {
        editor.window->listener.mouseDown({x, y, buttons});
        editor.window->listener.mouseUp({x, y, buttons});
    }
    void choose(int32_t x, const fs::path& file, uint32_t buttons = mouse::kLeft, int32_t y = 556) {
        click(x, buttons, y);
        editor.window->endText(file);
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
    PresetTest() { setenv("XDG_CONFIG_HOME", home.c_str(), 1); }
    ~PresetTest() override { fs::remove_all(home); }
    std::string pattern = fs::temp_directory_path() / "tessel8-XXXXXX";
    const fs::path home = mkdtemp(pattern.data());
    const fs::path settings = home / "Vantor-audio/Vantor Tessel Echo";
};

}  // namespace tessel8
