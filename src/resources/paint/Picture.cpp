#include "resources/paint/Picture.h"

#include <algorithm>

namespace tessel8::paint {

Picture Picture::crop(const Box& box) const {
    Picture part(box.width(), box.height());
    for (int32_t y = std::max(0, box.top); y < std::min(height, box.bottom); ++y) {
        for (int32_t x = std::max(0, box.left); x < std::min(width, box.right); ++x) {
            part.at(x - box.left, y - box.top) = at(x, y);
        }
    }
    return part;
}

void Picture::put(const Picture& other, int32_t left, int32_t top) {
    for (int32_t y = std::max(0, -top); y < std::min(other.height, height - top); ++y) {
        for (int32_t x = std::max(0, -left); x < std::min(other.width, width - left); ++x) {
            at(left + x, top + y) = other.at(x, y);
        }
    }
}

}  // namespace tessel8::paint
