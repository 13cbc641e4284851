#include "engine/Engine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <numbers>

#include "engine/Tables.h"

namespace tessel8 {

namespace {

Smoothing onePole(float cutoff, float rate) {
    const float keep = float(std::exp(-std::numbers::pi / 2.0 * double(cutoff) / double(rate)));
    return {keep, 1.0f - keep};
}

template <typename Container>
bool allPresent(const Container& parts) {
    return std::all_of(parts.begin(), parts.end(), [](const auto& part) { return bool(part); });
}

/// Taps 5 to 8, one bit a tap.
constexpr uint32_t kHighTaps = 0xf0u;

float larger(float a, float b) {
    return a > b ? a : b;
}

}  // namespace

Engine::Engine(InstructionSet set) : loops(sampleLoops(set)) {
    if (!buildOctaveTable(octaveTable) || !buildSineTable(sineTable) ||
        !buildSquareTable(squareTable)) {
        throw std::bad_alloc();
    }
    setSmoothingRate(kLowestRate);
}

bool Engine::allocateForRate(float rate) {
    unsettledReads = 0;
    ringLen = int32_t(rate) * kSecondsOfMemory;
    writePos = 0;
    // The old memory goes first: at 192 kHz old and new together would be 200 MB.
    for (size_t group = 0; group < 2; ++group) {
        ringR[group].release();
        ringL[group].release();
    }
    for (size_t group = 0; group < 2; ++group) {
        if (!ringR[group].allocate(ringLen) || !ringL[group].allocate(ringLen)) {
            return false;
        }
    }
    if (!reverb.allocateForRate(rate)) {
        return false;
    }
    reverb.plate = reverb.nextPlate;
    reverb.nextRate = rate;
    reverb.build(rate);
    return buildSvfTable(svfTable, rate) && buildTanTable(tanTable, rate);
}

bool Engine::hasMemory() const {
    return allPresent(ringL) && allPresent(ringR) && reverb.hasMemory() && svfTable && tanTable;
}

void Engine::releaseMemory() {
    unsettledReads = 0;
    for (auto* rings : {&ringL, &ringR}) {
        std::for_each(rings->begin(), rings->end(), [](DelayRing& ring) { ring.release(); });
    }
    reverb.release();
}

void Engine::setSmoothingRate(float rate) {
    smooth30 = onePole(30.0f, rate);
    smooth250 = onePole(250.0f, rate);
    fadeStep = 2.0f / rate;
    // A host may have told anything; a rate out of range never gets to process.
    fadeHoldLen = rate >= kLowestRate && rate <= kHighestRate ? int32_t(rate) / 2 : 0;
}

void Engine::resetState() {
    for (TapBlock* block : {&tapReadL, &tapReadR, &preFbL, &preFbR, &postFbL, &postFbR}) {
        block->fill(0.0f);
    }
    unsettledReads = 0;
    endFades();
    fbSignalL = fbSignalR = 0.0f;
    tapBqL = tapBqR = {};
    fbBq = {};
    fbSvf = {};
    lfo.resetState();
    follower.resetState();
    reverb.resetState();
    inL = inR = outL = outR = 0.0f;
    clearMeters();
}

void Engine::endFades() {
    tapFade.fill(1.0f);
    requests.fetch_and(~(0xffu << kFadeRequests), std::memory_order_relaxed);
}

void Engine::rewind() {
    settleReads(~0u);
    writePos = 0;
}

void Engine::clearRings() {
    for (auto* rings : {&ringL, &ringR}) {
        std::for_each(rings->begin(), rings->end(), [](DelayRing& ring) { ring.clear(); });
    }
}

void Engine::clear() {
    ready = false;
    resetState();
    reverb.clearLines();
    ready = hasMemory();
}

void Engine::settleReads(uint32_t taps) {
    for (size_t tap = 0; tap < kTaps; ++tap) {
        if (taps & unsettledReads & 1u << tap) {
            const int32_t last = ringIndex(writePos - 1 - readDelay[tap] + ringLen);
            const size_t group = tap / DelayRing::kLines;
            const int lane = int(tap % DelayRing::kLines);
            tapReadL[tap] = ringL[group].line(lane)[last] * tapFade[tap];
            tapReadR[tap] = ringR[group].line(lane)[last] * tapFade[tap];
        }
    }
    unsettledReads &= ~taps;
}

void Engine::carryOut(uint32_t wanted) {
    const auto asked = [=](int first, size_t which) {
        return (wanted >> (size_t(first) + which) & 1u) != 0;
    };
    for (size_t tap = 0; tap < kTaps; ++tap) {
        if (asked(kFadeRequests, tap)) {
            tapFade[tap] = 0.0f;
            fadeHoldCount = 0;
        }
        if (asked(kTapFilterRequests, tap)) {
            for (Biquad<TapBlock>* bq : {&tapBqL, &tapBqR}) {
                bq->x1[tap] = bq->x2[tap] = bq->y1[tap] = bq->y2[tap] = 0.0f;
            }
        }
        if (asked(kGainSnapRequests, tap)) {
            tapFltGainSmooth[tap] = snappedGain[tap];
            tapFltRootSmooth[tap] = snappedRoot[tap];
        }
    }
    if (asked(kFbRequests, 0) || asked(kFbRequests, 1)) {
        fbBq = {};
    }
    if (asked(kFbRequests, 1)) {
        for (TapBlock* block : {&preFbL, &preFbR, &postFbL, &postFbR}) {
            block->fill(0.0f);
        }
        fbSignalL = fbSignalR = 0.0f;
        fbSvf = {};
    }
    if (asked(kOtherRequests, 0)) {
        lfo.applySpread();
    }
    if (asked(kOtherRequests, 1)) {
        reverb.plate = reverb.nextPlate;
        reverb.build(reverb.nextRate);
    }
}

void Engine::beginBlock() {
    if (!gateAtInput && !anyTapHigh) {
        settleReads(kHighTaps);  // these taps stand still from here on
    }
    if (follower.source != Follower::kMasterIn && follower.source != Follower::kMasterOut) {
        settleReads(1u << (follower.source - 1));
    }
    if (const uint32_t wanted = requests.exchange(0, std::memory_order_acquire)) {
        carryOut(wanted);
    }
    for (size_t tap = 0; tap < kTaps; ++tap) {
        readDelay[tap] = std::clamp(delaySamples[tap], 0, ringLen - 1);
        readPos[tap] = writePos - readDelay[tap];
        readPos[tap] += readPos[tap] < 0 ? ringLen : 0;
    }
}

void Engine::process(const float* const* inputs, float* const* outputs, int32_t frames) {
    const SampleLoop loop = gateAtInput  ? loops.processGatedInput
                            : anyTapHigh ? loops.processEightTaps
                                         : loops.processFourTaps;
    loop(*this, inputs, outputs, frames);
}

void Engine::passThrough(const float* const* inputs, float* const* outputs, int32_t frames) {
    settleReads(~0u);
    float peakL = 0.0f;
    float peakR = 0.0f;
    for (int32_t i = 0; i < frames; ++i) {
        const float left = inputs[0][i];
        const float right = inputs[1][i];
        outputs[0][i] = left;
        outputs[1][i] = right;
        peakL = larger(std::fabs(left), peakL);
        peakR = larger(std::fabs(right), peakR);
    }
    raiseMeters(peakL, peakR, peakL, peakR);
    if (!allPresent(ringL) || !allPresent(ringR)) {
        return;
    }
    for (int32_t done = 0; done < frames;) {
        const int32_t count = std::min(frames - done, ringLen - writePos);
        for (auto* rings : {&ringL, &ringR}) {
            for (DelayRing& ring : *rings) {
                for (int lane = 0; lane < DelayRing::kLines; ++lane) {
                    std::fill_n(ring.line(lane) + writePos, count, 0.0f);
                }
            }
        }
        writePos += count;
        writePos = writePos == ringLen ? 0 : writePos;
        done += count;
    }
}

void Engine::clearMeters() {
    for (auto& meter : meters) {
        meter.store(0.0f, std::memory_order_relaxed);
    }
}

void Engine::raiseMeters(float inputL, float inputR, float outputL, float outputR) {
    const float peaks[] = {inputL, inputR, outputL, outputR};
    for (size_t lane = 0; lane < meters.size(); ++lane) {
        if (peaks[lane] > meters[lane].load(std::memory_order_relaxed)) {
            meters[lane].store(peaks[lane], std::memory_order_relaxed);
        }
    }
}

}  // namespace tessel8
