#pragma once

// The order of a sample, once for all three loops and for every instruction set.

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Feedback.h"
#include "engine/FeedbackFilter.h"
#include "engine/Lines.h"
#include "engine/ModulationStage.h"
#include "engine/ReverbStage.h"
#include "engine/Stretch.h"
#include "engine/TapFilter.h"
#include "engine/TapStage.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// Largest absolute values of a block, one row of candidates a meter.
struct Peaks {
    Row level[4] = {};

    TESSEL8_INLINE void raise(int meter, const Row& row, int frames) {
        int i = 0;
        for (; i + kPack <= frames; i += kPack) {
            level[meter].set(0, max(abs(row.at(i)), level[meter].at(0)));
        }
        for (; i < frames; ++i) {
            raise(meter, row[i]);
        }
    }
    TESSEL8_INLINE void raise(int meter, float value) {
        const float absolute = __builtin_fabsf(value);
        float& top = level[meter][0];
        top = absolute > top ? absolute : top;
    }
    float of(int meter) const {
        float top = 0.0f;
        for (int i = 0; i < kPack; ++i) {
            top = level[meter][i] > top ? level[meter][i] : top;
        }
        return top;
    }
};

/// Input behind the smoothed input gain, and the mix gains for the stretch's end.
template <int Lanes>
void takeInput(Engine& e, Workspace<Lanes>& w, const float* const (&from)[kChannels],
               Peaks& peaks) {
    const int frames = w.frames;
    for (int c = 0; c < kChannels; ++c) {
        if (frames == kStretch) {
            __builtin_memcpy(w.in[c].v, from[c], sizeof(Row));
        } else {
            __builtin_memcpy(w.in[c].v, from[c], size_t(frames) * sizeof(float));
        }
        peaks.raise(c, w.in[c], frames);
    }
    Glide<4> mix(e.mixSmooth.v, e.mixTarget.v, e.smooth30);
    alignas(16) float gains[4];
    mix.value.store(gains);
    if (mix.settled) {
        inPacks(frames, [&](int i) {
            w.wet.set(i, RowPack::all(gains[1]));
            w.dry.set(i, RowPack::all(gains[2]));
            for (Row& in : w.in) {
                in.set(i, in.at(i) * RowPack::all(gains[0]));
            }
        });
    } else {
        for (int i = 0; i < frames; ++i) {
            mix.step().store(gains);
            w.wet[i] = gains[1];
            w.dry[i] = gains[2];
            for (Row& in : w.in) {
                in[i] *= gains[0];
            }
        }
        mix.value.store(e.mixSmooth.v);
    }
    e.inL = w.in[0][frames - 1];
    e.inR = w.in[1][frames - 1];
}

/// Where the follower listens: to the input of the same frame, or to a tap or the output one
/// frame late.
template <int Lanes>
struct FollowerSource {
    Row late[kChannels];
    const float* left;
    const float* right;

    FollowerSource(const Engine& e, const BlockPlan& plan, const Workspace<Lanes>& w)
        : left(late[0].v), right(late[1].v) {
        const int32_t source = plan.followerSource;
        if (source == Follower::kMasterIn) {
            left = w.in[0].v;
            right = w.in[1].v;
        } else if (source == Follower::kMasterOut) {
            // In single frames; else `hearOutput` comes once the output is there.
            late[0][0] = e.outL;
            late[1][0] = e.outR;
        } else {
            const int tap = source - 1;
            const float before[] = {e.tapReadL[size_t(tap)], e.tapReadR[size_t(tap)]};
            for (int c = 0; c < kChannels; ++c) {
                late[c][0] = before[c];
                for (int i = 1; i < w.frames; ++i) {
                    // A tap that the loop does not compute stands still.
                    late[c][i] = tap < Lanes ? (*w.tap[c][tap])[i - 1] : before[c];
                }
            }
        }
    }

    void hearOutput(const Row (&out)[kChannels], int frames) {
        for (int c = 0; c < kChannels; ++c) {
            for (int i = 1; i < frames; ++i) {
                late[c][i] = out[c][i - 1];
            }
        }
    }
};

