#include "toolkit/CView.h"

#include "toolkit/CFrame.h"

namespace tessel8 {

CView::CView(const CView& other)
    : CBaseObject(other),
      size(other.size),
      background(other.background),
      mouseEnabled(other.mouseEnabled),
      visible(other.visible) {}

bool CView::isTypeOf(std::string_view name) const {
    return name == "CView" || CBaseObject::isTypeOf(name);
}

void CView::draw(CDrawContext& context) {
    setDirty(false);
    if (background) {
        background->draw(context, size);
    }
}

void CView::drawRect(CDrawContext& context, const CRect& /*updated*/) {
    draw(context);
}

void CView::invalidRect(const CRect& rect) {
    if (parentView) {
        parentView->invalidRect(rect);
    }
}

void CView::invalid() {
    setDirty(false);
    invalidRect(size);
}

MouseResult CView::onMouseDown(const CPoint& /*where*/, uint32_t /*buttons*/) {
    return MouseResult::NotImplemented;
}

MouseResult CView::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    return MouseResult::NotImplemented;
}

MouseResult CView::onMouseMoved(const CPoint& /*where*/, uint32_t /*buttons*/) {
    return MouseResult::NotImplemented;
}

MouseResult CView::onMouseEntered(const CPoint& /*where*/, uint32_t /*buttons*/) {
    return MouseResult::NotImplemented;
}

MouseResult CView::onMouseExited(const CPoint& /*where*/, uint32_t /*buttons*/) {
    return MouseResult::NotImplemented;
}

bool CView::onWheel(const CPoint& /*where*/, float /*distance*/, uint32_t /*buttons*/) {
    return false;
}

bool CView::onKeyDown(const VstKeyCode& /*key*/) {
    return false;
}

bool CView::onKeyUp(const VstKeyCode& /*key*/) {
    return false;
}

void CView::attached(CViewContainer* newParent) {
    parentView = newParent;
    parentFrame = newParent->getFrame();
}

void CView::removed() {
    parentView = nullptr;
    parentFrame = nullptr;
}

void CView::setBackground(CBitmap* bitmap) {
    background = Shared<CBitmap>(bitmap);
    setDirty();
}

}  // namespace tessel8
