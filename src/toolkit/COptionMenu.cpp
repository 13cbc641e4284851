#include "toolkit/COptionMenu.h"

#include <algorithm>

#include "toolkit/CFrame.h"

namespace tessel8 {

COptionMenu::COptionMenu(const CRect& rect, CControlListener* hearer, int32_t identity,
                         CBitmap* bitmap, int32_t displayStyle)
    : CParamDisplay(rect, hearer, identity, bitmap, displayStyle) {
    setMax(0.0f);
}

bool COptionMenu::isTypeOf(std::string_view name) const {
    return name == "COptionMenu" || CParamDisplay::isTypeOf(name);
}

void COptionMenu::addEntry(const std::string& title) {
    entries.push_back(title);
    setMax(float(entries.size() - 1));
}

const std::string* COptionMenu::getEntry(int32_t index) const {
    return index >= 0 && index < getNbEntries() ? &entries[size_t(index)] : nullptr;
}

void COptionMenu::setEntry(int32_t index, const std::string& title) {
    if (getEntry(index)) {
        entries[size_t(index)] = title;
        setDirty();
    }
}

void COptionMenu::draw(CDrawContext& context) {
    setDirty(false);
    const std::string* const title = getEntry(getCurrent());
    drawDisplay(context, title ? *title : std::string());
}

MouseResult COptionMenu::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & (mouse::kLeft | mouse::kRight)) || !getFrame()) {
        return MouseResult::NotHandled;
    }
    PopupMenuSettings settings;
    settings.x = toPixel(size.left);
    settings.y = toPixel(size.bottom);
    settings.entries = entries;
    settings.current = getCurrent();
    settings.entriesPerColumn = itemsPerColumn;
    getFrame()->setFocusView(this);
    getFrame()->openPopupMenu(
        settings, [self = Shared<COptionMenu>(this)](int32_t chosen) { self->endMenu(chosen); });
    return MouseResult::DownHandledOnly;
}

void COptionMenu::endMenu(int32_t chosen) {
    if (!getFrame()) {
        return;
    }
    if (getFrame()->getFocusView() == this) {
        getFrame()->setFocusView(nullptr);
    }
    if (getEntry(chosen)) {
        value = float(chosen);
        valueChanged();
        invalidIfDirty();
    }
}

}  // namespace tessel8
