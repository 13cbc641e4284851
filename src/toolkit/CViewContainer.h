#pragma once

#include <vector>

#include "toolkit/CView.h"

namespace tessel8 {

/// A list of views in drawing order: later ones lie on top. A container's views have coordinates
/// of the frame as well.
class CViewContainer : public CView {
  public:
    using CView::CView;
    ~CViewContainer() override;
    bool isTypeOf(std::string_view name) const override;

    /// Puts a view on top and counts on it. False, and nothing else, for null or a view that
    /// already stands somewhere.
    virtual bool addView(CView* view);
    /// Takes a view off and gives up the list's reference, and with `withForget` one further that
    /// the caller held. True if it was there.
    virtual bool removeView(CView* view, bool withForget = true);
    virtual void removeAll(bool withForget = true);
    int32_t getNbViews() const { return int32_t(views.size()); }
    /// The view at a place of the drawing order, null beyond the last.
    CView* getView(int32_t index) const;
    /// The topmost visible view at a point, null if there is none; `deep` looks into containers.
    virtual CView* getViewAt(const CPoint& where, bool deep = false) const;
    /// Asks for a repaint of every visible view that is dirty.
    virtual void invalidateDirtyViews();

    void drawRect(CDrawContext& context, const CRect& updated) override;
    void attached(CViewContainer* newParent) override;
    void removed() override;

  protected:
    /// A view is about to leave the list.
    virtual void onViewRemoved(CView* /*view*/) {}

    std::vector<Shared<CView>> views;
};

}  // namespace tessel8
