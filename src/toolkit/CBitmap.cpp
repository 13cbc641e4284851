#include "toolkit/CBitmap.h"

#include <algorithm>

namespace tessel8 {

namespace {

constexpr size_t kFileHead = 14;  ///< bytes before the head that describes the picture
constexpr size_t kLeastHead = kFileHead + 40;
constexpr int32_t kMostPixels = 1 << 15;  ///< to a side; keeps all products below in range

/// A number of `bytes` bytes, the lowest first.
uint32_t numberAt(std::span<const uint8_t> file, size_t at, size_t bytes) {
    uint32_t number = 0;
    for (size_t i = 0; i < bytes; ++i) {
        number |= uint32_t(file[at + i]) << 8 * i;
    }
    return number;
}

}  // namespace

CBitmap::CBitmap(std::span<const uint8_t> file) {
    if (file.size() < kLeastHead || file[0] != 'B' || file[1] != 'M') {
        return;
    }
    const size_t start = numberAt(file, 10, 4);
    const size_t paletteAt = kFileHead + numberAt(file, 14, 4);
    const int32_t columns = int32_t(numberAt(file, 18, 4));
    const int32_t lines = int32_t(numberAt(file, 22, 4));
    const uint32_t bits = numberAt(file, 28, 2);
    const uint32_t compression = numberAt(file, 30, 4);
    if (columns <= 0 || columns > kMostPixels || lines <= 0 || lines > kMostPixels ||
        (bits != 8 && bits != 24) || compression != 0) {
        return;
    }
    const size_t bytesPerRow = (size_t(columns) * bits + 31) / 32 * 4;
    if (start > file.size() || bytesPerRow * lines > file.size() - start) {
        return;
    }
    for (size_t i = 0; bits == 8 && i < palette.size() && paletteAt + 4 * i + 4 <= start; ++i) {
        palette[i] = numberAt(file, paletteAt + 4 * i, 3);
    }
    rows = file.subspan(start, bytesPerRow * lines);
    rowBytes = bytesPerRow;
    bitsPerPixel = int32_t(bits);
    width = columns;
    height = lines;
}

void CBitmap::draw(CDrawContext& context, const CRect& rect, const CPoint& offset,
                   float alpha) const {
    const auto row = [this](int32_t y) { return rows.subspan((height - 1 - y) * rowBytes); };
    if (bitsPerPixel == 8) {
        context.drawPixels(rect, offset, width, height, alpha,
                           [&](int32_t x, int32_t y) { return palette[row(y)[x]]; });
    } else {
        context.drawPixels(rect, offset, width, height, alpha, [&](int32_t x, int32_t y) {
            return numberAt(row(y), 3 * size_t(x), 3);
        });
    }
}

}  // namespace tessel8
