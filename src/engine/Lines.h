#pragma once

// Reading the delay lines: raw reads, the fade behind a delay change, and the way from rows (one
// tap's frames) to a tile (one frame's taps).

#include <cstdint>

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

template <typename E>
TESSEL8_INLINE auto* lineOf(E& e, int channel, int tap) {
    auto& rings = channel == 0 ? e.ringL : e.ringR;
    return rings[size_t(tap / DelayRing::kLines)].line(tap % DelayRing::kLines);
}

/// Asks for the cache lines of the row behind, which the next stretch will want. With up to 32
/// lines read and written at once the processor's own prefetching loses track.
template <int ForWriting>
TESSEL8_INLINE void prefetchRow(const float* row) {
    __builtin_prefetch(row, ForWriting);
    __builtin_prefetch(row + 16, ForWriting);
}

/// Points at the raw reads of all taps. A tap without delay finds the input alone: the feedback
/// comes to its line after this read.
template <int Lanes, bool GateAtInput>
void gatherReads(const Engine& e, const BlockPlan& plan, Workspace<Lanes>& w) {
    for (int c = 0; c < kChannels; ++c) {
        for (int t = 0; t < kTaps; ++t) {
            const Row*& raw = w.raw[c][t];
            if (!plan.reads(t)) {
                raw = &kSilentRow;
            } else if (plan.readsAtZero(t)) {
                const bool closed = GateAtInput && e.tapGate[size_t(t)] == 0.0f;
                raw = closed ? &kSilentRow : &w.in[c];
            } else {
                // A whole row at once; the gap behind a line has room for what is too much.
                const float* const from = lineOf(e, c, t) + e.readPos[t];
                __builtin_memcpy(w.rawStore[c][t].v, from, sizeof(Row));
                prefetchRow<0>(from + kStretch);
                raw = &w.rawStore[c][t];
            }
            w.tap[c][t] = raw;
        }
    }
}

/// The taps' fades over a stretch. A tap is silent for `fadeHoldLen` frames after its delay was
/// changed and then fades in. The count is common to all taps: a second change restarts the
/// silence of a tap that still fades.
struct Fades {
    Row level[kTaps];
    uint32_t fading = 0;  ///< taps whose level is not full, one bit a tap

    bool isFull(int tap) const { return !(fading >> tap & 1u); }

    template <int Lanes>
    void advance(Engine& e, int frames) {
        fading = 0;
        const int64_t held = int64_t(e.fadeHoldLen) - e.fadeHoldCount;
        for (int t = 0; t < Lanes; ++t) {
            float fade = e.tapFade[size_t(t)];
            if (fade == 1.0f) {
                continue;
            }
            fading |= 1u << t;
            for (int i = 0; i < frames; ++i) {
                if (i >= held) {
                    fade += e.fadeStep;
                    fade = fade < 1.0f ? fade : 1.0f;
                }
                level[t][i] = fade;
            }
            e.tapFade[size_t(t)] = fade;
        }
    }

    /// Puts a tap's read under its fade.
    template <int Lanes>
    void apply(Workspace<Lanes>& w, int t) const {
        for (int c = 0; c < kChannels; ++c) {
            const Row& from = *w.tap[c][t];
            Row& to = w.tapStore[c][t];
            inPacks(w.frames, [&](int i) { to.set(i, from.at(i) * level[t].at(i)); });
            w.tap[c][t] = &to;
        }
    }

    template <int Lanes>
    void applyAll(Workspace<Lanes>& w) const {
        for (int t = 0; fading && t < Lanes; ++t) {
            if (!isFull(t)) {
                apply(w, t);
            }
        }
    }
};

/// A tap without delay hears its line as this very stretch leaves it.
template <int Lanes>
void readWritten(const Engine& e, const BlockPlan& plan, const Fades& fades, Workspace<Lanes>& w) {
    for (int t = 0; plan.zeroDelay && t < Lanes; ++t) {
        if (!plan.readsAtZero(t)) {
            continue;
        }
        for (int c = 0; c < kChannels; ++c) {
            __builtin_memcpy(w.tapStore[c][t].v, lineOf(e, c, t) + e.writePos, sizeof(Row));
            w.tap[c][t] = &w.tapStore[c][t];
        }
        if (!fades.isFull(t)) {
            fades.apply(w, t);
        }
    }
}

/// The last frame of every read, for the frame that follows.
template <int Lanes>
void keepReads(Engine& e, const Workspace<Lanes>& w) {
    for (int t = 0; t < Lanes; ++t) {
        e.tapReadL[size_t(t)] = (*w.tap[0][t])[w.frames - 1];
        e.tapReadR[size_t(t)] = (*w.tap[1][t])[w.frames - 1];
    }
}

/// Turns four rows into four lanes of a tile, or back.
template <int Lanes>
TESSEL8_INLINE void rowsToTile(const Row* const* rows, int first, int frames, Tile<Lanes>& tile) {
    for (int i = 0; i < frames; i += 4) {
        F4 a = loadUnaligned(&rows[first]->v[i]);
        F4 b = loadUnaligned(&rows[first + 1]->v[i]);
        F4 c = loadUnaligned(&rows[first + 2]->v[i]);
        F4 d = loadUnaligned(&rows[first + 3]->v[i]);
        transpose(a, b, c, d);
        storeUnaligned(&tile.v[i][first], a);
        storeUnaligned(&tile.v[i + 1][first], b);
        storeUnaligned(&tile.v[i + 2][first], c);
        storeUnaligned(&tile.v[i + 3][first], d);
    }
}

template <int Lanes>
TESSEL8_INLINE void tileToRows(const Tile<Lanes>& tile, int first, int frames, LinkedRow* rows) {
    for (int i = 0; i < frames; i += 4) {
        F4 a = loadUnaligned(&tile.v[i][first]);
        F4 b = loadUnaligned(&tile.v[i + 1][first]);
        F4 c = loadUnaligned(&tile.v[i + 2][first]);
        F4 d = loadUnaligned(&tile.v[i + 3][first]);
        transpose(a, b, c, d);
        storeUnaligned(&rows[first][i], a);
        storeUnaligned(&rows[first + 1][i], b);
        storeUnaligned(&rows[first + 2][i], c);
        storeUnaligned(&rows[first + 3][i], d);
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
