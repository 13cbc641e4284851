#pragma once

// The working memory of a sample loop.
//
// A block is computed in stretches of up to `kStretch` frames, stage by stage: all frames of a
// stretch are read from the lines, then all are processed, then all are written. That is the same
// as sample by sample as long as no tap reads what the same stretch writes, so a stretch is never
// longer than the shortest delay that is heard; down to single frames, if need be.

#include <cstdint>

#include "engine/Engine.h"
#include "engine/Simd.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

constexpr int kStretch = 32;

/// One value per frame.
struct alignas(32) Row {
    float v[kStretch];
    float& operator[](int frame) { return v[frame]; }
    float operator[](int frame) const { return v[frame]; }
};

/// One pack of lanes per frame.
template <int Lanes>
struct alignas(32) Tile {
    float v[kStretch][Lanes];
    Pack<Lanes> at(int frame) const { return Pack<Lanes>::load(v[frame]); }
    void set(int frame, const Pack<Lanes>& value) { value.store(v[frame]); }
};

/// What the stages of one stretch hand to each other. L and R are the channels.
template <int Lanes>
struct Workspace {
    int frames = 0;
    Row inL, inR;                  ///< input behind the input gain
    Row wet, dry;                  ///< smoothed mix gains
    Row fbL, fbR;                  ///< master feedback
    Row sumL, sumR;                ///< taps' direct outputs
    Row sendL, sendR;              ///< taps' reverb sends
    Tile<Lanes> rawL, rawR;        ///< reads of the lines
    Tile<Lanes> signalL, signalR;  ///< the taps' signals on their way
    Tile<Lanes> postFbL, postFbR;  ///< the taps' feedback behind their processing
};

/// A one-pole smoother over the lanes of a stretch. Most of the time it stands still: once a step
/// no longer moves it, no later step will, and a stretch needs no more than to notice that.
template <int Lanes>
struct Glide {
    Pack<Lanes> value, pull, keep;
    bool settled;

    TESSEL8_INLINE Glide(const float* state, const float* target, const float takeFactor,
                         const float keepFactor)
        : value(Pack<Lanes>::load(state)),
          pull(Pack<Lanes>::all(takeFactor) * Pack<Lanes>::load(target)),
          keep(Pack<Lanes>::all(keepFactor)),
          settled(!anyLane(pull + keep * value != value)) {}

    TESSEL8_INLINE const Pack<Lanes>& step() {
        value = pull + keep * value;
        return value;
    }
};

/// Moves a smoother over a stretch whose single values nobody needs.
template <int Lanes>
void glideOnly(float* state, const float* target, const Smoothing& smoothing, int frames) {
    Glide<Lanes> glide(state, target, smoothing.take, smoothing.keep);
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
