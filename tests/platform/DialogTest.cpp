// File dialogs and messages: the desktop's tool, of which a script plays the part, and built in.

#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/OpenDocument.h"
#include "support/PanelHost.h"

using namespace tessel8;
using namespace tessel8::testing;

namespace {

namespace fs = std::filesystem;

bool hasNoChild() {
    return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

struct DialogTest : Host {
    const fs::path folder = fs::path(::testing::TempDir()) / std::to_string(getpid());
    std::optional<std::string> path;
    std::unique_ptr<Dialog> dialog;

    DialogTest() {
        fs::create_directories(folder / "inner");
        for (const char* name : {"b.pre", "a.pre", "c.txt"}) {
            std::ofstream(folder / name) << name;
        }
        tool("zenity", "exit 127");  // as one does that can't run: the built-in one comes then
        setenv("PATH", (folder.string() + ":" + std::getenv("PATH")).c_str(), 1);
        unsetenv("XDG_CURRENT_DESKTOP");
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
    std::string builtIn(FileDialogKind kind, const std::string& keys) {
        open(kind);
        EXPECT_TRUE(untilFocused());
        user.type(keys);
        return result();
    }
};

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
    EXPECT_TRUE(hasNoChild());
}

TEST_F(DialogTest, EndsItsToolWithItself) {
    tool("zenity", "exec sleep 100");
    open(FileDialogKind::Load);
    window->processEvents();
    EXPECT_FALSE(hasNoChild());
    dialog.reset();
    EXPECT_TRUE(hasNoChild());
    EXPECT_FALSE(path);
}

TEST_F(DialogTest, FindsAFileByKeyboardWithoutADesktop) {
    // In the list: the way up, inner/, a.pre, b.pre.
    EXPECT_EQ(builtIn(FileDialogKind::Load, "Down Down Down Return"), folder / "a.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Load, "b period p r e Return"), folder / "b.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Load, "Down Escape"), "");
    EXPECT_EQ(builtIn(FileDialogKind::Save, "Return"), folder / "new.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Save, "Down Down Return Return"), folder / "inner/new.pre");
    EXPECT_EQ(builtIn(FileDialogKind::Save, "a Return b c Return"), folder / "abc.pre")
        << "a.pre is there and not replaced at once";
    EXPECT_EQ(user.focus(), parent);
}

TEST_F(DialogTest, TakesADoubleClick) {
    open(FileDialogKind::Load);
    EXPECT_TRUE(untilFocused());
    // Centred over the panel it lies at the screen's top left; a.pre is the third row.
    const int x = 50 - XClient::kLeft, y = 31 + 2 * 18 + 9 - XClient::kTop;
    EXPECT_TRUE((user.click(x, y), window->processEvents()));
    EXPECT_FALSE(path) << "one click only selects";
    user.click(x, y);
    EXPECT_EQ(result(), folder / "a.pre");
}

TEST_F(DialogTest, ShowsAMessageUntilItIsRead) {
    bool read = false;
    dialog = window->openMessage("Title", "Text", [&] { read = true; });
    EXPECT_TRUE(untilFocused());
    EXPECT_FALSE(read);
    user.type("Return");
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
    EXPECT_TRUE(hasNoChild()) << "nobody of ours";
}
