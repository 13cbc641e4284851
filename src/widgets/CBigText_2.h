#pragma once

#include <array>
#include <string_view>

#include "toolkit/CControl.h"
#include "toolkit/COffscreenContext.h"

namespace tessel8 {

/// A line of twelve wide characters from a sheet of images. A dot, colon or three dots stand as a
/// narrow mark behind a character and cost no cell.
class CBigText_2 : public CControl {
  public:
    /// The sheets hold one image a row: the glyphs by their code, the marks by code less one.
    CBigText_2(const CRect& rect, CControlListener* hearer, int32_t identity, CBitmap* ground,
               CBitmap* glyphs, CBitmap* marks);
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override { return new CBigText_2(*this); }

    /// Packs ".", ":" and ";" behind the character before each; what has no cell is dropped.
    void setText(std::string_view text);
    /// Takes a text laid out in pairs: characters at even places, marks at odd ones, where every
    /// character that is no mark shows nothing.
    void setRawText(std::string_view text);
    void setGlyphSheet(CBitmap* sheet);
    void setMarkSheet(CBitmap* sheet);

    void draw(CDrawContext& context) override;

  private:
    static constexpr size_t kTextBytes = 30;
    using Text = std::array<char, kTextBytes>;

    void show(const Text& text);

    Shared<COffscreenContext> offscreen;  ///< from the first draw on
    Shared<CBitmap> glyphSheet, markSheet;
    Text shown{};  ///< byte 2i is the character of cell i, byte 2i + 1 the mark behind it
};

}  // namespace tessel8
