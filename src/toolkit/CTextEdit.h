#pragma once

#include <string>

#include "toolkit/CParamDisplay.h"

namespace tessel8 {

/// A field whose text a click opens for editing.
class CTextEdit : public CParamDisplay {
  public:
    /// `initialText` is UTF-8, as are all texts here.
    CTextEdit(const CRect& rect, CControlListener* hearer, int32_t identity,
              std::string initialText, CBitmap* bitmap = nullptr, int32_t displayStyle = 0);
    bool isTypeOf(std::string_view name) const override;

    void setText(const std::string& newText);
    const std::string& getText() const { return text; }

    void draw(CDrawContext& context) override;
    /// A left click opens a line edit over the field, which has the focus until the edit ends;
    /// then the listener hears of it.
    MouseResult onMouseDown(const CPoint& where, uint32_t buttons) override;

  private:
    void endEditing(const std::string& newText);

    std::string text;
};

}  // namespace tessel8
