#pragma once

// What happens to a tap between its read and the sums: fade, gain, width, balance, limit, split.

#include <algorithm>
#include <limits>

#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// The taps' fades over a stretch. A tap is silent for `fadeHoldLen` frames after its delay was
/// changed and then fades in. The count is common to all taps: a second change restarts the
/// silence of a tap that still fades.
template <int Lanes>
struct FadeTile {
    Tile<Lanes> level;
    bool full = true;  ///< all taps at full level; `level` is not filled

    TESSEL8_INLINE void advance(Engine& e, int frames) {
        using P = Pack<Lanes>;
        const P one = P::all(1.0f);
        P fade = P::load(e.tapFade.v);
        full = !anyLane(fade != one);
        if (full) {
            return;
        }
        const P step = P::all(e.fadeStep);
        const int64_t held = int64_t(e.fadeHoldLen) - e.fadeHoldCount;
        for (int i = 0; i < frames; ++i) {
            if (i >= held) {
                fade = min(fade + step, one);
            }
            level.set(i, fade);
        }
        fade.store(e.tapFade.v);
    }
};

/// The taps' signals: their raw reads under the fade.
template <int Lanes>
void fadeReads(const FadeTile<Lanes>& fade, Workspace<Lanes>& w) {
    for (int i = 0; i < w.frames; ++i) {
        const bool full = fade.full;
        w.signalL.set(i, full ? w.rawL.at(i) : w.rawL.at(i) * fade.level.at(i));
        w.signalR.set(i, full ? w.rawR.at(i) : w.rawR.at(i) * fade.level.at(i));
    }
}

TESSEL8_INLINE void countFrames(Engine& e, int frames) {
    constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
    e.fadeHoldCount += std::min(frames, kMost - e.fadeHoldCount);
}

/// Gain, width matrix and balance.
template <int Lanes>
void amplify(Engine& e, Workspace<Lanes>& w) {
    using P = Pack<Lanes>;
    const float take = e.smooth30.take;
    const float keep = e.smooth30.keep;
    Glide<Lanes> gain(e.tapGainSmooth.v, e.tapGainTarget.v, take, keep);
    Glide<Lanes> panL(e.panGainSmoothL.v, e.panGainTargetL.v, take, keep);
    Glide<Lanes> panR(e.panGainSmoothR.v, e.panGainTargetR.v, take, keep);
    const P direct = P::load(e.widthDirect.v);
    const P cross = P::load(e.widthCross.v);
    const auto place = [&](int i, const P& g, const P& l, const P& r) {
        const P left = w.signalL.at(i) * g;
        const P right = w.signalR.at(i) * g;
        w.signalL.set(i, (left * direct + right * cross) * l);
        w.signalR.set(i, (right * direct + left * cross) * r);
    };
    if (gain.settled && panL.settled && panR.settled) {
        for (int i = 0; i < w.frames; ++i) {
            place(i, gain.value, panL.value, panR.value);
        }
        return;
    }
    for (int i = 0; i < w.frames; ++i) {
        place(i, gain.step(), panL.step(), panR.step());
    }
    gain.value.store(e.tapGainSmooth.v);
    panL.value.store(e.panGainSmoothL.v);
    panR.value.store(e.panGainSmoothR.v);
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

/// Gate, limit and split into direct sound, reverb send and feedback; sums over the taps.
template <int Lanes, bool GateAtInput>
void collect(Engine& e, Workspace<Lanes>& w) {
    using P = Pack<Lanes>;
    const P gate = P::load(e.tapGate.v);
    const P low = P::all(-kSignalLimit);
    const P high = P::all(kSignalLimit);
    const P direct = P::load(e.revDirect.v);
    const P send = P::load(e.revSend.v);
    const P amount = P::load(e.tapFbAmount.v);
    const bool sending = anyLane(send != P::all(0.0f));
    const auto limit = [&](const P& x) {
        return GateAtInput ? clamp(x, low, high) : clamp(x * gate, low, high) * gate;
    };
    LaneSums directL, directR, sendL, sendR;
    for (int i = 0; i < w.frames; ++i) {
        const P left = limit(w.signalL.at(i));
        const P right = limit(w.signalR.at(i));
        const P l = left * direct;
        const P r = right * direct;
        w.postFbL.set(i, l * amount);
        w.postFbR.set(i, r * amount);
        directL.add(i, l);
        directR.add(i, r);
        if (sending) {
            sendL.add(i, left * send);
            sendR.add(i, right * send);
        }
    }
    directL.finish(w.frames, w.sumL);
    directR.finish(w.frames, w.sumR);
    if (sending) {
        sendL.finish(w.frames, w.sendL);
        sendR.finish(w.frames, w.sendR);
    } else {
        std::fill_n(w.sendL.v, w.frames, 0.0f);
        std::fill_n(w.sendR.v, w.frames, 0.0f);
    }
    for (int i = 0; i < w.frames; ++i) {
        w.sumL[i] = clampScalar(w.sumL[i], -kSignalLimit, kSignalLimit);
        w.sumR[i] = clampScalar(w.sumR[i], -kSignalLimit, kSignalLimit);
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
