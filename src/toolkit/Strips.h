#pragma once

#include <algorithm>
#include <cstdint>

#include "toolkit/Geometry.h"

namespace tessel8 {

// Bitmaps that hold several images one above the other. Each function gives the place of one
// image's top left in the bitmap.

/// The image of a whole number.
inline CPoint stripImage(int32_t image, double imageHeight) {
    return {0.0, image * imageHeight};
}

/// The last image that a value of 0 to 1 has reached; 1 alone reaches the last of all.
inline CPoint reachedImage(float value, int32_t images, int32_t imageHeight) {
    const int32_t y = int32_t(std::clamp(value, 0.0f, 1.0f) * float(imageHeight * (images - 1)));
    return stripImage(imageHeight > 0 ? y / imageHeight : 0, imageHeight);
}

/// The image nearest to a value of 0 to 1.
inline CPoint nearestImage(float value, int32_t images, double imageHeight) {
    return stripImage(int32_t(std::clamp(value, 0.0f, 1.0f) * float(images - 1) + 0.5f),
                      imageHeight);
}

}  // namespace tessel8
