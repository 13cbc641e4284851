#include "platform/linux/LinuxWindow.h"

#include <utility>

#include "platform/FileBrowser.h"
#include "platform/linux/DesktopTools.h"
#include "platform/linux/FileDialogPane.h"
#include "platform/linux/LinuxDialog.h"
#include "platform/linux/LinuxLineEdit.h"
#include "platform/linux/LinuxPopupMenu.h"
#include "platform/linux/MessagePane.h"
#include "platform/linux/PanelPane.h"
#include "platform/linux/PipeSignalGuard.h"

namespace tessel8 {

std::unique_ptr<Window> Window::create(void* parent, int32_t width, int32_t height,
                                       const std::string& title, WindowListener& listener) {
    const x11::PipeSignalGuard guard;
    const auto session = x11::Session::open();
    if (!session || width <= 0 || height <= 0) {
        return nullptr;
    }
    auto panel = std::make_unique<x11::PanelPane>(
        session, xcb_window_t(reinterpret_cast<uintptr_t>(parent)), width, height, title, listener);
    if (!panel->isAlive()) {
        return nullptr;
    }
    return std::make_unique<x11::LinuxWindow>(session, std::move(panel));
}

namespace x11 {

LinuxWindow::LinuxWindow(std::shared_ptr<Session> theSession, std::unique_ptr<PanelPane> thePanel)
    : session(std::move(theSession)), panel(std::move(thePanel)) {}

LinuxWindow::~LinuxWindow() {
    const PipeSignalGuard guard;
    session->end();
}

bool LinuxWindow::processEvents() {
    const PipeSignalGuard guard;
    const auto kept = session;  // a listener may close the window
    kept->processEvents();
    kept->paint();
    return !kept->isGone();
}

void LinuxWindow::processPaints() {
    const PipeSignalGuard guard;
    const auto kept = session;
    kept->paint();
}

void LinuxWindow::invalidate(const PixelRect& part) {
    panel->invalidate(part);
}

MouseState LinuxWindow::currentMouse() {
    const PipeSignalGuard guard;
    return panel->currentMouse();
}

void LinuxWindow::takeKeyboardFocus() {
    const PipeSignalGuard guard;
    session->offerKeyboard();
}

bool LinuxWindow::closeAsked() const {
    return panel->isCloseAsked();
}

std::unique_ptr<LineEdit> LinuxWindow::openLineEdit(const LineEditSettings& settings,
                                                    std::function<void(const std::string&)> ended) {
    const PipeSignalGuard guard;
    session->endTransients();
    return std::make_unique<LinuxLineEdit>(session, panel->id(), settings, std::move(ended));
}

std::unique_ptr<PopupMenu> LinuxWindow::openPopupMenu(const PopupMenuSettings& settings,
                                                      std::function<void(int32_t)> ended) {
    const PipeSignalGuard guard;
    session->endTransients();
    return std::make_unique<LinuxPopupMenu>(session, *panel, settings, std::move(ended));
}

std::unique_ptr<Dialog> LinuxWindow::openFileDialog(const FileDialogSettings& settings,
                                                    std::function<void(const std::string&)> ended) {
    const PipeSignalGuard guard;
    session->endTransients();
    const xcb_window_t above = session->connection().topLevelOf(panel->id());
    const std::string extension =
        settings.kind == FileDialogKind::Save ? settings.extension : std::string();
    return std::make_unique<LinuxDialog>(
        session, fileDialogCommand(settings, above),
        [this, settings, ended] {
            return std::make_unique<FileDialogPane>(session, *panel, settings, ended);
        },
        [ended, extension](const std::string& path) {
            ended(path.empty() ? path : withExtension(path, extension));
        });
}

std::unique_ptr<Dialog> LinuxWindow::openMessage(const std::string& title, const std::string& text,
                                                 std::function<void()> ended) {
    const PipeSignalGuard guard;
    session->endTransients();
    const xcb_window_t above = session->connection().topLevelOf(panel->id());
    return std::make_unique<LinuxDialog>(
        session, messageCommand(title, text, above),
        [this, title, text, ended] {
            return std::make_unique<MessagePane>(session, *panel, title, text, ended);
        },
        [ended](const std::string&) { ended(); });
}

}  // namespace x11

}  // namespace tessel8
