#include "reference/ScalarEngine.h"

#include <algorithm>
#include <cmath>

#include "reference/ScalarMath.h"
#include "reference/ScalarSaturator.h"

namespace tessel8::reference {

ScalarEngine::ScalarEngine(const Engine& engine) : controls(engine), writePos(engine.writePos) {
    lineL.fill(std::vector<float>(size_t(engine.ringLen), 0.0f));
    lineR = lineL;
    reverb.allocate(engine.reverb.nextRate);
    buildReverb();
}

void ScalarEngine::restartFade(int tap) {
    taps[size_t(tap)].fade = 0.0f;
    fadeHoldCount = 0;
}

void ScalarEngine::endFades() {
    for (ScalarTap& tap : taps) {
        tap.fade = 1.0f;
    }
}

void ScalarEngine::clearTapFilter(int tap) {
    taps[size_t(tap)].biquadL = taps[size_t(tap)].biquadR = {};
}

void ScalarEngine::snapTapFilterGain(int tap) {
    taps[size_t(tap)].fltGain = controls.tapFltGainTarget[size_t(tap)];
    taps[size_t(tap)].fltRoot = controls.tapFltRootTarget[size_t(tap)];
}

void ScalarEngine::clearFeedback() {
    for (ScalarTap& tap : taps) {
        tap.preFbL = tap.preFbR = tap.postFbL = tap.postFbR = 0.0f;
    }
    fbFilter.clear();
}

void ScalarEngine::setLfoPhase(float radians) {
    lfo.phase = radians;
    respreadLfo();
}

void ScalarEngine::buildReverb() {
    reverb.build(controls.reverb.nextPlate != 0, controls.reverb.nextRate);
}

void ScalarEngine::resetState() {
    clearFeedback();
    for (ScalarTap& tap : taps) {
        tap.readL = tap.readR = 0.0f;
        tap.biquadL = tap.biquadR = {};
    }
    endFades();
    reverb.reset();
    follower = {};
    lfo.reset(controls);
    inL = inR = outL = outR = 0.0f;
    meters.fill(0.0f);
}

void ScalarEngine::clear() {
    resetState();
    reverb.clearLines();
}

void ScalarEngine::clearRings() {
    for (auto* lines : {&lineL, &lineR}) {
        for (auto& line : *lines) {
            std::fill(line.begin(), line.end(), 0.0f);
        }
    }
}

void ScalarEngine::copyLines() {
    for (size_t t = 0; t < kTaps; ++t) {
        const float* const left = controls.ringL[t / 4].line(int(t % 4));
        const float* const right = controls.ringR[t / 4].line(int(t % 4));
        std::copy_n(left, lineL[t].size(), lineL[t].begin());
        std::copy_n(right, lineR[t].size(), lineR[t].begin());
    }
}

void ScalarEngine::advance(int32_t& position) const {
    position = position + 1 == controls.ringLen ? 0 : position + 1;
}

void ScalarEngine::raiseMeters(float left, float right, float lastL, float lastR) {
    const float levels[4] = {left, right, lastL, lastR};
    for (size_t lane = 0; lane < 4; ++lane) {
        meters[lane] = larger(meters[lane], std::fabs(levels[lane]));
    }
}

void ScalarEngine::beginBlock() {
    for (size_t t = 0; t < kTaps; ++t) {
        readPos[t] = writePos - std::min(controls.delaySamples[t], controls.ringLen - 1);
        if (readPos[t] < 0) {
            readPos[t] += controls.ringLen;
        }
    }
}

void ScalarEngine::passThrough(const float* const* inputs, float* const* outputs, int32_t frames) {
    for (int32_t i = 0; i < frames; ++i) {
        const float left = inputs[0][i];
        const float right = inputs[1][i];
        outputs[0][i] = left;
        outputs[1][i] = right;
        for (size_t t = 0; t < kTaps; ++t) {
            lineL[t][size_t(writePos)] = lineR[t][size_t(writePos)] = 0.0f;
        }
        advance(writePos);
        raiseMeters(left, right, left, right);
    }
}

void ScalarEngine::process(const float* const* inputs, float* const* outputs, int32_t frames) {
    const bool gateAtInput = controls.gateAtInput != 0;
    const int computedTaps = gateAtInput || controls.anyTapHigh ? 8 : 4;
    float dcFlip = 1e-18f;
    for (int32_t i = 0; i < frames; ++i) {
        dcFlip = -dcFlip;
        sample(computedTaps, gateAtInput, dcFlip, inputs[0][i], inputs[1][i]);
        outputs[0][i] = outL;
        outputs[1][i] = outR;
    }
}

void ScalarEngine::follow() {
    const int32_t source = controls.follower.source;
    if (source == Follower::kMasterIn) {
        follower.advance(controls, inL, inR);
    } else if (source == Follower::kMasterOut) {
        follower.advance(controls, outL, outR);
    } else {
        const ScalarTap& tap = taps[size_t(source - 1)];
        follower.advance(controls, tap.readL, tap.readR);
    }
}

void ScalarEngine::masterFeedback(float left, float right) {
    const Engine& e = controls;
    fbFilter.freq = nextFrequency(e, fbFilter.freq, e.fbFreqBase, e.fbEfAmount, follower.out,
                                  e.fbLfoAmount, lfo.outPos);
    left = left * e.fbGain[0];
    right = right * e.fbGain[0];
    const Quad& pan = e.fbPanMatrix;
    float fbL = left * pan[0] + right * pan[1];
    float fbR = left * pan[2] + right * pan[3];
    if (e.fbFilterOn) {
        fbFilter.run(e, fbL, fbR);
    }
    fbL = held(fbL, -16.0f, 16.0f);
    fbR = held(fbR, -16.0f, 16.0f);
    if (e.fbSaturatorOn) {
        fbL = saturated(fbL, e.fbCeiling[0]);
        fbR = saturated(fbR, e.fbCeiling[0]);
    }
    for (size_t t = 0; t < kTaps; ++t) {
        lineL[t][size_t(writePos)] += fbL;
        lineR[t][size_t(writePos)] += fbR;
    }
}

void ScalarEngine::sample(int computedTaps, bool gateAtInput, float dcFlip, float left,
                          float right) {
    const Engine& e = controls;
    const auto here = size_t(writePos);
    ++fadeHoldCount;
    raiseMeters(left, right, outL, outR);
    for (size_t lane = 0; lane < 4; ++lane) {
        mixSmooth[lane] = smoothed(mixSmooth[lane], e.mixTarget[lane], e.smooth30);
    }
    inL = left * mixSmooth[0];
    inR = right * mixSmooth[0];
    for (size_t t = 0; t < kTaps; ++t) {
        lineL[t][here] = gateAtInput ? inL * e.tapGate[t] : inL;
        lineR[t][here] = gateAtInput ? inR * e.tapGate[t] : inR;
    }
    follow();
    lfo.advance(e, follower.out);

    // The bus takes what the taps gave in the previous sample; the selected tap gives its read
    // of this one.
    TapBlock busL, busR;
    for (size_t t = 0; t < kTaps; ++t) {
        const bool post = e.busFbSrc[t] == FeedbackSource::AfterTap;
        busL[t] = post ? taps[t].postFbL : taps[t].preFbL;
        busR[t] = post ? taps[t].postFbR : taps[t].preFbR;
    }
    for (size_t t = 0; t < kTaps; ++t) {
        taps[t].preFbL = lineL[t][size_t(readPos[t])] * e.tapFbAmount[t];
        taps[t].preFbR = lineR[t][size_t(readPos[t])] * e.tapFbAmount[t];
    }
    const auto selected = size_t(e.selectedTap);
    const float selectedL = lineL[selected][size_t(readPos[selected])];
    const float selectedR = lineR[selected][size_t(readPos[selected])];
    if (e.masterFbOn) {
        const bool bus = e.fbInputSrc == FeedbackInput::Bus;
        masterFeedback(bus ? folded(busL) : selectedL, bus ? folded(busR) : selectedR);
    }

    // Taps that the loop does not compute add nothing and keep their state.
    const float fadeStep = fadeHoldCount > e.fadeHoldLen ? e.fadeStep : 0.0f;
    TapBlock directL, directR, sendL, sendR;
    for (size_t t = 0; t < size_t(computedTaps); ++t) {
        ScalarTap& tap = taps[t];
        if (e.tapFbSrc[t] == FeedbackSource::BeforeTap) {
            lineL[t][here] += tap.preFbL;
            lineR[t][here] += tap.preFbR;
        } else if (e.tapFbSrc[t] == FeedbackSource::AfterTap) {
            lineL[t][here] += tap.postFbL;
            lineR[t][here] += tap.postFbR;
        }
        tap.run(e, t, lineL[t][size_t(readPos[t])], lineR[t][size_t(readPos[t])], !gateAtInput,
                fadeStep, !gateAtInput, follower.out,
                e.tapLfoNegative[t] ? lfo.outNeg : lfo.outPos);
        directL[t] = tap.directL;
        directR[t] = tap.directR;
        sendL[t] = tap.sendL;
        sendR[t] = tap.sendR;
    }
    for (int32_t& position : readPos) {
        advance(position);
    }
    float sumL = held(folded(directL), -16.0f, 16.0f);
    float sumR = held(folded(directR), -16.0f, 16.0f);
    const bool acrossOutput = e.reverb.on && e.reverb.acrossOutput;
    if (e.reverb.on && !acrossOutput) {
        float l = folded(sendL);
        float r = folded(sendR);
        reverb.advance(e, l, r, dcFlip);
        sumL += l;
        sumR += r;
    }
    outL = inL * mixSmooth[2] + sumL * mixSmooth[1];
    outR = inR * mixSmooth[2] + sumR * mixSmooth[1];
    if (acrossOutput) {
        reverb.advance(e, outL, outR, dcFlip);
    }
    advance(writePos);
}

}  // namespace tessel8::reference
