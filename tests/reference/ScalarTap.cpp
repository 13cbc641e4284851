#include "reference/ScalarTap.h"

#include "engine/Tables.h"
#include "reference/ScalarMath.h"
#include "reference/ScalarSaturator.h"

namespace tessel8::reference {

float nextFrequency(const Engine& e, float freq, float base, float efAmount, float followerOut,
                    float lfoAmount, float lfoOut) {
    const float m = followerOut * efAmount + lfoAmount * lfoOut + 1.0f;
    const float target = base * lookUp(e.octaveTable, m * kOctaveScale);
    return held(smoothed(freq, target, e.smooth250), 20.0f, 20000.0f);
}

void ScalarTap::place(const Engine& e, size_t t, float& left, float& right) {
    const float l = left * gain;
    const float r = right * gain;
    left = (l * e.widthDirect[t] + r * e.widthCross[t]) * panL;
    right = (r * e.widthDirect[t] + l * e.widthCross[t]) * panR;
}

float ScalarTap::process(const Engine& e, size_t t, const Coefficients& c, ScalarBiquad& biquad,
                         float x) const {
    const float ceiling = e.tapCeiling[t];
    x = e.tapSaturatorPre[t] != 0.0f ? saturated(x, ceiling) : x;
    const float y = biquad.run(c, x);
    x = e.tapFilterOn[t] != 0.0f ? y : x;
    return e.tapSaturatorPost[t] != 0.0f ? saturated(x, ceiling) : x;
}

void ScalarTap::run(const Engine& e, size_t t, float lineL, float lineR, bool fades, float fadeStep,
                    bool gatesOutput, float followerOut, float lfoOut) {
    readL = lineL;
    readR = lineR;
    if (fades) {
        fade = smaller(fade + fadeStep, 1.0f);
        readL = lineL * fade;
        readR = lineR * fade;
    }
    freq = nextFrequency(e, freq, e.tapFreqBase[t], e.tapEfAmount[t], followerOut,
                         e.tapLfoAmount[t], lfoOut);
    gain = smoothed(gain, e.tapGainTarget[t], e.smooth30);
    panL = smoothed(panL, e.panGainTargetL[t], e.smooth30);
    panR = smoothed(panR, e.panGainTargetR[t], e.smooth30);
    fltGain = smoothed(fltGain, e.tapFltGainTarget[t], e.smooth30);
    fltRoot = smoothed(fltRoot, e.tapFltRootTarget[t], e.smooth30);

    float left = readL;
    float right = readR;
    place(e, t, left, right);
    const float W = lookUp(e.tanTable, freq * kFrequencyScale);
    const Coefficients c = tapFilter(e.tapFltKind[t], W, e.tapQ[t], fltGain, fltRoot);
    left = process(e, t, c, biquadL, left);
    right = process(e, t, c, biquadR, right);

    if (gatesOutput) {
        const float gate = e.tapGate[t];
        left = held(left * gate, -16.0f, 16.0f) * gate;
        right = held(right * gate, -16.0f, 16.0f) * gate;
    } else {
        left = held(left, -16.0f, 16.0f);
        right = held(right, -16.0f, 16.0f);
    }
    directL = left * e.revDirect[t];
    directR = right * e.revDirect[t];
    sendL = left * e.revSend[t];
    sendR = right * e.revSend[t];
    postFbL = directL * e.tapFbAmount[t];
    postFbR = directR * e.tapFbAmount[t];
}

}  // namespace tessel8::reference
