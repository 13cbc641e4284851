#pragma once

#include <string>

#include "toolkit/CControl.h"

namespace tessel8 {

enum class HoriAlign { Left, Centre, Right };

// Bits of a display's style.
constexpr int32_t kNoTextStyle = 0x200;
constexpr int32_t kNoFrameStyle = 0x400;
/// Neither text nor frame: what shows is the bitmap or whatever lies below.
constexpr int32_t kBareStyle = 7680;

/// A text on a ground of one colour in a frame, or on a part of a bitmap.
class CParamDisplay : public CControl {
  public:
    CParamDisplay(const CRect& rect, CControlListener* hearer, int32_t identity,
                  CBitmap* bitmap = nullptr, int32_t displayStyle = 0);
    bool isTypeOf(std::string_view name) const override;

    /// Shows the value.
    void draw(CDrawContext& context) override;

    /// Nominal height in pixels of the baked font.
    void setFont(int32_t height) { fontSize = height; }
    void setFontColor(const CColor& colour) { fontColour = colour; }
    void setBackColor(const CColor& colour) { backColour = colour; }
    void setFrameColor(const CColor& colour) { frameColour = colour; }
    void setHoriAlign(HoriAlign alignment) { align = alignment; }
    void setStyle(int32_t displayStyle) { style = displayStyle; }

  protected:
    /// Draws ground, frame and a text (UTF-8) as the style allows.
    void drawDisplay(CDrawContext& context, const std::string& text) const;

    int32_t fontSize = 9;
    CColor fontColour{255, 255, 255}, backColour{0, 0, 0}, frameColour{0, 0, 0};

  private:
    HoriAlign align = HoriAlign::Centre;
    int32_t style;
};

}  // namespace tessel8
