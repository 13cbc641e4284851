#pragma once

#include <array>
#include <span>

#include "resources/Resources.h"
#include "toolkit/CBaseObject.h"
#include "toolkit/CDrawContext.h"
#include "toolkit/Geometry.h"

namespace tessel8 {

/// A picture that is drawn straight from the bytes of its file, which stay where they are.
class CBitmap : public CBaseObject {
  public:
    /// The picture of that number in the resources.
    explicit CBitmap(int32_t resource) : CBitmap(resources::bitmapFile(resource)) {}
    /// An uncompressed bitmap file of 8 bits a pixel with a palette, or 24, rows from the foot.
    /// Bytes that are no such file give a picture of size 0, which draws nothing.
    explicit CBitmap(std::span<const uint8_t> file);

    int32_t getWidth() const { return width; }
    int32_t getHeight() const { return height; }

    /// Copies the part that starts at `offset` and has the rectangle's size into the rectangle.
    void draw(CDrawContext& context, const CRect& rect, const CPoint& offset = {},
              float alpha = 1.0f) const;

  private:
    int32_t width = 0, height = 0;
    int32_t bitsPerPixel = 0;
    size_t rowBytes = 0;
    std::span<const uint8_t> rows;  ///< the lowest first
    std::array<uint32_t, 256> palette{};
};

}  // namespace tessel8