/// The parts of a stretch between reading and mixing.
template <int Lanes, bool GateAtInput>
struct StretchRun {
    Engine& e;
    const BlockPlan& plan;
    const Fades& fades;
    Workspace<Lanes>& w;
    ModulationRows& mod;

    /// Whether the taps need to be lanes: a filter works or a gain moves.
    bool needsLanes(const TapGains<Lanes>& gains) const {
        return plan.filtered != 0 || !gains.settled();
    }

    void run() {
        mod.wave = plan.wave;
        mod.off = plan.wave == LfoWave::Off;
        mod.followerHeard = plan.followerHeard;
        const FollowerSource<Lanes> source(e, plan, w);
        const FollowerChain follower(e, source.left, source.right, mod);
        const LfoChain lfo(e, mod);
        if (plan.followerHeard) {
            runTogether(w.frames, follower, lfo);
            shapeLfo(e, w.frames, mod);
            runBeside();
            return;
        }
        // A follower that moves no filter may run beside them, or wait for its source.
        inPacks(w.frames, [&](int i) { mod.follower.set(i, RowPack::all(0.0f)); });
        if (!mod.off || plan.followerWaits()) {
            runTogether(w.frames, lfo);
            shapeLfo(e, w.frames, mod);
            if (plan.followerWaits()) {
                runBeside();
            } else {
                runBeside(follower);
            }
        } else {
            runBeside(follower, lfo);
            shapeLfo(e, w.frames, mod);
        }
    }

    /// Taps and feedback in the order that their routing asks for, with other chains beside.
    template <typename... Chains>
    void runBeside(const Chains&... chains) {
        if (plan.zeroDelay) {
            // Such a tap hears what is written now.
            feedBack();
            writeLines<Lanes, GateAtInput>(e, plan, w);
            readWritten(e, plan, fades, w);
            if (plan.followsZeroDelay() && !plan.followerHeard) {
                const FollowerSource<Lanes> source(e, plan, w);
                runTogether(w.frames, FollowerChain(e, source.left, source.right, mod));
            }
            runTaps(chains...);
        } else if (plan.masterFb && plan.busWaits) {
            // The bus hears the taps of this stretch.
            runTaps(chains...);
            feedBack();
            writeLines<Lanes, GateAtInput>(e, plan, w);
        } else {
            runTapsAndFeedback(chains...);
            writeLines<Lanes, GateAtInput>(e, plan, w);
        }
    }

    /// The master feedback alone.
    void feedBack() {
        if (!plan.masterFb) {
            return;
        }
        prepareFeedback(e, plan, w);
        withFeedbackFilter(e, mod, w.frames, w.fb,
                           [&](const auto& filter) { runTogether(w.frames, filter); });
        finishFeedback(e, w);
    }

    /// The taps, their filters beside the chains given.
    template <typename... Chains>
    void runTaps(const Chains&... chains) {
        TapGains<Lanes> gains(e);
        const bool lanes = needsLanes(gains);
        keepReads(e, w);
        if (lanes) {
            prepareTapLanes(e, gains, w);
        } else {
            runTapRows<Lanes, GateAtInput>(e, plan, w);
        }
        withTapFilters(e, plan, mod, w,
                       [&](const auto& filters) { runTogether(w.frames, chains..., filters); });
        if (lanes) {
            finishTapLanes<Lanes, GateAtInput>(e, plan, w);
        }
    }

    /// Taps and master feedback, where neither hears the other within the stretch.
    template <typename... Chains>
    void runTapsAndFeedback(const Chains&... chains) {
        if (!plan.masterFb) {
            runTaps(chains...);
            return;
        }
        prepareFeedback(e, plan, w);
        withFeedbackFilter(e, mod, w.frames, w.fb,
                           [&](const auto& filter) { runTaps(chains..., filter); });
        finishFeedback(e, w);
    }
};

