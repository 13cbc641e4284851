#pragma once

// What happens to a tap between its read and the sums: gain, width, balance, saturators, limit,
// split. Taps without a filter go as rows; as soon as one has a filter on, or a gain still moves,
// all go as lanes of a tile.

#include <algorithm>
#include <limits>

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Lines.h"
#include "engine/Saturator.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

TESSEL8_INLINE void countFrames(Engine& e, int frames) {
    constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
    e.fadeHoldCount += frames < kMost - e.fadeHoldCount ? frames : kMost - e.fadeHoldCount;
}

/// The smoothed gains of a stretch.
template <int Lanes>
struct TapGains {
    Glide<Lanes> gain, panL, panR;

    explicit TapGains(const Engine& e)
        : gain(e.tapGainSmooth.v, e.tapGainTarget.v, e.smooth30),
          panL(e.panGainSmoothL.v, e.panGainTargetL.v, e.smooth30),
          panR(e.panGainSmoothR.v, e.panGainTargetR.v, e.smooth30) {}

    bool settled() const { return gain.settled && panL.settled && panR.settled; }
    void keep(Engine& e) const {
        gain.value.store(e.tapGainSmooth.v);
        panL.value.store(e.panGainSmoothL.v);
        panR.value.store(e.panGainSmoothR.v);
    }
};

/// Gain, width matrix and balance of one frame or one tap; `signal` is left and right.
template <typename P>
TESSEL8_INLINE void place(P (&signal)[kChannels], const P& gain, const P& direct, const P& cross,
                          const P& panL, const P& panR) {
    const P left = signal[0] * gain;
    const P right = signal[1] * gain;
    signal[0] = (left * direct + right * cross) * panL;
    signal[1] = (right * direct + left * cross) * panR;
}

/// The limit behind a tap, and its switch where that acts on the output.
template <bool GateAtInput, typename P>
TESSEL8_INLINE P limited(const P& x, const P& gate) {
    const P low = P::all(-kSignalLimit);
    const P high = P::all(kSignalLimit);
    return GateAtInput ? clamp(x, low, high) : clamp(x * gate, low, high) * gate;
}

/// Sums of one value a tap: the groups are added lane by lane, then (0 + 2) + (1 + 3).
template <int Lanes>
TESSEL8_INLINE RowPack sumOfTaps(const Row* const (&rows)[kTaps], int i) {
    const auto lane = [&](int k) {
        return Lanes == kTaps ? rows[k]->at(i) + rows[k + Lanes - 4]->at(i) : rows[k]->at(i);
    };
    return (lane(0) + lane(2)) + (lane(1) + lane(3));
}

TESSEL8_INLINE void limitSums(int frames, Row (&sums)[kChannels]) {
    for (Row& row : sums) {
        inPacks(frames, [&](int i) {
            row.set(i, clamp(row.at(i), RowPack::all(-kSignalLimit), RowPack::all(kSignalLimit)));
        });
    }
}

/// All taps as rows, from their reads to the sums.
template <int Lanes, bool GateAtInput>
void runTapRows(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    Row direct[kChannels][Lanes];
    Row sends[kChannels][Lanes];
    const Row* directOf[kChannels][kTaps];
    const Row* sendOf[kChannels][kTaps];
    w.sending = false;
    for (int t = 0; t < Lanes; ++t) {
        const auto lane = size_t(t);
        const bool sounds = plan.reads(t) && (GateAtInput || e.tapGate[lane] != 0.0f);
        for (int c = 0; c < kChannels; ++c) {
            directOf[c][t] = sounds ? &direct[c][t] : &kSilentRow;
            sendOf[c][t] = &kSilentRow;
        }
        w.lastPost[0][t] = w.lastPost[1][t] = 0.0f;
        if (!sounds) {
            for (int c = 0; plan.postUsed && c < kChannels; ++c) {
                inPacks(w.frames, [&](int i) { w.post[c][t].set(i, RowPack::all(0.0f)); });
            }
            continue;
        }
        const auto all = [&](const TapBlock& block) { return RowPack::all(block[lane]); };
        const RowPack gain = all(e.tapGainSmooth), gate = all(e.tapGate);
        const RowPack straight = all(e.widthDirect), cross = all(e.widthCross);
        const RowPack panL = all(e.panGainSmoothL), panR = all(e.panGainSmoothR);
        const RowPack split = all(e.revDirect), send = all(e.revSend);
        const RowPack ceiling = all(e.tapCeiling), amount = all(e.tapFbAmount);
        const bool saturating = e.tapSaturatorPre[lane] != 0.0f || e.tapSaturatorPost[lane] != 0.0f;
        const bool sending = e.revSend[lane] != 0.0f;
        w.sending |= sending;
        inPacks(w.frames, [&](int i) {
            RowPack x[] = {w.tap[0][t]->at(i), w.tap[1][t]->at(i)};
            place(x, gain, straight, cross, panL, panR);
            for (int c = 0; c < kChannels; ++c) {
                const RowPack v =
                    limited<GateAtInput>(saturating ? saturated(x[c], ceiling) : x[c], gate);
                const RowPack d = v * split;
                direct[c][t].set(i, d);
                if (sending) {
                    sends[c][t].set(i, v * send);
                }
                if (plan.postUsed) {
                    w.post[c][t].set(i, d * amount);
                }
            }
        });
        if (sending) {
            sendOf[0][t] = &sends[0][t];
            sendOf[1][t] = &sends[1][t];
        }
        for (int c = 0; c < kChannels; ++c) {
            w.lastPost[c][t] = direct[c][t][w.frames - 1] * e.tapFbAmount[lane];
        }
    }
    for (int c = 0; c < kChannels; ++c) {
        inPacks(w.frames, [&](int i) { w.sum[c].set(i, sumOfTaps<Lanes>(directOf[c], i)); });
        if (w.sending) {
            inPacks(w.frames, [&](int i) { w.send[c].set(i, sumOfTaps<Lanes>(sendOf[c], i)); });
        }
    }
    limitSums(w.frames, w.sum);
}

