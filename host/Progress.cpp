#include "Progress.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <string>

namespace tessel8::host {

namespace {

constexpr int kBarCharacters = 40;
constexpr std::chrono::milliseconds kBetweenDraws{50};
constexpr size_t kMostCharacters = 80;

}  // namespace

Progress::Progress(int64_t totalFrames, int sampleRate)
    : totalFrames_(totalFrames),
      sampleRate_(sampleRate),
      nextDraw_(std::chrono::steady_clock::now()) {}

void Progress::show(int64_t doneFrames) {
    const auto now = std::chrono::steady_clock::now();
    if (!line_.isOnTerminal() || now < nextDraw_) {
        return;
    }
    nextDraw_ = now + kBetweenDraws;
    std::array<char, kMostCharacters> text{};
    if (doneFrames >= totalFrames_) {
        std::snprintf(text.data(), text.size(), "%.1f s", double(doneFrames) / sampleRate_);
    } else {
        const double part = double(doneFrames) / double(totalFrames_);
        const std::string bar(size_t(part * kBarCharacters), '=');
        std::snprintf(text.data(), text.size(), "[%-*s] %3d %%", kBarCharacters, bar.c_str(),
                      int(part * 100));
    }
    line_.draw(text.data());
}

}  // namespace tessel8::host
