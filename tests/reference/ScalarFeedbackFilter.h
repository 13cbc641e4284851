#pragma once

#include <cmath>

#include "reference/ScalarBiquad.h"

namespace tessel8::reference {

/// The state-variable filter of one channel, five passes a sample.
struct ScalarStateVariable {
    float low = 0.0f, high = 0.0f, band = 0.0f;

    /// `f` from the tuning table, `q` the damping of this sample.
    float run(float x, float f, float q, FbFilterType output) {
        float sum = 0.0f;
        for (int pass = 1; pass <= 5; ++pass) {
            const float in = x - q * band;
            low = low + f * band;
            high = in - low;
            if (pass < 5) {
                band = f * high - band * band * band / 6.0f + band;
            }
            const float out = output == FbFilterType::SvfLow    ? low
                              : output == FbFilterType::SvfBand ? band
                                                                : high;
            sum = pass == 1 ? out : (sum + out) / 2.0f;
        }
        if (!(std::fabs(band) + std::fabs(low) < 1e9f)) {
            band = low = sum = 0.0f;  // out of all bounds: start again
        }
        return sum;
    }
};

/// The filter of the master feedback.
struct ScalarFeedbackFilter {
    float freq = 0.0f;  ///< smoothed frequency in use, Hz
    ScalarBiquad biquadL, biquadR;
    ScalarStateVariable svfL, svfR;

    void clearBiquad() { biquadL = biquadR = {}; }
    void clear() {
        clearBiquad();
        svfL = svfR = {};
    }

    /// Filters one sample of both channels in place.
    void run(const Engine& e, float& left, float& right);
};

}  // namespace tessel8::reference
