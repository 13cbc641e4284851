#include "Levels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tessel8::host {

void Levels::add(float sample) {
    if (!std::isfinite(sample)) {
        ++nonFinite_;
        return;
    }
    const double value = sample;
    peak_ = std::max(peak_, std::abs(value));
    sumOfSquares_ += value * value;
    ++finite_;
}

void Levels::add(const float* left, const float* right, size_t frames) {
    for (size_t i = 0; i < frames; ++i) {
        add(left[i]);
        add(right[i]);
    }
}

double Levels::peakDb() const {
    return 20 * std::log10(peak_);
}

double Levels::rmsDb() const {
    return finite_ == 0 ? -INFINITY : 10 * std::log10(sumOfSquares_ / double(finite_));
}

std::string decibelText(double decibels) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f dBFS", decibels);
    return text.data();
}

}  // namespace tessel8::host
