#pragma once

#include <cstdint>

namespace tessel8 {

/// Where the toolkit takes its time from.
class TickClock {
  public:
    virtual ~TickClock() = default;
    /// Milliseconds; wraps, so differences are unsigned.
    virtual uint32_t now() const = 0;
    virtual void sleep(uint32_t milliseconds) = 0;

    /// The clock of the machine.
    static TickClock& system();
};

}  // namespace tessel8
