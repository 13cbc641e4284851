#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace tessel8::host {

namespace {

constexpr int kBarCharacters = 40;
constexpr std::chrono::milliseconds kBetweenDraws{50};
constexpr const char* kWipeLine = "\r\033[K";

}  // namespace

Progress::Progress(int64_t totalFrames, int sampleRate)
    : totalFrames_(totalFrames),
      sampleRate_(sampleRate),
      onTerminal_(isatty(STDERR_FILENO) != 0),
      nextDraw_(Clock::now()) {}

Progress::~Progress() {
    if (drawn_) {
        std::fputs(kWipeLine, stderr);
    }
}

void Progress::show(int64_t doneFrames) {
    if (!onTerminal_) {
        return;
    }
    const Clock::time_point now = Clock::now();
    if (now < nextDraw_) {
        return;
    }
    nextDraw_ = now + kBetweenDraws;
    drawn_ = true;
    if (doneFrames >= totalFrames_) {
        std::fprintf(stderr, "%s%.1f s", kWipeLine, double(doneFrames) / sampleRate_);
        return;
    }
    const double part = double(doneFrames) / double(totalFrames_);
    const std::string bar(size_t(part * kBarCharacters), '=');
    std::fprintf(stderr, "%s[%-*s] %3d %%", kWipeLine, kBarCharacters, bar.c_str(),
                 int(part * 100));
}

}  // namespace tessel8::host
