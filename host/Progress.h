#pragma once

#include <chrono>
#include <cstdint>

#include "StatusLine.h"

namespace tessel8::host {

/// A bar on stderr if that is a terminal, drawn at most 20 times a second and wiped at the end.
class Progress {
  public:
    /// `totalFrames` as far as it is known beforehand; beyond them it shows the time in place of a
    /// bar.
    Progress(int64_t totalFrames, int sampleRate);

    void show(int64_t doneFrames);

  private:
    int64_t totalFrames_;
    int sampleRate_;
    StatusLine line_;
    std::chrono::steady_clock::time_point nextDraw_;
};

}  // namespace tessel8::host
