// File dialogs and messages: the desktop's tool, of which a script plays the part, and built in.

#include <sys/wait.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "XClient.h"
#include "platform/OpenDocument.h"

using namespace tessel8;
using namespace tessel8::testing;

namespace {

namespace fs = std::filesystem;

struct DialogTest : Host {
    const fs::path folder = fs::path(::testing::TempDir()) / std::to_string(getpid());
    std::optional<std::string> path;
    std::unique_ptr<Dialog> dialog;

    DialogTest() {
        fs::create_directories(folder / "inner");
        for (const char* name : {"b.pre", "a.pre", "c.txt"}) {
            std::ofstream(folder / name) << name;
        }
        setenv("PATH", (folder.string() + ":" + std::getenv("PATH")).c_str(), 1);
        unsetenv("XDG_CURRENT_DESKTOP");
        xcb_set_input_focus(user.x, XCB_INPUT_FOCUS_PARENT, parent, XCB_CURRENT_TIME);
    }
    ~DialogTest() override { fs::remove_all(folder); }

    void tool(const std::string& name, const std::string& script) {
        std::ofstream(folder / name) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(folder / name, fs::perms::owner_all);
    }
    void open(FileDialogKind kind) {
        path.reset();
        dialog = window->openFileDialog(
            {kind, "Title", folder.string(), "new", "Preset", "pre"},
            [this](const std::string& chosen) { path = chosen, dialog.reset(); });
    }
    std::string result() {
        EXPECT_TRUE(until([&] { return path.has_value(); }));
        return path.value_or("nothing");
    }
    /// What the built-in dialog ends with after some keys.
    std::string builtIn(FileDialogKind kind, const std::vector<uint32_t>& keys) {
        tool("zenity", "exit 127");
        open(kind);
        const xcb_window_t before = user.focus();
        EXPECT_TRUE(until([&] { return user.focus() != before; }));
        user.type(keys);
        std::string chosen = result();
        EXPECT_EQ(user.focus(), before);
        return chosen;
    }
};

constexpr uint32_t kDown = XKB_KEY_Down, kReturn = XKB_KEY_Return;

}  // namespace

TEST_F(DialogTest, AsksTheDesktopAndPaintsOnMeanwhile) {
    tool("zenity", "case \"$*\" in *--save*) sleep 0.1; echo /there/mine ;; *) exit 1 ;; esac");
    open(FileDialogKind::Save);
    panel.colour = 0x445566;
    window->invalidate({0, 0, 200, 150});
    EXPECT_TRUE(until([&] { return user.pixel(100, 100) == panel.colour; }));
    panel.calls.clear();
    user.click(50, 50);
    EXPECT_EQ(result(), "/there/mine.pre");
    EXPECT_EQ(panel.calls, std::vector<std::string>{}) << "it is modal";
    open(FileDialogKind::Load);
    EXPECT_EQ(result(), "") << "cancelled";
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
}

TEST_F(DialogTest, EndsItsToolWithItself) {
    tool("zenity", "exec sleep 100");
    open(FileDialogKind::Load);
    window->processEvents();
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), 0) << "it runs";
    dialog.reset();
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it is gone and reaped";
    EXPECT_FALSE(path);
}

TEST_F(DialogTest, FindsAFileByKeyboardWithoutADesktop) {
    // In the list: the way up, inner/, a.pre, b.pre.
    EXPECT_EQ(builtIn(FileDialogKind::Load, {kDown, kDown, kDown, kReturn}), folder / "a.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Load, {'b', '.', 'p', 'r', 'e', kReturn}), folder / "b.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Load, {kDown, XKB_KEY_Escape}), "");
    EXPECT_EQ(builtIn(FileDialogKind::Save, {kReturn}), folder / "new.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Save, {kDown, kDown, kReturn, kReturn}),
              folder / "inner" / "new.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Save, {'a', kReturn, 'b', 'c', kReturn}), folder / "abc.pre")
        << "a.pre is there and not replaced at once";
}

TEST_F(DialogTest, ShowsAMessageUntilItIsRead) {
    tool("zenity", "exit 127");
    bool read = false;
    dialog = window->openMessage("Title", "Text", [&] { read = true; });
    const xcb_window_t before = user.focus();
    EXPECT_TRUE(until([&] { return user.focus() != before; }));
    EXPECT_FALSE(read);
    user.type({kReturn});
    EXPECT_TRUE(until([&] { return read; }));
}

TEST_F(DialogTest, OpensDocumentsByTheSystemsChoice) {
    const auto opened = [&](const std::string& script) {
        tool("xdg-open", script);
        return openDocument(folder / "c.txt");
    };
    EXPECT_EQ(opened("grep -q c.txt \"$1\""), OpenResult::Opened);
    EXPECT_EQ(opened("exit 3"), OpenResult::NoApplication);
    EXPECT_EQ(opened("exit 1"), OpenResult::Failed);
    EXPECT_EQ(openDocument(folder / "missing"), OpenResult::Failed);
    const uint32_t start = millisecondTick();
    EXPECT_EQ(opened("sleep 2"), OpenResult::Opened);
    EXPECT_LT(millisecondTick() - start, 1000u);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nobody of ours";
}
