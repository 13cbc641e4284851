#pragma once

#include "platform/Surface.h"
#include "toolkit/CBaseObject.h"
#include "toolkit/Geometry.h"

namespace tessel8 {

enum class LineStyle { Solid };
/// Lines have hard edges in both modes: everything that the panel draws is one pixel wide.
enum class DrawMode { Aliased = 0, Antialiased = 1 };
enum class RectStyle { Stroked = 0, Filled = 1, FilledAndStroked = 2 };

/// Draws on a surface that somebody else owns, inside the clip rectangle only.
class CDrawContext : public CBaseObject {
  public:
    explicit CDrawContext(const Surface& target) : surface(target) { state.clip = target.bounds(); }

    void setFrameColor(const CColor& colour) { state.frameColour = colour; }
    void setFillColor(const CColor& colour) { state.fillColour = colour; }
    void setFontColor(const CColor& colour) { state.fontColour = colour; }
    const CColor& getFontColor() const { return state.fontColour; }
    /// In pixels; a wider line grows to the right and downwards.
    void setLineWidth(int32_t width) { state.lineWidth = width; }
    void setLineStyle(LineStyle style) { state.lineStyle = style; }
    void setDrawMode(DrawMode mode) { state.drawMode = mode; }
    /// Limits all drawing; never reaches beyond the surface.
    void setClipRect(const PixelRect& clip) { state.clip = clip.intersected(surface.bounds()); }
    const PixelRect& getClipRect() const { return state.clip; }
    /// Added to all coordinates of the following calls but not to the clip rectangle.
    void setOffset(const CPoint& offset) { state.offset = offset; }

    void moveTo(const CPoint& p) { state.pen = p; }
    /// A line from the pen to `p`. It stands one pixel higher than its coordinates, and both of
    /// its end pixels are drawn.
    void lineTo(const CPoint& p);
    /// Fills from left to right - 1 and from top to bottom - 1, and strokes the outermost pixels
    /// of the same area.
    void drawRect(const CRect& rect, RectStyle style);
    /// The shortest line that starts at `p`: two pixels side by side.
    void drawPoint(const CPoint& p, const CColor& colour);

    /// Copies the part of a picture that starts at `offset` into the rectangle. What lies outside
    /// the picture, of `width` by `height` pixels, draws nothing. `pixelAt(x, y)` gives a pixel.
    template <typename PixelAt>
    void drawPixels(const CRect& rect, const CPoint& offset, int32_t width, int32_t height,
                    float alpha, const PixelAt& pixelAt);

    /// For the text painter, which draws on surfaces itself.
    const Surface& getSurface() const { return surface; }
    PixelRect toSurface(const CRect& rect) const;

  protected:
    Surface surface;

  private:
    struct State {
        CColor frameColour, fillColour, fontColour;
        int32_t lineWidth = 1;
        LineStyle lineStyle = LineStyle::Solid;
        DrawMode drawMode = DrawMode::Aliased;
        PixelRect clip;
        CPoint offset, pen;
    };

    void fill(const PixelRect& area, const CColor& colour);
    static uint32_t blend(uint32_t below, uint32_t above, float alpha);

    State state;
};

template <typename PixelAt>
void CDrawContext::drawPixels(const CRect& rect, const CPoint& offset, int32_t width,
                              int32_t height, float alpha, const PixelAt& pixelAt) {
    const PixelRect target = toSurface(rect);
    const int32_t shiftX = target.left - toPixel(offset.x);
    const int32_t shiftY = target.top - toPixel(offset.y);
    const PixelRect drawn = target.intersected(state.clip)
                                .intersected({shiftX, shiftY, shiftX + width, shiftY + height});
    for (int32_t y = drawn.top; y < drawn.bottom; ++y) {
        uint32_t* const row = surface.row(y);
        for (int32_t x = drawn.left; x < drawn.right; ++x) {
            const uint32_t pixel = pixelAt(x - shiftX, y - shiftY);
            row[x] = alpha < 1.0f ? blend(row[x], pixel, alpha) : pixel;
        }
    }
}

}  // namespace tessel8
