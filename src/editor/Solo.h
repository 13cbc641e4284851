#pragma once

#include <array>

#include "engine/Blocks.h"

namespace tessel8 {

/// One tap alone, by a right click on its switch, and back.
struct Solo {
    bool active = false;
    std::array<float, kTaps> saved{};  ///< switches of all taps from before
};

}  // namespace tessel8
