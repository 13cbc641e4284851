#pragma once

#include <chrono>

#include "JackClient.h"
#include "StatusLine.h"

namespace tessel8::host {

/// What the user gets to see of a running effect: a line on the terminal that is renewed twice a
/// second, and a summary at the end.
class LiveStatus {
  public:
    /// Its time begins now. `client` must outlive this.
    explicit LiveStatus(const JackClient& client) : client_(client) {}

    /// To be called often.
    void update();

    /// Makes room for a message on stderr.
    void wipe() { line_.wipe(); }

    /// One line on stdout: time, format, DSP load on average and at most, xruns.
    void printSummary();

  private:
    using Clock = std::chrono::steady_clock;

    void measure();

    const JackClient& client_;
    StatusLine line_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point nextLook_ = start_;
    double load_ = 0;  // at the last look; all three in percent
    double highestLoad_ = 0;
    double loadSum_ = 0;
    int looks_ = 0;
};

}  // namespace tessel8::host
