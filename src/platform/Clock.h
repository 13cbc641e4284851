#pragma once

#include <cstdint>

namespace tessel8 {

/// Milliseconds since the library was loaded; wraps after 49 days, so differences are unsigned.
uint32_t millisecondTick();

/// Waits; for the panel's own thread only.
void sleepMilliseconds(uint32_t milliseconds);

}  // namespace tessel8
