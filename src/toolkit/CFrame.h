#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Window.h"
#include "toolkit/CViewContainer.h"
#include "toolkit/NativePieces.h"
#include "toolkit/TickClock.h"
#include "toolkit/VSTGUIEditorInterface.h"

namespace tessel8 {

class CVSTGUITimer;

/// The root of the views: stands in a window of the platform, brings its events to the views and
/// paints what they ask for. It gets its time from `idle` alone.
class CFrame : public CViewContainer, protected WindowListener {
  public:
    /// Makes the window that the frame stands in; null if there can be none.
    using WindowMaker = std::function<std::unique_ptr<Window>(WindowListener&)>;

    CFrame(const CRect& rect, const WindowMaker& makeWindow, VSTGUIEditorInterface* guiEditor,
           TickClock& tickClock = TickClock::system());
    /// Stands in the host's window `parent`; null makes a window of its own with a title.
    CFrame(const CRect& rect, void* parent, VSTGUIEditorInterface* guiEditor,
           const std::string& title = {})
        : CFrame(
              rect,
              [&](WindowListener& listener) {
                  const PixelRect pixels = rect.toPixels();
                  return Window::create(parent, pixels.width(), pixels.height(), title, listener);
              },
              guiEditor) {}
    ~CFrame() override;
    bool isTypeOf(std::string_view name) const override;

    /// False if no window could be made, and after `close`: the frame then does nothing.
    bool isOpen() const { return window != nullptr && !closed; }
    /// Takes all views off and ends the window. Whoever made the frame then lets go of it.
    void close();

    /// Asks for a repaint of what is dirty, fires timers, and lets the window handle its events
    /// unless one is being handled already.
    void idle();
    /// Lets the window paint what was asked for, at once.
    void processPaints();
    void doIdleStuff();

    int32_t getKnobMode() const;
    virtual void beginEdit(int32_t index);
    virtual void endEdit(int32_t index);

    /// The pointer, in pixels of the frame.
    CPoint getCurrentMouseLocation() const;
    /// What is held: while a mouse event is handled, that event's word, so that a release still
    /// holds its button; at other times what the window says. A double click is no state of the
    /// buttons and not in the word.
    uint32_t getCurrentMouseButtons() const;

    /// The view that keys go to.
    void setFocusView(CView* view) { focusView = Shared<CView>(view); }
    CView* getFocusView() const { return focusView.get(); }

    bool addView(CView* view) override;
    void invalidRect(const CRect& rect) override;
    bool onWheel(const CPoint& where, float distance, uint32_t buttons) override;
    bool onKeyDown(const VstKeyCode& key) override;
    bool onKeyUp(const VstKeyCode& key) override;

    /// The window's native pieces; `ended` hears of each once, while the frame is open.
    void openLineEdit(const LineEditSettings& settings,
                      std::function<void(const std::string&)> ended);
    void openPopupMenu(const PopupMenuSettings& settings, std::function<void(int32_t)> ended);
    void openFileDialog(const FileDialogSettings& settings,
                        std::function<void(const std::string&)> ended);
    void showMessage(const std::string& title, const std::string& text,
                     std::function<void()> ended = {});

  protected:
    // WindowListener
    void paint(const Surface& surface, const PixelRect& damaged) override;
    void mouseDown(const MouseState& mouse) override;
    void mouseMoved(const MouseState& mouse) override;
    void mouseUp(const MouseState& mouse) override;
    void mouseLeft() override;
    void wheel(const MouseState& mouse, float distance) override;

    void onViewRemoved(CView* view) override;

    Window* getWindow() const { return isOpen() ? window.get() : nullptr; }

  private:
    friend class CVSTGUITimer;
    class InEvent;

    void endWindow();
    void fireTimers();
    void hover(const MouseState& mouse, CView* view);
    MouseState currentMouse() const;

    VSTGUIEditorInterface* editor;
    TickClock& clock;
    std::unique_ptr<Window> window;
    NativePieces pieces;
    std::vector<CVSTGUITimer*> timers;  ///< those that run
    Shared<CView> mouseDownView, mouseOverView, focusView;
    const MouseState* handledMouse = nullptr;  ///< of the event that is being handled
    int32_t windowCalls = 0;                   ///< how deep we stand in calls of the window
    bool inEvents = false;
    bool closed = false;
};

}  // namespace tessel8
