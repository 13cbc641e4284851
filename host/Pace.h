#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace tessel8::host {

/// Lets a loop turn at a steady rate; a turn that comes late is not made up for.
class Pace {
  public:
    using Clock = std::chrono::steady_clock;

    explicit Pace(Clock::duration period) : period_(period) {}

    /// Sleeps until the next turn is due.
    void wait() {
        due_ = std::max(due_, Clock::now() - period_) + period_;
        std::this_thread::sleep_until(due_);
    }

  private:
    Clock::duration period_;
    Clock::time_point due_ = Clock::now();
};

}  // namespace tessel8::host
