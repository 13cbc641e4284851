#pragma once

#include <array>
#include <string_view>

#include "toolkit/CControl.h"
#include "toolkit/COffscreenContext.h"

namespace tessel8 {

/// A line of 35 narrow characters from a sheet of images.
class CSmallText_2 : public CControl {
  public:
    /// The sheet holds one glyph a row, by its code.
    CSmallText_2(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* glyphs);
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override { return new CSmallText_2(*this); }

    /// What is missing becomes spaces, what is too much is dropped.
    void setText(std::string_view text);
    void setGlyphSheet(CBitmap* sheet);

    void draw(CDrawContext& context) override;

  private:
    static constexpr size_t kCells = 35;

    Shared<COffscreenContext> offscreen;  ///< from the first draw on
    Shared<CBitmap> glyphSheet;
    std::array<char, kCells> shown{};
};

}  // namespace tessel8
