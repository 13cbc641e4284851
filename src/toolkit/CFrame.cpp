#include "toolkit/CFrame.h"

#include <utility>

#include "toolkit/CControl.h"
#include "toolkit/CVSTGUITimer.h"

namespace tessel8 {

namespace {

CPoint pointOf(const MouseState& mouse) {
    return {double(mouse.x), double(mouse.y)};
}

/// Whether a control's listener keeps a click with a modifier key for itself.
bool isTakenByListener(CView* view, uint32_t buttons) {
    auto* control = buttons & mouse::kModifiers ? dynamic_cast<CControl*>(view) : nullptr;
    CControlListener* listener = control ? control->getListener() : nullptr;
    return listener && listener->controlModifierClicked(control, buttons) != 0;
}

}  // namespace

/// Notes the mouse event that is being handled, for as long as it lasts.
class CFrame::InEvent {
  public:
    InEvent(CFrame& owner, const MouseState& state)
        : frame(owner), before(std::exchange(owner.handledMouse, &state)) {}
    InEvent(const InEvent&) = delete;
    InEvent& operator=(const InEvent&) = delete;
    ~InEvent() { frame.handledMouse = before; }

  private:
    CFrame& frame;
    const MouseState* before;
};

CFrame::CFrame(const CRect& rect, const WindowMaker& makeWindow, VSTGUIEditorInterface* guiEditor,
               TickClock& tickClock)
    : CViewContainer(rect), editor(guiEditor), clock(tickClock), window(makeWindow(*this)) {
    parentFrame = this;
    invalidRect(size);
}

CFrame::~CFrame() {
    for (CVSTGUITimer* timer : timers) {
        timer->frame = nullptr;
    }
}

bool CFrame::isTypeOf(std::string_view name) const {
    return name == "CFrame" || CViewContainer::isTypeOf(name);
}

void CFrame::close() {
    removeAll(false);
    closed = true;
    pieces.silence();
    if (windowCalls == 0) {  // else the window goes when it has returned to us
        endWindow();
    }
}

void CFrame::endWindow() {
    pieces.sweep();
    window.reset();
}

void CFrame::idle() {
    const Shared<CFrame> self(this);  // an event may close us
    invalidateDirtyViews();
    fireTimers();
    if (!isOpen() || inEvents) {
        return;
    }
    pieces.sweep();
    inEvents = true;
    ++windowCalls;
    window->processEvents();
    --windowCalls;
    inEvents = false;
    if (closed && windowCalls == 0) {
        endWindow();
    }
}

void CFrame::processPaints() {
    if (isOpen()) {
        ++windowCalls;
        window->processPaints();
        --windowCalls;
    }
}

void CFrame::doIdleStuff() {
    if (editor) {
        editor->doIdleStuff();
    }
}

void CFrame::fireTimers() {
    std::vector<Shared<CVSTGUITimer>> running;
    running.reserve(timers.size());
    for (CVSTGUITimer* timer : timers) {
        running.emplace_back(timer);
    }
    for (const auto& timer : running) {
        timer->fireIfDue();
    }
}

int32_t CFrame::getKnobMode() const {
    return editor ? editor->getKnobMode() : kCircularMode;
}

void CFrame::beginEdit(int32_t index) {
    if (editor) {
        editor->beginEdit(index);
    }
}

void CFrame::endEdit(int32_t index) {
    if (editor) {
        editor->endEdit(index);
    }
}

MouseState CFrame::currentMouse() const {
    if (handledMouse) {
        return *handledMouse;
    }
    return isOpen() ? window->currentMouse() : MouseState{};
}

CPoint CFrame::getCurrentMouseLocation() const {
    return pointOf(currentMouse());
}

uint32_t CFrame::getCurrentMouseButtons() const {
    return currentMouse().buttons & ~mouse::kDoubleClick;
}

bool CFrame::addView(CView* view) {
    return !closed && CViewContainer::addView(view);
}

void CFrame::invalidRect(const CRect& rect) {
    if (isOpen()) {
        window->invalidate(rect.toPixels());
    }
}

void CFrame::paint(const Surface& surface, const PixelRect& damaged) {
    const auto context = makeShared<CDrawContext>(surface);
    context->setClipRect(damaged);
    drawRect(*context, toRect(damaged));
}

void CFrame::mouseDown(const MouseState& mouse) {
    const InEvent event(*this, mouse);
    mouseDownView.reset();
    const std::vector<Shared<CView>> candidates(views);
    for (auto place = candidates.rbegin(); place != candidates.rend(); ++place) {
        CView* const view = place->get();
        if (!view->isVisible() || !view->getMouseEnabled() || !view->isAttached() ||
            !view->getViewSize().contains(pointOf(mouse))) {
            continue;
        }
        if (isTakenByListener(view, mouse.buttons)) {
            return;
        }
        const MouseResult result = view->onMouseDown(pointOf(mouse), mouse.buttons);
        if (result == MouseResult::Handled && view->isAttached()) {
            mouseDownView = *place;
        }
        if (result != MouseResult::NotImplemented) {
            return;
        }
    }
}

void CFrame::mouseMoved(const MouseState& mouse) {
    const InEvent event(*this, mouse);
    if (const Shared<CView> view = mouseDownView; view) {
        if (view->onMouseMoved(pointOf(mouse), mouse.buttons) != MouseResult::Handled) {
            mouseDownView.reset();
        }
        return;
    }
    const Shared<CView> view(getViewAt(pointOf(mouse)));
    hover(mouse, view.get());
    if (view) {
        view->onMouseMoved(pointOf(mouse), mouse.buttons & mouse::kModifiers);
    }
}

void CFrame::hover(const MouseState& mouse, CView* view) {
    if (view == mouseOverView.get()) {
        return;
    }
    const Shared<CView> left = std::exchange(mouseOverView, Shared<CView>(view));
    if (left) {
        left->onMouseExited(pointOf(mouse), mouse.buttons);
    }
    if (view) {
        view->onMouseEntered(pointOf(mouse), mouse.buttons);
    }
}

void CFrame::mouseUp(const MouseState& mouse) {
    const InEvent event(*this, mouse);
    if (const Shared<CView> view = std::exchange(mouseDownView, {}); view) {
        view->onMouseUp(pointOf(mouse), mouse.buttons);
    }
}

void CFrame::mouseLeft() {
    if (!mouseDownView) {
        hover(currentMouse(), nullptr);
    }
}

void CFrame::wheel(const MouseState& mouse, float distance) {
    const InEvent event(*this, mouse);
    onWheel(pointOf(mouse), distance, mouse.buttons);
}

bool CFrame::onWheel(const CPoint& where, float distance, uint32_t buttons) {
    const Shared<CView> view(mouseDownView ? nullptr : getViewAt(where));
    return view && view->onWheel(where, distance, buttons);
}

bool CFrame::onKeyDown(const VstKeyCode& key) {
    const Shared<CView> view = focusView;
    return view && view->onKeyDown(key);
}

bool CFrame::onKeyUp(const VstKeyCode& key) {
    const Shared<CView> view = focusView;
    return view && view->onKeyUp(key);
}

void CFrame::onViewRemoved(CView* view) {
    for (Shared<CView>* role : {&mouseDownView, &mouseOverView, &focusView}) {
        if (role->get() == view) {
            role->reset();
        }
    }
}

void CFrame::openLineEdit(const LineEditSettings& settings,
                          std::function<void(const std::string&)> ended) {
    if (isOpen()) {
        pieces.add(std::move(ended), [&](auto end) { return window->openLineEdit(settings, end); });
    }
}

void CFrame::openPopupMenu(const PopupMenuSettings& settings, std::function<void(int32_t)> ended) {
    if (isOpen()) {
        pieces.add(std::move(ended),
                   [&](auto end) { return window->openPopupMenu(settings, end); });
    }
}

void CFrame::openFileDialog(const FileDialogSettings& settings,
                            std::function<void(const std::string&)> ended) {
    if (isOpen()) {
        pieces.add(std::move(ended),
                   [&](auto end) { return window->openFileDialog(settings, end); });
    }
}

void CFrame::showMessage(const std::string& title, const std::string& text,
                         std::function<void()> ended) {
    if (isOpen()) {
        pieces.add(std::move(ended),
                   [&](auto end) { return window->openMessage(title, text, end); });
    }
}

}  // namespace tessel8
