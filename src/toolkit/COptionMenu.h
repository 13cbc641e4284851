#pragma once

#include <string>
#include <vector>

#include "toolkit/CParamDisplay.h"

namespace tessel8 {

/// A list from which a click lets the user choose; the value is the index of the chosen entry.
class COptionMenu : public CParamDisplay {
  public:
    COptionMenu(const CRect& rect, CControlListener* hearer, int32_t identity,
                CBitmap* bitmap = nullptr, int32_t displayStyle = 0);
    bool isTypeOf(std::string_view name) const override;

    /// Titles are UTF-8.
    void addEntry(const std::string& title);
    /// Null beyond the last entry.
    const std::string* getEntry(int32_t index) const;
    /// Nothing happens beyond the last entry.
    void setEntry(int32_t index, const std::string& title);
    int32_t getNbEntries() const { return int32_t(entries.size()); }
    /// The selected entry; without a word to the listener.
    void setCurrent(int32_t index) { setValue(float(index)); }
    int32_t getCurrent() const { return int32_t(getValue() + 0.5f); }
    /// 0: one column.
    void setNbItemsPerColumn(int32_t count) { itemsPerColumn = count; }

    void draw(CDrawContext& context) override;
    /// The left or the right button opens the menu, which has the focus until it ends.
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

  private:
    void endMenu(int32_t chosen);

    std::vector<std::string> entries;
    int32_t itemsPerColumn = 0;
};

}  // namespace tessel8