/// Reverb, mix and output. `dcFlip` changes sign on every sample.
template <int Lanes>
void mixOutput(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w, ModulationRows& mod,
               float& dcFlip, float* const (&to)[kChannels], Peaks& peaks) {
    const int frames = w.frames;
    const bool reverb = e.reverb.on != 0;
    const bool across = reverb && e.reverb.acrossOutput != 0;
    Row flip;
    if (reverb) {
        for (int i = 0; i < kStretch; i += 2) {
            flip[i] = -dcFlip;
            flip[i + 1] = dcFlip;
        }
    }
    dcFlip = frames % 2 ? -dcFlip : dcFlip;
    if (reverb && !across) {
        if (!w.sending) {
            w.send[0] = w.send[1] = kSilentRow;
        }
        runReverb(e.reverb, frames, flip, w.send[0], w.send[1]);
        for (int c = 0; c < kChannels; ++c) {
            inPacks(frames, [&](int i) { w.sum[c].set(i, w.sum[c].at(i) + w.send[c].at(i)); });
        }
    }
    Row out[kChannels];
    for (int c = 0; c < kChannels; ++c) {
        inPacks(frames, [&](int i) {
            out[c].set(i, w.in[c].at(i) * w.dry.at(i) + w.sum[c].at(i) * w.wet.at(i));
        });
    }
    if (across) {
        runReverb(e.reverb, frames, flip, out[0], out[1]);
    }
    if (plan.followerSource == Follower::kMasterOut && !plan.followerHeard) {
        // A follower of the output that moves no filter keeps its measure behind the mix.
        FollowerSource<Lanes> source(e, plan, w);
        source.hearOutput(out, frames);
        runTogether(frames, FollowerChain(e, source.left, source.right, mod));
    }
    // The meters see each output one frame late; the last one waits for the next stretch.
    peaks.raise(2, e.outL);
    peaks.raise(3, e.outR);
    for (int c = 0; c < kChannels; ++c) {
        writeLine(to[c], out[c], frames);
        peaks.raise(2 + c, out[c], frames - 1);
    }
    e.outL = out[0][frames - 1];
    e.outR = out[1][frames - 1];
}

template <int Lanes, bool GateAtInput>
void finishStretch(Engine& e, const Workspace<Lanes>& w) {
    countFrames(e, w.frames);
    keepPreFeedback<GateAtInput>(e, w.frames, e.inL, e.inR);
    for (int t = 0; t < Lanes; ++t) {
        e.postFbL[size_t(t)] = w.lastPost[0][t];
        e.postFbR[size_t(t)] = w.lastPost[1][t];
    }
    for (int32_t& position : e.readPos) {
        position = e.ringIndex(position + w.frames);
    }
    e.writePos = e.ringIndex(e.writePos + w.frames);
}

template <int Lanes, bool GateAtInput>
void sampleLoop(Engine& e, const float* const* inputs, float* const* outputs, int32_t frames) {
    const BlockPlan plan = BlockPlan::of<Lanes, GateAtInput>(e);
    Workspace<Lanes> w;
    Fades fades;
    ModulationRows mod;
    Peaks peaks;
    float dcFlip = 1.0e-18f;
    for (int32_t done = 0; done < frames; done += w.frames) {
        w.frames = plan.stretch(e, frames - done);
        takeInput(e, w, {inputs[0] + done, inputs[1] + done}, peaks);
        gatherReads<Lanes, GateAtInput>(e, plan, w);
        if (!GateAtInput) {
            fades.advance<Lanes>(e, w.frames);
            fades.applyAll(w);
        }
        StretchRun<Lanes, GateAtInput>{e, plan, fades, w, mod}.run();
        mixOutput(e, plan, w, mod, dcFlip, {outputs[0] + done, outputs[1] + done}, peaks);
        finishStretch<Lanes, GateAtInput>(e, w);
    }
    e.unsettledReads = ((1u << Lanes) - 1u) & ~plan.read;
    e.raiseMeters(peaks.of(0), peaks.of(1), peaks.of(2), peaks.of(3));
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
