#pragma once

// Between the delay lines, one piece of memory a tap, and the tiles, one pack of taps a frame.

#include <cstdint>

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

alignas(32) constexpr float kSilence[kStretch] = {};

enum class Channel { Left, Right };

template <typename E>
TESSEL8_INLINE auto* lineOf(E& e, Channel channel, int tap) {
    auto& rings = channel == Channel::Left ? e.ringL : e.ringR;
    return rings[size_t(tap / DelayRing::kLines)].line(tap % DelayRing::kLines);
}

/// Where the raw read of a tap stands for the next `kStretch` frames. A tap without delay finds
/// the input alone: the feedback comes to its line after this read.
template <bool GateAtInput>
TESSEL8_INLINE const float* rawRead(const Engine& e, const BlockPlan& plan, Channel channel,
                                    int tap, const Row& input) {
    if (!plan.reads(tap)) {
        return kSilence;
    }
    if (plan.readsAtZero(tap)) {
        const bool closed = GateAtInput && e.tapGate[size_t(tap)] == 0.0f;
        return closed ? kSilence : input.v;
    }
    return lineOf(e, channel, tap) + e.readPos[tap];
}

/// Fills a tile with the reads of the loop's taps. Reads whole vectors, so up to three floats
/// behind the stretch; those frames of the tile mean nothing.
template <int Lanes, bool GateAtInput>
void gatherReads(const Engine& e, const BlockPlan& plan, Channel channel, const Row& input,
                 int frames, Tile<Lanes>& tile) {
    for (int group = 0; group < Lanes; group += 4) {
        const float* from[4];
        for (int k = 0; k < 4; ++k) {
            from[k] = rawRead<GateAtInput>(e, plan, channel, group + k, input);
        }
        for (int i = 0; i < frames; i += 4) {
            F4 a = loadUnaligned(from[0] + i);
            F4 b = loadUnaligned(from[1] + i);
            F4 c = loadUnaligned(from[2] + i);
            F4 d = loadUnaligned(from[3] + i);
            transpose(a, b, c, d);
            storeUnaligned(&tile.v[i][group], a);
            storeUnaligned(&tile.v[i + 1][group], b);
            storeUnaligned(&tile.v[i + 2][group], c);
            storeUnaligned(&tile.v[i + 3][group], d);
        }
    }
}

/// Writes a tile to the lines at `writePos`: exactly `frames` frames, for what stands behind them
/// is the oldest signal in the ring.
template <int Lanes>
void scatterWrites(Engine& e, Channel channel, int frames, const Tile<Lanes>& tile) {
    for (int group = 0; group < Lanes; group += 4) {
        float* to[4];
        for (int k = 0; k < 4; ++k) {
            to[k] = lineOf(e, channel, group + k) + e.writePos;
        }
        int i = 0;
        for (; i + 4 <= frames; i += 4) {
            F4 a = loadUnaligned(&tile.v[i][group]);
            F4 b = loadUnaligned(&tile.v[i + 1][group]);
            F4 c = loadUnaligned(&tile.v[i + 2][group]);
            F4 d = loadUnaligned(&tile.v[i + 3][group]);
            transpose(a, b, c, d);
            storeUnaligned(to[0] + i, a);
            storeUnaligned(to[1] + i, b);
            storeUnaligned(to[2] + i, c);
            storeUnaligned(to[3] + i, d);
        }
        for (; i < frames; ++i) {
            for (int k = 0; k < 4; ++k) {
                to[k][i] = tile.v[i][group + k];
            }
        }
    }
}

/// Writes the same row to the lines of taps `first` to `last` - 1.
inline void fillLines(Engine& e, Channel channel, int first, int last, int frames, const Row& row) {
    for (int tap = first; tap < last; ++tap) {
        float* const to = lineOf(e, channel, tap) + e.writePos;
        if (frames == kStretch) {
            __builtin_memcpy(to, row.v, sizeof row.v);
        } else {
            __builtin_memcpy(to, row.v, size_t(frames) * sizeof(float));
        }
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
