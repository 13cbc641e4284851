#pragma once

// The two feedback networks and the writing of the lines.

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
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
template <int Lanes>
void readBus(const Engine& e, const BlockPlan& plan, int channel, const Workspace<Lanes>& w,
             Row& to) {
    const TapBlock& post = channel == 0 ? e.postFbL : e.postFbR;
    to[0] = busOfPreviousFrame(e, channel == 0 ? e.preFbL : e.preFbR, post);
    for (int i = 1; i < w.frames; ++i) {
        to[i] = 0.0f;
    }
    for (int t = 0; t < kTaps; ++t) {
        if (!(plan.bus >> t & 1u)) {
            continue;
        }
        if (plan.busAfter >> t & 1u) {
            for (int i = 1; i < w.frames; ++i) {
                to[i] += t < Lanes ? w.post[channel][t][i - 1] : post[size_t(t)];
            }
        } else {
            const Row& raw = *w.raw[channel][t];
            const float amount = e.tapFbAmount[size_t(t)];
            for (int i = 1; i < w.frames; ++i) {
                to[i] += raw[i - 1] * amount;
            }
        }
    }
}

/// The master feedback up to its filter: source, gain, pan.
template <int Lanes>
void prepareFeedback(const Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    Row bus[kChannels];
    const Row* from[kChannels] = {&bus[0], &bus[1]};
    for (int c = 0; c < kChannels; ++c) {
        if (e.fbInputSrc == FeedbackInput::Bus) {
            readBus(e, plan, c, w, bus[c]);
        } else {
            from[c] = w.raw[c][plan.selectedTap];
        }
    }
    const RowPack gain = RowPack::all(e.fbGain[0]);
    const Quad pan = e.fbPanMatrix;
    inPacks(w.frames, [&](int i) {
        const RowPack left = from[0]->at(i) * gain;
        const RowPack right = from[1]->at(i) * gain;
        w.fb[0].set(i, left * RowPack::all(pan[0]) + right * RowPack::all(pan[1]));
        w.fb[1].set(i, left * RowPack::all(pan[2]) + right * RowPack::all(pan[3]));
    });
}

/// The master feedback behind its filter: limit and saturation.
template <int Lanes>
void finishFeedback(Engine& e, Workspace<Lanes>& w) {
    const RowPack low = RowPack::all(-kSignalLimit);
    const RowPack high = RowPack::all(kSignalLimit);
    const RowPack ceiling = RowPack::all(e.fbCeiling[0]);
    const bool saturating = e.fbSaturatorOn != 0;
    for (Row& row : w.fb) {
        inPacks(w.frames, [&](int i) {
            const RowPack x = clamp(row.at(i), low, high);
            row.set(i, saturating ? saturated(x, ceiling) : x);
        });
    }
    e.fbSignalL = w.fb[0][w.frames - 1];
    e.fbSignalR = w.fb[1][w.frames - 1];
}

TESSEL8_INLINE void writeLine(float* line, const Row& row, int frames) {
    if (frames == kStretch) {
        __builtin_memcpy(line, row.v, sizeof row.v);
    } else {
        __builtin_memcpy(line, row.v, size_t(frames) * sizeof(float));
    }
}

/// Input, master feedback and own feedback into all lines, in that order of addition. Exactly the
/// stretch's frames: what stands behind them in the ring is its oldest signal.
template <int Lanes, bool GateAtInput>
void writeLines(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    const RowPack silence = RowPack::all(0.0f);
    for (int c = 0; c < kChannels; ++c) {
        Row open;
        Row closed;
        inPacks(w.frames, [&](int i) {
            const RowPack fb = plan.masterFb ? w.fb[c].at(i) : silence;
            open.set(i, plan.masterFb ? w.in[c].at(i) + fb : w.in[c].at(i));
            closed.set(i, fb);
        });
        for (int t = 0; t < kTaps; ++t) {
            const auto lane = size_t(t);
            float* const line = lineOf(e, c, t) + e.writePos;
            prefetchRow<1>(line + kStretch);
            const Row& base = GateAtInput && e.tapGate[lane] == 0.0f ? closed : open;
            if (!plan.feedsItself(t)) {
                writeLine(line, base, w.frames);
                continue;
            }
            Row row;
            if (plan.ownAfter >> t & 1u) {
                w.post[c][t].setPrevious(c == 0 ? e.postFbL[lane] : e.postFbR[lane]);
                inPacks(w.frames, [&](int i) { row.set(i, base.at(i) + w.post[c][t].before(i)); });
            } else {
                const RowPack amount = RowPack::all(e.tapFbAmount[lane]);
                const Row& raw = *w.raw[c][t];
                inPacks(w.frames, [&](int i) { row.set(i, base.at(i) + raw.at(i) * amount); });
            }
            writeLine(line, row, w.frames);
        }
    }
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
            left = lineOf(e, 0, t)[last];
            right = lineOf(e, 1, t)[last];
        }
        e.preFbL[lane] = left * amount;
        e.preFbR[lane] = right * amount;
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
