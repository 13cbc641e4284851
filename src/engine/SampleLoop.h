#pragma once

// The order of a sample, once for all three loops and for every instruction set.

#include <cmath>

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Feedback.h"
#include "engine/Lines.h"
#include "engine/ModulationStage.h"
#include "engine/ReverbStage.h"
#include "engine/Saturator.h"
#include "engine/Stretch.h"
#include "engine/TapFilter.h"
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
void takeInput(Engine& e, Workspace<Lanes>& w, const float* left, const float* right,
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
void readWritten(const Engine& e, const BlockPlan& plan, const FadeTile<Lanes>& fade,
                 Workspace<Lanes>& w) {
    for (int t = 0; t < Lanes; ++t) {
        if (!plan.readsAtZero(t)) {
            continue;
        }
        const float* const left = lineOf(e, Channel::Left, t) + e.writePos;
        const float* const right = lineOf(e, Channel::Right, t) + e.writePos;
        for (int i = 0; i < w.frames; ++i) {
            const float level = fade.full ? 1.0f : fade.level.v[i][t];
            w.signalL.v[i][t] = left[i] * level;
            w.signalR.v[i][t] = right[i] * level;
        }
    }
}

/// The follower on a tap hears it one frame late. A tap that the loop does not compute stands
/// still.
template <int Lanes>
void followTap(Engine& e, const BlockPlan& plan, const Workspace<Lanes>& w, ModulationRows& mod) {
    const int tap = plan.followerSource - 1;
    Row left;
    Row right;
    left[0] = e.tapReadL[size_t(tap)];
    right[0] = e.tapReadR[size_t(tap)];
    for (int i = 1; i < w.frames; ++i) {
        left[i] = tap < Lanes ? w.signalL.v[i - 1][tap % Lanes] : left[0];
        right[i] = tap < Lanes ? w.signalR.v[i - 1][tap % Lanes] : right[0];
    }
    runFollower(e, left.v, right.v, w.frames, mod);
}

/// LFO and follower for the stretch. The follower hears the input of the same frame, or a tap or
/// the output one frame late; where it moves no filter and its source is not there yet, it waits.
template <int Lanes>
void modulate(Engine& e, const BlockPlan& plan, const Workspace<Lanes>& w, ModulationRows& mod) {
    mod.off = !plan.modulation;
    mod.followerHeard = plan.followerHeard;
    if (plan.modulation && !plan.followerHeard) {
        for (int i = 0; i < w.frames; ++i) {
            mod.follower[i] = 0.0f;
        }
    }
    if (plan.followerSource == Follower::kMasterIn) {
        runFollower(e, w.inL.v, w.inR.v, w.frames, mod);
    } else if (plan.followerHeard || !plan.followerWaits()) {
        if (plan.followerSource == Follower::kMasterOut) {
            runFollower(e, &e.outL, &e.outR, 1, mod);  // in single frames
        } else {
            followTap(e, plan, w, mod);
        }
    }
    runLfo(e, w.frames, mod);
}

template <int Lanes, bool GateAtInput>
void writeLines(Engine& e, const BlockPlan& plan, const ModulationRows& mod, Workspace<Lanes>& w) {
    if (plan.masterFb) {
        runMasterFeedback<Lanes, GateAtInput>(e, plan, mod, w);
    }
    writeChannel<Lanes, GateAtInput>(e, plan, w, Channel::Left);
    writeChannel<Lanes, GateAtInput>(e, plan, w, Channel::Right);
}

template <int Lanes, bool GateAtInput>
void runTaps(Engine& e, const ModulationRows& mod, Workspace<Lanes>& w) {
    w.signalL.at(w.frames - 1).store(e.tapReadL.v);
    w.signalR.at(w.frames - 1).store(e.tapReadR.v);
    amplify(e, w);
    saturateTaps(e, e.tapSaturatorPre, w);
    filterTaps(e, mod, w);
    saturateTaps(e, e.tapSaturatorPost, w);
    collect<Lanes, GateAtInput>(e, w);
}

/// A follower of the output that moves no filter keeps its measure behind the mix.
inline void followOutput(Engine& e, const Row& outL, const Row& outR, int frames,
                         ModulationRows& mod) {
    Row left;
    Row right;
    left[0] = e.outL;
    right[0] = e.outR;
    for (int i = 1; i < frames; ++i) {
        left[i] = outL[i - 1];
        right[i] = outR[i - 1];
    }
    runFollower(e, left.v, right.v, frames, mod);
}

/// Reverb, mix and output. `dcFlip` changes sign on every sample.
template <int Lanes>
void mixOutput(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w, ModulationRows& mod,
               float& dcFlip, float* left, float* right, Peaks& peaks) {
    Peaks::raise(peaks.outL, e.outL);
    Peaks::raise(peaks.outR, e.outR);
    const int frames = w.frames;
    Row flip;
    for (int i = 0; i < frames; ++i) {
        dcFlip = -dcFlip;
        flip[i] = dcFlip;
    }
    const bool reverb = e.reverb.on != 0;
    const bool across = reverb && e.reverb.acrossOutput != 0;
    if (reverb && !across) {
        runReverb(e.reverb, frames, flip, w.sendL, w.sendR);
        for (int i = 0; i < frames; ++i) {
            w.sumL[i] += w.sendL[i];
            w.sumR[i] += w.sendR[i];
        }
    }
    Row mixL;
    Row mixR;
    for (int i = 0; i < frames; ++i) {
        mixL[i] = w.inL[i] * w.dry[i] + w.sumL[i] * w.wet[i];
        mixR[i] = w.inR[i] * w.dry[i] + w.sumR[i] * w.wet[i];
    }
    if (across) {
        runReverb(e.reverb, frames, flip, mixL, mixR);
    }
    for (int i = 0; i < frames; ++i) {
        left[i] = mixL[i];
        right[i] = mixR[i];
    }
    // The meters see each output one frame late; the last one waits for the next stretch.
    for (int i = 0; i + 1 < frames; ++i) {
        Peaks::raise(peaks.outL, mixL[i]);
        Peaks::raise(peaks.outR, mixR[i]);
    }
    if (plan.followerSource == Follower::kMasterOut && !plan.followerHeard) {
        followOutput(e, mixL, mixR, frames, mod);
    }
    e.outL = mixL[frames - 1];
    e.outR = mixR[frames - 1];
}

template <int Lanes, bool GateAtInput>
void finishStretch(Engine& e, const Workspace<Lanes>& w) {
    countFrames(e, w.frames);
    keepPreFeedback<GateAtInput>(e, w.frames, e.inL, e.inR);
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
    FadeTile<Lanes> fade;
    ModulationRows mod;
    Peaks peaks;
    float dcFlip = 1.0e-18f;
    for (int32_t done = 0; done < frames; done += w.frames) {
        w.frames = plan.stretch(e, frames - done);
        takeInput(e, w, inputs[0] + done, inputs[1] + done, peaks);
        gatherReads<Lanes, GateAtInput>(e, plan, Channel::Left, w.inL, w.frames, w.rawL);
        gatherReads<Lanes, GateAtInput>(e, plan, Channel::Right, w.inR, w.frames, w.rawR);
        if (!GateAtInput) {
            fade.advance(e, w.frames);
        }
        fadeReads(fade, w);
        modulate(e, plan, w, mod);
        if (plan.tapsFirst && !plan.singleFrames) {
            runTaps<Lanes, GateAtInput>(e, mod, w);
            writeLines<Lanes, GateAtInput>(e, plan, mod, w);
        } else {
            writeLines<Lanes, GateAtInput>(e, plan, mod, w);
            readWritten(e, plan, fade, w);
            if (!plan.followerHeard && plan.followsZeroDelay()) {
                followTap(e, plan, w, mod);
            }
            runTaps<Lanes, GateAtInput>(e, mod, w);
        }
        mixOutput(e, plan, w, mod, dcFlip, outputs[0] + done, outputs[1] + done, peaks);
        finishStretch<Lanes, GateAtInput>(e, w);
    }
    e.unsettledReads = ((1u << Lanes) - 1u) & ~plan.read;
    e.raiseMeters(peaks.inL, peaks.inR, peaks.outL, peaks.outR);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
