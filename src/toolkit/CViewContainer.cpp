#include "toolkit/CViewContainer.h"

#include <algorithm>

namespace tessel8 {

CViewContainer::~CViewContainer() {
    for (const auto& view : views) {
        view->removed();
    }
}

bool CViewContainer::isTypeOf(std::string_view name) const {
    return name == "CViewContainer" || CView::isTypeOf(name);
}

bool CViewContainer::addView(CView* view) {
    if (!view || view->getParentView()) {
        return false;
    }
    views.emplace_back(view);
    if (isAttached()) {
        view->attached(this);
        view->setDirty();
    }
    return true;
}

bool CViewContainer::removeView(CView* view, bool withForget) {
    const auto place = std::find_if(views.begin(), views.end(),
                                    [&](const auto& entry) { return entry.get() == view; });
    if (place == views.end()) {
        return false;
    }
    const Shared<CView> taken = *place;
    taken->invalid();
    onViewRemoved(view);
    taken->removed();
    views.erase(place);
    if (withForget) {
        view->forget();
    }
    return true;
}

void CViewContainer::removeAll(bool withForget) {
    while (!views.empty()) {
        removeView(views.front().get(), withForget);
    }
}

CView* CViewContainer::getView(int32_t index) const {
    return index >= 0 && index < getNbViews() ? views[size_t(index)].get() : nullptr;
}

CView* CViewContainer::getViewAt(const CPoint& where, bool deep) const {
    for (auto view = views.rbegin(); view != views.rend(); ++view) {
        if ((*view)->isVisible() && (*view)->getViewSize().contains(where)) {
            auto* container = deep ? dynamic_cast<CViewContainer*>(view->get()) : nullptr;
            CView* inner = container ? container->getViewAt(where, deep) : nullptr;
            return inner ? inner : view->get();
        }
    }
    return nullptr;
}

void CViewContainer::invalidateDirtyViews() {
    for (const auto& view : views) {
        if (view->isDirty() && view->isVisible()) {
            view->invalid();
        }
    }
    if (isDirty()) {
        invalid();
    }
}

void CViewContainer::drawRect(CDrawContext& context, const CRect& updated) {
    const PixelRect clip = context.getClipRect();
    draw(context);
    for (const auto& view : views) {
        if (view->isVisible() && view->checkUpdate(updated)) {
            context.setClipRect(clip.intersected(view->getViewSize().toPixels()));
            view->drawRect(context, updated);
        }
    }
    context.setClipRect(clip);
}

void CViewContainer::attached(CViewContainer* newParent) {
    CView::attached(newParent);
    for (const auto& view : views) {
        view->attached(this);
    }
}

void CViewContainer::removed() {
    for (const auto& view : views) {
        view->removed();
    }
    CView::removed();
}

}  // namespace tessel8
