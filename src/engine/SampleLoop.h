#pragma once

// The order of a sample, once for all three loops and for every instruction set.

#include <cmath>

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Feedback.h"
#include "engine/Lines.h"
#include "engine/Stretch.h"
#include "engine/TapStage.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

struct Peaks {
    float inL = 0.0f, inR = 0.0f, outL = 0.0f, outR = 0.0f;

    TESSEL8_INLINE static void raise(float& peak, float value) {
        const float level = std::fabs(value);
        peak = level > peak ? level : peak;
    }
};

/// Input behind the smoothed input gain, and the mix gains for the stretch's end.
template <int Lanes>
TESSEL8_INLINE void takeInput(Engine& e, Workspace<Lanes>& w, const float* left, const float* right,
                              Peaks& peaks) {
    const int frames = w.frames;
    for (int i = 0; i < frames; ++i) {
        Peaks::raise(peaks.inL, left[i]);
        Peaks::raise(peaks.inR, right[i]);
    }
    Glide<4> mix(e.mixSmooth.v, e.mixTarget.v, e.smooth30.take, e.smooth30.keep);
    alignas(16) float gains[4];
    mix.value.store(gains);
    for (int i = 0; i < frames; ++i) {
        if (!mix.settled) {
            mix.step().store(gains);
        }
        w.inL[i] = left[i] * gains[0];
        w.inR[i] = right[i] * gains[0];
        w.wet[i] = gains[1];
        w.dry[i] = gains[2];
    }
    mix.value.store(e.mixSmooth.v);
    e.inL = w.inL[frames - 1];
    e.inR = w.inR[frames - 1];
}

/// A tap without delay hears its line as this very stretch leaves it.
template <int Lanes>
TESSEL8_INLINE void readWritten(const Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    for (int t = 0; t < Lanes; ++t) {
        if (!plan.readsAtZero(t)) {
            continue;
        }
        const float* const left = lineOf(e, Channel::Left, t) + e.writePos;
        const float* const right = lineOf(e, Channel::Right, t) + e.writePos;
        for (int i = 0; i < w.frames; ++i) {
            w.signalL.v[i][t] = left[i];
            w.signalR.v[i][t] = right[i];
        }
    }
}

template <int Lanes, bool GateAtInput>
TESSEL8_INLINE void writeLines(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    if (plan.masterFb) {
        runMasterFeedback<Lanes, GateAtInput>(e, plan, w);
    }
    writeChannel<Lanes, GateAtInput>(e, plan, w, Channel::Left);
    writeChannel<Lanes, GateAtInput>(e, plan, w, Channel::Right);
}

template <int Lanes, bool GateAtInput>
TESSEL8_INLINE void runTaps(Engine& e, Workspace<Lanes>& w) {
    if (!GateAtInput) {
        fadeIn(e, w);
    }
    w.signalL.at(w.frames - 1).store(e.tapReadL.v);
    w.signalR.at(w.frames - 1).store(e.tapReadR.v);
    amplify(e, w);
    collect<Lanes, GateAtInput>(e, w);
}

template <int Lanes>
TESSEL8_INLINE void mixOutput(Engine& e, const Workspace<Lanes>& w, float* left, float* right,
                              Peaks& peaks) {
    Peaks::raise(peaks.outL, e.outL);
    Peaks::raise(peaks.outR, e.outR);
    const int frames = w.frames;
    for (int i = 0; i < frames; ++i) {
        left[i] = w.inL[i] * w.dry[i] + w.sumL[i] * w.wet[i];
        right[i] = w.inR[i] * w.dry[i] + w.sumR[i] * w.wet[i];
    }
    // The meters see each output one frame late; the last one waits for the next stretch.
    for (int i = 0; i + 1 < frames; ++i) {
        Peaks::raise(peaks.outL, left[i]);
        Peaks::raise(peaks.outR, right[i]);
    }
    e.outL = left[frames - 1];
    e.outR = right[frames - 1];
}

template <int Lanes, bool GateAtInput>
TESSEL8_INLINE void finishStretch(Engine& e, const BlockPlan& plan, const Workspace<Lanes>& w) {
    countFrames(e, w.frames);
    keepPreFeedback<Lanes, GateAtInput>(e, plan, w);
    w.postFbL.at(w.frames - 1).store(e.postFbL.v);
    w.postFbR.at(w.frames - 1).store(e.postFbR.v);
    const auto advance = [&](int32_t& position) {
        position += w.frames;
        position -= position >= e.ringLen ? e.ringLen : 0;
    };
    for (int32_t& position : e.readPos) {
        advance(position);
    }
    advance(e.writePos);
}

template <int Lanes, bool GateAtInput>
void sampleLoop(Engine& e, const float* const* inputs, float* const* outputs, int32_t frames) {
    const BlockPlan plan = BlockPlan::of<Lanes, GateAtInput>(e);
    Workspace<Lanes> w;
    Peaks peaks;
    for (int32_t done = 0; done < frames; done += w.frames) {
        w.frames = plan.stretch(e, frames - done);
        takeInput(e, w, inputs[0] + done, inputs[1] + done, peaks);
        gatherReads<Lanes, GateAtInput>(e, plan, Channel::Left, w.inL, w.frames, w.rawL);
        gatherReads<Lanes, GateAtInput>(e, plan, Channel::Right, w.inR, w.frames, w.rawR);
        w.signalL = w.rawL;
        w.signalR = w.rawR;
        if (plan.tapsFirst && !plan.singleFrames) {
            runTaps<Lanes, GateAtInput>(e, w);
            writeLines<Lanes, GateAtInput>(e, plan, w);
        } else {
            writeLines<Lanes, GateAtInput>(e, plan, w);
            readWritten(e, plan, w);
            runTaps<Lanes, GateAtInput>(e, w);
        }
        mixOutput(e, w, outputs[0] + done, outputs[1] + done, peaks);
        finishStretch<Lanes, GateAtInput>(e, plan, w);
    }
    e.raiseMeters(peaks.inL, peaks.inR, peaks.outL, peaks.outR);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
