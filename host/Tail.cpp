#include "Tail.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Numbers.h"

namespace tessel8::host {

namespace {

constexpr Range kSeconds{0, 3600};
constexpr double kMostSeconds = 60;         // of a tail until silence
constexpr double kSilenceSeconds = 1;       // below the limit for so long is the end
constexpr double kLongestGapSeconds = 9;    // eight seconds are the longest delay; one to spare
constexpr float kSilence = 3.16227766e-5F;  // -90 dBFS

int64_t framesOf(double seconds, int sampleRate) {
    return std::llround(seconds * sampleRate);
}

/// The wrong way round on purpose: what is not a number counts as a sound.
bool isQuiet(float sample) {
    return std::abs(sample) < kSilence;
}

}  // namespace

TailLength parseTail(std::string_view text) {
    if (text == "silent") {
        return {};
    }
    return {false, parseNumber(text, kSeconds, "--tail (seconds, or the word silent)")};
}

int64_t longestTail(TailLength length, int sampleRate) {
    return framesOf(length.untilSilent ? kMostSeconds : length.seconds, sampleRate);
}

Tail::Tail(TailLength length, int sampleRate, Emit emit)
    : untilSilent_(length.untilSilent),
      remaining_(size_t(longestTail(length, sampleRate))),
      keptSilence_(size_t(framesOf(kSilenceSeconds, sampleRate))),
      longestGap_(size_t(framesOf(kLongestGapSeconds, sampleRate))),
      emit_(std::move(emit)) {}

size_t Tail::take(size_t room) {
    if (quietLeft_.size() >= longestGap_) {
        remaining_ = 0;
    }
    const size_t frames = std::min(room, remaining_);
    remaining_ -= frames;
    return frames;
}

void Tail::add(const float* left, const float* right, size_t frames) {
    if (!untilSilent_) {
        emit_(left, right, frames);
        return;
    }
    size_t sounding = frames;  // frames up to and with the last sound
    while (sounding > 0 && isQuiet(left[sounding - 1]) && isQuiet(right[sounding - 1])) {
        --sounding;
    }
    if (sounding > 0) {
        release(quietLeft_.size());
        emit_(left, right, sounding);
    }
    quietLeft_.insert(quietLeft_.end(), left + sounding, left + frames);
    quietRight_.insert(quietRight_.end(), right + sounding, right + frames);
}

void Tail::finish() {
    release(std::min(quietLeft_.size(), keptSilence_));
}

void Tail::release(size_t frames) {
    emit_(quietLeft_.data(), quietRight_.data(), frames);
    quietLeft_.clear();
    quietRight_.clear();
}

}  // namespace tessel8::host