/// The taps as lanes up to their filters.
template <int Lanes>
void prepareTapLanes(Engine& e, TapGains<Lanes>& gains, Workspace<Lanes>& w) {
    using P = Pack<Lanes>;
    for (int c = 0; c < kChannels; ++c) {
        for (int first = 0; first < Lanes; first += 4) {
            rowsToTile(w.tap[c], first, w.frames, w.signal[c]);
        }
    }
    const P direct = P::load(e.widthDirect.v);
    const P cross = P::load(e.widthCross.v);
    const bool moving = !gains.settled();
    for (int i = 0; i < w.frames; ++i) {
        if (moving) {
            gains.gain.step();
            gains.panL.step();
            gains.panR.step();
        }
        P x[] = {w.signal[0].at(i), w.signal[1].at(i)};
        place(x, gains.gain.value, direct, cross, gains.panL.value, gains.panR.value);
        w.signal[0].set(i, x[0]);
        w.signal[1].set(i, x[1]);
    }
    gains.keep(e);
    saturateTaps(e, e.tapSaturatorPre, w);
}

/// Sums over the lanes of a stretch. The frames are folded down to four lanes one by one and
/// then, four frames at a time, summed as columns: (0 + 2) + (1 + 3).
struct LaneSums {
    Tile<4> folded;

    template <int Lanes>
    TESSEL8_INLINE void add(int frame, const Pack<Lanes>& lanes) {
        folded.set(frame, foldToFour(lanes));
    }
    TESSEL8_INLINE void finish(int frames, Row& sums) const {
        for (int i = 0; i < frames; i += 4) {
            F4 a = folded.at(i).part[0];
            F4 b = folded.at(i + 1).part[0];
            F4 c = folded.at(i + 2).part[0];
            F4 d = folded.at(i + 3).part[0];
            transpose(a, b, c, d);
            storeUnaligned(&sums.v[i], (a + c) + (b + d));
        }
    }
};

/// The taps as lanes behind their filters, to the sums.
template <int Lanes, bool GateAtInput>
void finishTapLanes(Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    using P = Pack<Lanes>;
    saturateTaps(e, e.tapSaturatorPost, w);
    const P gate = P::load(e.tapGate.v);
    const P split = P::load(e.revDirect.v);
    const P send = P::load(e.revSend.v);
    const P amount = P::load(e.tapFbAmount.v);
    w.sending = anyLane(send != P::all(0.0f));
    alignas(32) float last[Lanes];
    for (int c = 0; c < kChannels; ++c) {
        LaneSums direct;
        LaneSums sends;
        Tile<Lanes>& signal = w.signal[c];
        for (int i = 0; i < w.frames; ++i) {
            const P v = limited<GateAtInput>(signal.at(i), gate);
            const P d = v * split;
            direct.add(i, d);
            if (w.sending) {
                sends.add(i, v * send);
            }
            signal.set(i, d * amount);
        }
        direct.finish(w.frames, w.sum[c]);
        if (w.sending) {
            sends.finish(w.frames, w.send[c]);
        }
        signal.at(w.frames - 1).store(last);
        for (int t = 0; t < Lanes; ++t) {
            w.lastPost[c][t] = last[t];
        }
        for (int first = 0; plan.postUsed && first < Lanes; first += 4) {
            tileToRows(signal, first, w.frames, w.post[c]);
        }
    }
    limitSums(w.frames, w.sum);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
