#pragma once

#include "platform/MouseWord.h"
#include "toolkit/CBaseObject.h"
#include "toolkit/CBitmap.h"
#include "toolkit/CDrawContext.h"
#include "toolkit/Geometry.h"
#include "toolkit/Relaxed.h"
#include "toolkit/Shared.h"
#include "vst/Vst24.h"

namespace tessel8 {

class CFrame;
class CViewContainer;

/// What a view answers to a mouse call.
enum class MouseResult {
    NotImplemented = 0,
    Handled = 1,
    NotHandled = 2,
    DownHandledOnly = 3,  ///< wants no moved and up events after this press
    MovedHandledOnly = 4  ///< wants no further moved events
};

/// A rectangle of the frame that draws itself and hears of the mouse over it. All points are in
/// pixels of the frame, all button words those of `mouse::`.
class CView : public CBaseObject {
  public:
    explicit CView(const CRect& rect) : size(rect) {}
    /// The copy stands on no frame.
    CView(const CView& other);
    bool isTypeOf(std::string_view name) const override;

    /// Paints the whole view; the context clips. The stock form draws the background.
    virtual void draw(CDrawContext& context);
    /// Paints what of the view lies in `updated`.
    virtual void drawRect(CDrawContext& context, const CRect& updated);
    /// Whether a repaint of that part touches the view.
    virtual bool checkUpdate(const CRect& updated) const { return size.overlaps(updated); }
    virtual bool isDirty() const { return dirty; }
    /// The frame's next idle pass repaints dirty views. May be called on any thread.
    virtual void setDirty(bool state = true) { dirty = state; }
    /// Asks for a repaint of a part, later.
    virtual void invalidRect(const CRect& rect);
    /// Asks for a repaint of the view, later; it is not dirty any more.
    virtual void invalid();

    virtual MouseResult onMouseDown(const CPoint& where, uint32_t buttons);
    virtual MouseResult onMouseUp(const CPoint& where, uint32_t buttons);
    virtual MouseResult onMouseMoved(const CPoint& where, uint32_t buttons);
    virtual MouseResult onMouseEntered(const CPoint& where, uint32_t buttons);
    virtual MouseResult onMouseExited(const CPoint& where, uint32_t buttons);
    /// One notch is 1, away from the user positive; true if used.
    virtual bool onWheel(const CPoint& where, float distance, uint32_t buttons);
    /// True if used.
    virtual bool onKeyDown(const VstKeyCode& key);
    virtual bool onKeyUp(const VstKeyCode& key);

    /// The view has come onto a frame that stands in a window, or has left it.
    virtual void attached(CViewContainer* newParent);
    virtual void removed();
    bool isAttached() const { return parentFrame != nullptr; }
    CViewContainer* getParentView() const { return parentView; }
    CFrame* getFrame() const { return parentFrame; }

    const CRect& getViewSize() const { return size; }
    bool isVisible() const { return visible; }
    void setVisible(bool state) { visible = state; }
    bool getMouseEnabled() const { return mouseEnabled; }
    void setMouseEnabled(bool state) { mouseEnabled = state; }
    CBitmap* getBackground() const { return background.get(); }
    void setBackground(CBitmap* bitmap);

  protected:
    CRect size;
    CViewContainer* parentView = nullptr;
    CFrame* parentFrame = nullptr;
    Shared<CBitmap> background;

  private:
    bool mouseEnabled = true;
    bool visible = true;
    Relaxed<bool> dirty = false;
};

}  // namespace tessel8
