#pragma once

// The two feedback networks and the writing of the lines.

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/FeedbackFilter.h"
#include "engine/Lines.h"
#include "engine/Saturator.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// Sum of what the taps gave to the bus in the previous frame.
TESSEL8_INLINE float busOfPreviousFrame(const Engine& e, const TapBlock& pre,
                                        const TapBlock& post) {
    alignas(32) float source[kTaps];
    for (int t = 0; t < kTaps; ++t) {
        source[t] = e.busFbSrc[t] == FeedbackSource::AfterTap ? post[size_t(t)] : pre[size_t(t)];
    }
    return sumOfLanes(Pack<kTaps>::load(source));
}

/// The input of the master feedback in MultiTap, one channel. The bus runs one frame behind the
/// taps. Taps that the loop does not compute keep what they gave last.
template <int Lanes, bool GateAtInput>
void readBus(const Engine& e, const BlockPlan& plan, Channel channel, const Workspace<Lanes>& w,
             Row& to) {
    const bool left = channel == Channel::Left;
    const TapBlock& post = left ? e.postFbL : e.postFbR;
    to[0] = busOfPreviousFrame(e, left ? e.preFbL : e.preFbR, post);
    for (int i = 1; i < w.frames; ++i) {
        to[i] = 0.0f;
    }
    for (int t = 0; t < kTaps; ++t) {
        if (!(plan.bus >> t & 1u)) {
            continue;
        }
        if (e.busFbSrc[t] == FeedbackSource::AfterTap) {
            const auto& tile = left ? w.postFbL : w.postFbR;
            for (int i = 1; i < w.frames; ++i) {
                to[i] += t < Lanes ? tile.v[i - 1][t % Lanes] : post[size_t(t)];
            }
        } else {
            const float* const raw =
                rawRead<GateAtInput>(e, plan, channel, t, left ? w.inL : w.inR);
            const float amount = e.tapFbAmount[size_t(t)];
            for (int i = 1; i < w.frames; ++i) {
                to[i] += raw[i - 1] * amount;
            }
        }
    }
}

/// The master feedback: one stereo signal, panned, filtered and saturated. Leaves its result in
/// `fbL` and `fbR` of the workspace.
template <int Lanes, bool GateAtInput>
void runMasterFeedback(Engine& e, const BlockPlan& plan, const ModulationRows& mod,
                       Workspace<Lanes>& w) {
    Row hz;
    sweepFbFrequency(e, mod, w.frames, hz);
    Row fromL;
    Row fromR;
    if (e.fbInputSrc == FeedbackInput::Bus) {
        readBus<Lanes, GateAtInput>(e, plan, Channel::Left, w, fromL);
        readBus<Lanes, GateAtInput>(e, plan, Channel::Right, w, fromR);
    } else {
        const int tap = plan.selectedTap;
        const float* rawL = rawRead<GateAtInput>(e, plan, Channel::Left, tap, w.inL);
        const float* rawR = rawRead<GateAtInput>(e, plan, Channel::Right, tap, w.inR);
        for (int i = 0; i < w.frames; ++i) {
            fromL[i] = rawL[i];
            fromR[i] = rawR[i];
        }
    }
    const float gain = e.fbGain[0];
    const Quad pan = e.fbPanMatrix;
    for (int i = 0; i < w.frames; ++i) {
        const float left = fromL[i] * gain;
        const float right = fromR[i] * gain;
        w.fbL[i] = left * pan[0] + right * pan[1];
        w.fbR[i] = left * pan[2] + right * pan[3];
    }
    if (e.fbFilterOn) {
        filterFeedback(e, hz, w.frames, w.fbL, w.fbR);
    }
    for (int i = 0; i < w.frames; ++i) {
        w.fbL[i] = clampScalar(w.fbL[i], -kSignalLimit, kSignalLimit);
        w.fbR[i] = clampScalar(w.fbR[i], -kSignalLimit, kSignalLimit);
    }
    if (e.fbSaturatorOn) {
        const float ceiling = e.fbCeiling[0];
        for (int i = 0; i < w.frames; ++i) {
            w.fbL[i] = saturatedScalar(w.fbL[i], ceiling);
            w.fbR[i] = saturatedScalar(w.fbR[i], ceiling);
        }
    }
    e.fbSignalL = w.fbL[w.frames - 1];
    e.fbSignalR = w.fbR[w.frames - 1];
}

