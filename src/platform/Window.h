#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/MouseWord.h"
#include "platform/Surface.h"

namespace tessel8 {

/// What happens in a window. All calls come from within `Window::processEvents` and
/// `processPaints`, on the thread that calls those.
class WindowListener {
  public:
    virtual ~WindowListener() = default;
    /// Draws the damaged part into a surface of the whole window's size; the pixels there are
    /// those of the last paint.
    virtual void paint(const Surface& surface, const PixelRect& damaged) = 0;
    virtual void mouseDown(const MouseState& mouse) = 0;
    virtual void mouseMoved(const MouseState& mouse) = 0;
    /// `buttons` still holds the button that goes up.
    virtual void mouseUp(const MouseState& mouse) = 0;
    /// The pointer has left the window.
    virtual void mouseLeft() = 0;
    /// One notch is 1, away from the user is positive; a horizontal wheel comes in negated.
    virtual void wheel(const MouseState& mouse, float distance) = 0;
};

/// A line edit that lies over a part of the window while it exists. The text is UTF-8.
class LineEdit {
  public:
    virtual ~LineEdit() = default;
    virtual std::string text() const = 0;
};

struct LineEditSettings {
    PixelRect place;
    std::string text;
    uint32_t textColour = 0, groundColour = 0xffffff, frameColour = 0;
    int32_t fontSize = 9;
};

/// A popup menu while it is open.
class PopupMenu {
  public:
    virtual ~PopupMenu() = default;
};

struct PopupMenuSettings {
    int32_t x = 0, y = 0;  ///< top left in pixels of the window; moved to stay on the screen
    std::vector<std::string> entries;
    int32_t current = -1;
    int32_t entriesPerColumn = 0;  ///< 0: one column
};

enum class FileDialogKind { Load, Save };

struct FileDialogSettings {
    FileDialogKind kind = FileDialogKind::Load;
    std::string title;
    std::string folder;       ///< where it starts
    std::string defaultName;  ///< of a file to save
    std::string typeName;     ///< "Vantor Preset"
    std::string extension;    ///< without the dot; given to a saved name that has none
};

/// A modal dialog while it is open; destroying it ends it without an answer.
class Dialog {
  public:
    virtual ~Dialog() = default;
};

/// The editor's window inside the host's. Nothing in here starts a thread, installs a
/// process-wide handler or ends the process; a lost connection or a vanished parent leaves a
/// window that does nothing.
class Window {
  public:
    /// A child of the host's window `parent` (its native handle; null makes a window of its own
    /// with a title), shown at once. Null if the display cannot be reached.
    static std::unique_ptr<Window> create(void* parent, int32_t width, int32_t height,
                                          const std::string& title, WindowListener& listener);
    virtual ~Window() = default;

    /// Handles everything that waits, then paints what was invalidated. False once the window is
    /// gone.
    virtual bool processEvents() = 0;
    /// Paints what was invalidated and nothing else.
    virtual void processPaints() = 0;
    /// Asks for a part to be painted again, later.
    virtual void invalidate(const PixelRect& part) = 0;
    /// Asks the system at this moment.
    virtual MouseState currentMouse() = 0;
    /// Gives the keyboard to the line edit that is open. Without one the host keeps it: no key that
    /// belongs to the host ends here.
    virtual void takeKeyboardFocus() = 0;

    /// Opens a line edit with its whole text selected. It takes the keyboard; `ended` gets the
    /// final text once, on Return, Escape (then the text it began with) or a click elsewhere, from
    /// within `processEvents`.
    virtual std::unique_ptr<LineEdit> openLineEdit(
        const LineEditSettings& settings, std::function<void(const std::string&)> ended) = 0;
    /// Opens a menu; `ended` gets the chosen entry or -1 once.
    virtual std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings& settings,
                                                     std::function<void(int32_t)> ended) = 0;
    /// Opens a file dialog: the desktop's own, else a built-in one. `ended` gets the chosen path,
    /// empty when cancelled, once.
    virtual std::unique_ptr<Dialog> openFileDialog(
        const FileDialogSettings& settings, std::function<void(const std::string&)> ended) = 0;
    /// Shows a message with one button.
    virtual std::unique_ptr<Dialog> openMessage(const std::string& title, const std::string& text,
                                                std::function<void()> ended) = 0;
    /// True if the user has asked to close a window of its own (one without a parent).
    virtual bool closeAsked() const = 0;
};

}  // namespace tessel8
