#include "resources/paint/BmpWriter.h"

#include <algorithm>
#include <map>
#include <optional>

#include "resources/paint/Quantise.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kHeads = 14 + 40;        // file head and info head
constexpr int32_t kPixelsPerMetre = 3780;  // 96 per inch

void put16(std::vector<uint8_t>& bytes, uint32_t value) {
    bytes.push_back(uint8_t(value));
    bytes.push_back(uint8_t(value >> 8));
}

void put32(std::vector<uint8_t>& bytes, uint32_t value) {
    put16(bytes, value);
    put16(bytes, value >> 16);
}

void putHeads(std::vector<uint8_t>& bytes, const Picture& picture, uint32_t bits, uint32_t colours,
              uint32_t rowBytes) {
    const uint32_t offset = kHeads + 4 * colours;
    const uint32_t dataBytes = rowBytes * uint32_t(picture.height);
    put16(bytes, 0x4D42);  // "BM"
    put32(bytes, offset + dataBytes);
    put32(bytes, 0);
    put32(bytes, offset);
    put32(bytes, 40);
    put32(bytes, uint32_t(picture.width));
    put32(bytes, uint32_t(picture.height));
    put16(bytes, 1);
    put16(bytes, bits);
    put32(bytes, 0);  // uncompressed
    put32(bytes, dataBytes);
    put32(bytes, kPixelsPerMetre);
    put32(bytes, kPixelsPerMetre);
    put32(bytes, colours);
    put32(bytes, 0);
}

}  // namespace

std::vector<uint8_t> bitmapFileOf(const Picture& picture) {
    const std::optional<Palette> palette = paletteOf(picture);
    const uint32_t pixelBytes = palette ? 1 : 3;
    const uint32_t rowBytes = (uint32_t(picture.width) * pixelBytes + 3) / 4 * 4;
    std::vector<uint8_t> bytes;
    bytes.reserve(kHeads + 1024 + size_t(rowBytes) * picture.height);
    putHeads(bytes, picture, 8 * pixelBytes, palette ? uint32_t(palette->colours.size()) : 0,
             rowBytes);
    if (palette) {
        for (const uint32_t colour : palette->colours) {
            put32(bytes, colour);
        }
    }
    for (int32_t y = picture.height - 1; y >= 0; --y) {
        const size_t rowStart = bytes.size();
        for (int32_t x = 0; x < picture.width; ++x) {
            const uint32_t pixel = picture.at(x, y);
            if (palette) {
                bytes.push_back(palette->indexOf.at(pixel));
            } else {
                bytes.push_back(uint8_t(pixel));
                bytes.push_back(uint8_t(pixel >> 8));
                bytes.push_back(uint8_t(pixel >> 16));
            }
        }
        bytes.resize(rowStart + rowBytes);
    }
    return bytes;
}

}  // namespace tessel8::paint