/// Lanes of the taps that take their feedback from `source`.
template <int Lanes>
TESSEL8_INLINE Mask<Lanes> lanesFrom(const Engine& e, FeedbackSource source) {
    alignas(32) float on[kTaps];
    for (int t = 0; t < kTaps; ++t) {
        on[t] = e.tapFbSrc[t] == source ? 1.0f : 0.0f;
    }
    return Pack<Lanes>::load(on) != Pack<Lanes>::all(0.0f);
}

/// Input, master feedback and own feedback into one channel's lines, in that order of addition.
template <int Lanes, bool GateAtInput>
void writeChannel(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w, Channel channel) {
    using P = Pack<Lanes>;
    const bool left = channel == Channel::Left;
    const Row& input = left ? w.inL : w.inR;
    const Row& fb = left ? w.fbL : w.fbR;
    const bool gated = GateAtInput || plan.ownFeedback;
    if (!gated || Lanes < kTaps) {
        Row row;
        for (int i = 0; i < w.frames; ++i) {
            row[i] = plan.masterFb ? input[i] + fb[i] : input[i];
        }
        fillLines(e, channel, gated ? Lanes : 0, kTaps, w.frames, row);
        if (!gated) {
            return;
        }
    }
    const Tile<Lanes>& raw = left ? w.rawL : w.rawR;
    const Tile<Lanes>& postTile = left ? w.postFbL : w.postFbR;
    const P gate = P::load(e.tapGate.v);
    const P amount = P::load(e.tapFbAmount.v);
    const P nothing = P::all(0.0f);
    const Mask<Lanes> before = lanesFrom<Lanes>(e, FeedbackSource::BeforeTap);
    const Mask<Lanes> after = lanesFrom<Lanes>(e, FeedbackSource::AfterTap);
    P post = P::load(left ? e.postFbL.v : e.postFbR.v);
    Tile<Lanes> lines;
    for (int i = 0; i < w.frames; ++i) {
        P line = P::all(input[i]);
        if (GateAtInput) {
            line = line * gate;
        }
        if (plan.masterFb) {
            line = line + P::all(fb[i]);
        }
        if (plan.ownFeedback) {
            const P own = select(before, raw.at(i) * amount, select(after, post, nothing));
            line = line + own;
            // Written first, no tap feeds from behind itself: the tile is not there yet.
            post = plan.tapsFirst && !plan.singleFrames ? postTile.at(i) : nothing;
        }
        lines.set(i, line);
    }
    scatterWrites(e, channel, w.frames, lines);
}

/// What the next frame's bus starts from. A tap that was not read for the stretch counts, too: by
/// now its line holds all that the stretch has written.
template <bool GateAtInput>
void keepPreFeedback(Engine& e, int frames, float inL, float inR) {
    for (int t = 0; t < kTaps; ++t) {
        const auto lane = size_t(t);
        const float amount = e.tapFbAmount[lane];
        float left = 0.0f;
        float right = 0.0f;
        if (amount == 0.0f) {
            // Nothing is given.
        } else if (e.readDelay[t] == 0) {
            const bool closed = GateAtInput && e.tapGate[lane] == 0.0f;
            left = closed ? 0.0f : inL;
            right = closed ? 0.0f : inR;
        } else {
            const int32_t last = e.ringIndex(e.readPos[t] + frames - 1);
            left = lineOf(e, Channel::Left, t)[last];
            right = lineOf(e, Channel::Right, t)[last];
        }
        e.preFbL[lane] = left * amount;
        e.preFbR[lane] = right * amount;
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
