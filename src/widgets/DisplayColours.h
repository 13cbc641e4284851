#pragma once

#include "toolkit/Geometry.h"

namespace tessel8 {

/// The panel's green display.
inline constexpr CColor kDisplayGround{62, 89, 78, 255};
inline constexpr CColor kDisplayLight{142, 205, 177, 255};

}  // namespace tessel8
