#include "reference/ScalarFeedbackFilter.h"

#include "engine/Tables.h"
#include "reference/ScalarMath.h"

namespace tessel8::reference {

void ScalarFeedbackFilter::run(const Engine& e, float& left, float& right) {
    const FbFilterType type = e.fbFltType;
    if (type == FbFilterType::SvfLow || type == FbFilterType::SvfBand ||
        type == FbFilterType::SvfHigh) {
        const float f = lookUp(e.svfTable, freq * kFrequencyScale);
        const float m = smaller(2.0f / f - f / 2.0f, 2.0f);
        const float q = (m * e.fbReso) * (m / 4.0f);
        left = svfL.run(left, f, q, type);
        right = svfR.run(right, f, q, type);
        return;
    }
    const float W = lookUp(e.tanTable, freq * kFrequencyScale);
    const float Q = e.fbReso;
    const Coefficients c = type == FbFilterType::BiquadLow    ? lowPass(W, Q)
                           : type == FbFilterType::BiquadBand ? bandPass(W, Q, 1.0f)
                                                              : highPass(W, Q);
    left = biquadL.run(c, left);
    right = biquadR.run(c, right);
}

}  // namespace tessel8::reference
