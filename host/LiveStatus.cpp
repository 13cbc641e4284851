#include "LiveStatus.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace tessel8::host {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{500};
constexpr size_t kMostCharacters = 128;

std::string xrunsText(int count) {
    return std::to_string(count) + (count == 1 ? " xrun" : " xruns");
}

}  // namespace

void LiveStatus::update() {
    const Clock::time_point now = Clock::now();
    if (now < nextLook_) {
        return;
    }
    nextLook_ = now + kBetweenLooks;
    measure();
    const StreamFormat format = client_.format();
    std::array<char, kMostCharacters> text{};
    std::snprintf(text.data(), text.size(), "%d Hz, blocks of %d frames, DSP load %.1f %%, %s",
                  format.sampleRate, format.blockFrames, load_, xrunsText(client_.xruns()).c_str());
    line_.draw(text.data());
}

void LiveStatus::printSummary() {
    wipe();
    measure();
    const StreamFormat format = client_.format();
    const std::chrono::duration<double> time = Clock::now() - start_;
    std::printf("%.1f s at %d Hz in blocks of %d frames, DSP load %.1f %% (at most %.1f %%), %s\n",
                time.count(), format.sampleRate, format.blockFrames, loadSum_ / looks_,
                highestLoad_, xrunsText(client_.xruns()).c_str());
}

void LiveStatus::measure() {
    load_ = client_.load();
    highestLoad_ = std::max(highestLoad_, load_);
    loadSum_ += load_;
    ++looks_;
}

}  // namespace tessel8::host
