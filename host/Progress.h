#pragma once

#include <chrono>
#include <cstdint>

namespace tessel8::host {

/// A bar on stderr if that is a terminal, drawn at most 20 times a second; the destructor wipes
/// it, so that whatever is printed next stands on a clean line.
class Progress {
  public:
    /// `totalFrames` as far as it is known beforehand; beyond them it shows the time in place of a
    /// bar.
    Progress(int64_t totalFrames, int sampleRate);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(int64_t doneFrames);

  private:
    using Clock = std::chrono::steady_clock;

    int64_t totalFrames_;
    int sampleRate_;
    bool onTerminal_;
    bool drawn_ = false;
    Clock::time_point nextDraw_;
};

}  // namespace tessel8::host
