#pragma once

#include <cstdint>

namespace tessel8 {

/// The state of mouse buttons and modifier keys in one word, as all mouse calls carry it.
namespace mouse {
constexpr uint32_t kLeft = 2;
constexpr uint32_t kMiddle = 4;
constexpr uint32_t kRight = 8;
constexpr uint32_t kShift = 16;
constexpr uint32_t kControl = 32;
constexpr uint32_t kAlt = 64;
constexpr uint32_t kDoubleClick = 0x400;
constexpr uint32_t kModifiers = kShift | kControl | kAlt;
}  // namespace mouse

/// Where the pointer is, in pixels of the window, and what is held.
struct MouseState {
    int32_t x = 0, y = 0;
    uint32_t buttons = 0;
};

}  // namespace tessel8
