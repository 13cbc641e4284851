#pragma once

// The working memory of a sample loop.
//
// A block is computed in stretches of up to `kStretch` frames, stage by stage: all frames of a
// stretch are read from the lines, then all are processed, then all are written. That is the same
// as sample by sample as long as no tap reads what the same stretch writes, so a stretch is never
// longer than the shortest delay that is heard; down to single frames, if need be.
//
// Where a tap's signal does not depend on its own last output, its frames are computed side by
// side, as a row. Where it does, as in a filter, the taps are: then frames are columns of a tile.

#include <cstdint>

#include "engine/Engine.h"
#include "engine/Simd.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

constexpr int kStretch = 32;
constexpr int kPack = 8;
constexpr int kChannels = 2;

using RowPack = Pack<kPack>;

/// One value per frame. Rows are computed in whole packs: what stands behind the stretch's frames
/// means nothing.
struct alignas(32) Row {
    float v[kStretch];
    float& operator[](int frame) { return v[frame]; }
    float operator[](int frame) const { return v[frame]; }
    TESSEL8_INLINE RowPack at(int frame) const { return RowPack::load(v + frame); }
    TESSEL8_INLINE void set(int frame, const RowPack& value) { value.store(v + frame); }
};

inline constexpr Row kSilentRow{};

/// A row that knows the value of the frame before its first.
struct alignas(32) LinkedRow {
    float v[kPack + kStretch];
    float& operator[](int frame) { return v[kPack + frame]; }
    float operator[](int frame) const { return v[kPack + frame]; }
    void setPrevious(float value) { v[kPack - 1] = value; }
    TESSEL8_INLINE void set(int frame, const RowPack& value) { value.store(v + kPack + frame); }
    /// The values of one frame earlier.
    TESSEL8_INLINE RowPack before(int frame) const {
        RowPack r;
        __builtin_memcpy(&r, v + kPack - 1 + frame, sizeof r);
        return r;
    }
};

/// Calls `step` with the first frame of every pack of a stretch.
template <typename Step>
TESSEL8_INLINE void inPacks(int frames, Step step) {
    for (int i = 0; i < frames; i += kPack) {
        step(i);
    }
}

/// Runs chains of frame-by-frame steps side by side: each waits for its own last output, and
/// while one waits the others compute. A chain may use what those before it did to the frame.
template <typename... Chains>
TESSEL8_INLINE void runTogether(int frames, Chains... chains) {
    for (int i = 0; i < frames; ++i) {
        (chains.step(i), ...);
    }
    (chains.finish(), ...);
}

/// The chain that does nothing.
struct NoChain {
    void step(int) const {}
    void finish() const {}
};

/// One pack of lanes per frame.
template <int Lanes>
struct alignas(32) Tile {
    float v[kStretch][Lanes];
    TESSEL8_INLINE Pack<Lanes> at(int frame) const { return Pack<Lanes>::load(v[frame]); }
    TESSEL8_INLINE void set(int frame, const Pack<Lanes>& value) { value.store(v[frame]); }
};

/// What the stages of one stretch hand to each other. The first index is the channel.
template <int Lanes>
struct Workspace {
    int frames = 0;
    Row in[kChannels] = {};  ///< input behind the input gain
    Row wet, dry;            ///< smoothed mix gains
    Row fb[kChannels];       ///< master feedback
    Row sum[kChannels];      ///< taps' direct outputs
    Row send[kChannels];     ///< taps' reverb sends
    bool sending = false;    ///< `send` is filled

    /// Raw reads of the lines and, under the fade, what the taps hear of them. Both point at
    /// silence for a tap that is not read, else into the stores below or at the input.
    const Row* raw[kChannels][kTaps];
    const Row* tap[kChannels][kTaps];
    Row rawStore[kChannels][kTaps];
    Row tapStore[kChannels][kTaps];

    LinkedRow post[kChannels][kTaps];  ///< feedback from behind the taps, where it is used
    float lastPost[kChannels][kTaps];  ///< its last frame
    Tile<Lanes> signal[kChannels];     ///< the taps as lanes, where they need it
};

/// A one-pole smoother over the lanes of a stretch. Most of the time it stands still: once a step
/// no longer moves it, no later step will, and a stretch needs no more than to notice that.
template <int Lanes>
struct Glide {
    Pack<Lanes> value, pull, keep;
    bool settled;

    TESSEL8_INLINE Glide(const float* state, const float* target, const Smoothing& smoothing)
        : value(Pack<Lanes>::load(state)),
          pull(Pack<Lanes>::all(smoothing.take) * Pack<Lanes>::load(target)),
          keep(Pack<Lanes>::all(smoothing.keep)),
          settled(!anyLane(pull + keep * value != value)) {}

    TESSEL8_INLINE const Pack<Lanes>& step() {
        value = pull + keep * value;
        return value;
    }
};

/// Moves a smoother over a stretch whose single values nobody needs.
template <int Lanes>
void glideOnly(float* state, const float* target, const Smoothing& smoothing, int frames) {
    Glide<Lanes> glide(state, target, smoothing);
    if (glide.settled) {
        return;
    }
    for (int i = 0; i < frames; ++i) {
        glide.step();
    }
    glide.value.store(state);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
