#pragma once

#include "reference/ScalarBiquad.h"

namespace tessel8::reference {

/// What one tap does to its read: fade, gain, width, balance, saturator, filter, saturator, gate,
/// limit and split.
struct ScalarTap {
    float fade = 1.0f;
    float gain = 0.0f, panL = 0.0f, panR = 0.0f;  ///< smoothed linear gains
    float freq = 0.5f;                            ///< smoothed filter frequency, Hz
    float fltGain = 0.0f, fltRoot = 0.0f;         ///< smoothed filter gain and its root
    ScalarBiquad biquadL, biquadR;
    float readL = 0.0f, readR = 0.0f;      ///< read after the fade
    float preFbL = 0.0f, preFbR = 0.0f;    ///< feedback of the raw read
    float postFbL = 0.0f, postFbR = 0.0f;  ///< feedback of the direct output
    float directL = 0.0f, directR = 0.0f;  ///< to the tap sum
    float sendL = 0.0f, sendR = 0.0f;      ///< to the reverb

    /// One sample. `fades`: the fade acts and grows by `fadeStep`. `gatesOutput`: the tap's
    /// switch acts on its output. `followerOut` and `lfoOut` modulate the filter.
    void run(const Engine& e, size_t t, float lineL, float lineR, bool fades, float fadeStep,
             bool gatesOutput, float followerOut, float lfoOut);

  private:
    void place(const Engine& e, size_t t, float& left, float& right);
    float process(const Engine& e, size_t t, const Coefficients& c, ScalarBiquad& biquad,
                  float x) const;
};

/// The filter frequency of a sample: modulated, smoothed, within 20 Hz to 20 kHz.
float nextFrequency(const Engine& e, float freq, float base, float efAmount, float followerOut,
                    float lfoAmount, float lfoOut);

}  // namespace tessel8::reference
