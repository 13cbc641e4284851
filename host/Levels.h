#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tessel8::host {

/// Peak and mean level of what it is shown, both channels as one. Samples that are not finite
/// are counted apart: one of them would swallow every other figure.
class Levels {
  public:
    void add(const float* left, const float* right, size_t frames);

    /// Relative to full scale 1.0; minus infinity for silence.
    double peakDb() const;
    double rmsDb() const;
    uint64_t nonFinite() const { return nonFinite_; }

  private:
    void add(float sample);

    double peak_ = 0;
    double sumOfSquares_ = 0;
    uint64_t finite_ = 0;
    uint64_t nonFinite_ = 0;
};

/// "-6.0 dBFS", or "-inf dBFS".
std::string decibelText(double decibels);

}  // namespace tessel8::host
