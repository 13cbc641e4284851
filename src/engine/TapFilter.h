#pragma once

// One second-order filter a tap. Frequency, gain and with them all coefficients move on every
// frame, so that LFO and follower can sweep a filter at full rate; where nothing moves they are
// worked out once a stretch.

#include "engine/BlockPlan.h"
#include "engine/Engine.h"
#include "engine/ModulationStage.h"
#include "engine/Stretch.h"
#include "engine/Tables.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

constexpr float kLowestFrequency = 20.0f;
constexpr float kHighestFrequency = 20000.0f;

/// Modulated and smoothed frequencies of the taps' filters, Hz. They move on whether a filter is
/// on or not, so that a filter that is switched on stands where its knob and the LFO say.
template <int Lanes>
struct FrequencySweep {
    Tile<Lanes> hz;
    bool still;  ///< all frames equal the first

    FrequencySweep(Engine& e, const ModulationRows& mod, int frames) {
        using P = Pack<Lanes>;
        const P base = P::load(e.tapFreqBase.v);
        const P take = P::all(e.smooth250.take);
        const P keep = P::all(e.smooth250.keep);
        const P low = P::all(kLowestFrequency);
        const P high = P::all(kHighestFrequency);
        P now = P::load(e.tapFreqSmooth.v);
        const auto follow = [&](const P& target) {
            return clamp(take * target + keep * now, low, high);
        };
        still = mod.off && !anyLane(follow(base) != now);
        if (still) {
            hz.set(0, now);
            return;
        }
        if (!mod.off) {
            findTargets(e, mod, base, frames);
        }
        for (int i = 0; i < frames; ++i) {
            now = follow(mod.off ? base : hz.at(i));
            hz.set(i, now);
        }
        now.store(e.tapFreqSmooth.v);
    }

    void findTargets(const Engine& e, const ModulationRows& mod, const Pack<Lanes>& base,
                     int frames) {
        using P = Pack<Lanes>;
        const P efAmount = P::load(e.tapEfAmount.v);
        const P lfoAmount = P::load(e.tapLfoAmount.v);
        const P one = P::all(1.0f);
        alignas(32) float negative[kTaps];
        for (int t = 0; t < kTaps; ++t) {
            negative[t] = float(e.tapLfoNegative[t]);
        }
        const Mask<Lanes> usesNegative = P::load(negative) != P::all(0.0f);
        const float* const octaves = e.octaveTable.data();
        for (int i = 0; i < frames; ++i) {
            const P lfo =
                select(usesNegative, P::all(mod.lfoNegative[i]), P::all(mod.lfoPositive[i]));
            const P sum = P::all(mod.follower[i]) * efAmount + lfoAmount * lfo + one;
            hz.set(i, base * lookUp(octaves, sum, kOctaveScale, kOctaveEntries));
        }
    }
};

/// What a lane's kind makes of the common terms. Low- and high-pass families are one form: the
/// high ones run on 1/W and turn the sign of the odd coefficients.
template <int Lanes>
struct KindMasks {
    Mask<Lanes> high, bell, shelf, cut, band;
    Pack<Lanes> sign;  ///< of a1 and b1
    bool anyHigh = false;

    TESSEL8_INLINE explicit KindMasks(const TapFilterKind* kinds) {
        alignas(32) float flags[5][Lanes];
        alignas(32) float signs[Lanes];
        for (int t = 0; t < Lanes; ++t) {
            const TapFilterKind k = kinds[t];
            const bool isHigh = k == TapFilterKind::BandPass || k == TapFilterKind::HighPass ||
                                k == TapFilterKind::HighShelfBoost ||
                                k == TapFilterKind::HighShelfCut;
            const bool isBell = k == TapFilterKind::PeakCut || k == TapFilterKind::PeakBoost;
            const bool isShelf = k >= TapFilterKind::LowShelfBoost;
            const bool isCut = k == TapFilterKind::PeakCut || k == TapFilterKind::LowShelfCut ||
                               k == TapFilterKind::HighShelfCut;
            flags[0][t] = isHigh;
            flags[1][t] = isBell;
            flags[2][t] = isShelf;
            flags[3][t] = isCut;
            flags[4][t] = k == TapFilterKind::BandPass;
            signs[t] = isHigh ? -1.0f : 1.0f;
            anyHigh |= isHigh;
        }
        const auto mask = [](const float* lanes) {
            return Pack<Lanes>::load(lanes) != Pack<Lanes>::all(0.0f);
        };
        high = mask(flags[0]);
        bell = mask(flags[1]);
        shelf = mask(flags[2]);
        cut = mask(flags[3]);
        band = mask(flags[4]);
        sign = Pack<Lanes>::load(signs);
    }
};

/// y = b0 x + b1 x1 + b2 x2 - a1 y1 - a2 y2.
template <int Lanes>
struct Coefficients {
    Pack<Lanes> b0, b1, b2, a1, a2;
};

/// All kinds in one vector form. With t = W (or 1/W), u = t/Q: the plain terms are
/// 1 + t2 + u, 2 (t2 - 1), 1 + t2 - u; the shaped ones put g u in place of u (peak) or
/// n = 1 + g t2 and r t in place of 1 + t2 and u (shelf). A boost has the shaped terms above the
/// plain, a cut below.
template <int Lanes, bool Shaped>
TESSEL8_INLINE Coefficients<Lanes> coefficients(const KindMasks<Lanes>& kind,
                                                const Pack<Lanes>& tangent, const Pack<Lanes>& q,
                                                const Pack<Lanes>& gain, const Pack<Lanes>& root) {
    using P = Pack<Lanes>;
    const P one = P::all(1.0f);
    const P two = P::all(2.0f);
    const P nothing = P::all(0.0f);
    const P t = kind.anyHigh ? select(kind.high, one / tangent, tangent) : tangent;
    const P t2 = t * t;
    const P u = t / q;
    const P sum = one + t2;
    const P plus = sum + u;
    const P minus = sum - u;
    const P middle = two * (t2 - one) * kind.sign;
    const P gu = gain * u;
    if constexpr (!Shaped) {
        Coefficients<Lanes> c;
        c.a1 = middle / plus;
        c.a2 = minus / plus;
        c.b0 = select(kind.band, gu, t2) / plus;
        c.b1 = select(kind.band, nothing, two * c.b0 * kind.sign);
        c.b2 = select(kind.band, nothing - c.b0, c.b0);
        return c;
    } else {
        const P n = one + gain * t2;
        const P rt = root * t;
        const P shapedPlus = select(kind.bell, sum + gu, n + rt);
        const P shapedMinus = select(kind.bell, sum - gu, n - rt);
        const P shapedMiddle = select(kind.bell, middle, two * (n - two) * kind.sign);
        const P denominator = select(kind.cut, shapedPlus, plus);
        const P pass = select(kind.band, gu, t2);
        Mask<Lanes> shaped;
        for (int i = 0; i < Mask<Lanes>::kCount; ++i) {
            shaped.part[i] = kind.bell.part[i] | kind.shelf.part[i];
        }
        const P b0 = select(shaped, select(kind.cut, plus, shapedPlus), pass);
        const P b1 = select(shaped, select(kind.cut, middle, shapedMiddle),
                            select(kind.band, nothing, two * pass * kind.sign));
        const P b2 = select(shaped, select(kind.cut, minus, shapedMinus),
                            select(kind.band, nothing - pass, pass));
        return {b0 / denominator, b1 / denominator, b2 / denominator,
                select(kind.cut, shapedMiddle, middle) / denominator,
                select(kind.cut, shapedMinus, minus) / denominator};
    }
}

/// One channel's histories, held in registers over a stretch.
template <int Lanes, typename Block = TapBlock>
struct BiquadRun {
    Biquad<Block>& state;
    Pack<Lanes> x1, x2, y1, y2;

    TESSEL8_INLINE explicit BiquadRun(Biquad<Block>& s)
        : state(s),
          x1(Pack<Lanes>::load(s.x1.v)),
          x2(Pack<Lanes>::load(s.x2.v)),
          y1(Pack<Lanes>::load(s.y1.v)),
          y2(Pack<Lanes>::load(s.y2.v)) {}

    TESSEL8_INLINE Pack<Lanes> step(const Coefficients<Lanes>& c, const Pack<Lanes>& x) {
        const Pack<Lanes> y = c.b2 * x2 + (c.b0 * x + c.b1 * x1) - c.a1 * y1 - c.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        return y;
    }
    TESSEL8_INLINE void keep() const {
        x1.store(state.x1.v);
        x2.store(state.x2.v);
        y1.store(state.y1.v);
        y2.store(state.y2.v);
    }
};

/// The coefficients of a stretch: one set where nothing moves, else one a frame.
template <int Lanes>
struct CoefficientTiles {
    Tile<Lanes> b0, b1, b2, a1, a2;

    TESSEL8_INLINE void set(int i, const Coefficients<Lanes>& c) {
        b0.set(i, c.b0);
        b1.set(i, c.b1);
        b2.set(i, c.b2);
        a1.set(i, c.a1);
        a2.set(i, c.a2);
    }
    TESSEL8_INLINE Coefficients<Lanes> at(int i) const {
        return {b0.at(i), b1.at(i), b2.at(i), a1.at(i), a2.at(i)};
    }
};

/// Fills the tiles; the answer is whether the coefficients move.
template <int Lanes, bool Shaped>
bool findCoefficients(Engine& e, const FrequencySweep<Lanes>& sweep, const TapFilterKind* kinds,
                      int frames, CoefficientTiles<Lanes>& tiles) {
    using P = Pack<Lanes>;
    const KindMasks<Lanes> kind(kinds);
    const P q = P::load(e.tapQ.v);
    const float* const tangents = e.tanTable.data();
    Glide<Lanes> gain(e.tapFltGainSmooth.v, e.tapFltGainTarget.v, e.smooth30);
    Glide<Lanes> root(e.tapFltRootSmooth.v, e.tapFltRootTarget.v, e.smooth30);
    const auto find = [&](int i) {
        const P tangent = lookUp(tangents, sweep.hz.at(i), kFrequencyScale, kFrequencyEntries);
        return coefficients<Lanes, Shaped>(kind, tangent, q, gain.value, root.value);
    };
    const bool gliding = !gain.settled || !root.settled;
    if (sweep.still && !gliding) {
        tiles.set(0, find(0));
        return false;
    }
    for (int i = 0; i < frames; ++i) {
        if (gliding) {
            gain.step();
            root.step();
        }
        tiles.set(i, find(sweep.still ? 0 : i));
    }
    gain.value.store(e.tapFltGainSmooth.v);
    root.value.store(e.tapFltRootSmooth.v);
    return true;
}

/// The taps' filters as a chain. A tap whose filter is off passes.
template <int Lanes>
struct TapFilterChain {
    using P = Pack<Lanes>;
    Workspace<Lanes>& w;
    const CoefficientTiles<Lanes>& tiles;
    bool moving;
    Mask<Lanes> on;
    BiquadRun<Lanes> left, right;
    Coefficients<Lanes> c;

    TESSEL8_INLINE TapFilterChain(Engine& e, Workspace<Lanes>& workspace,
                                  const Mask<Lanes>& lanesOn,
                                  const CoefficientTiles<Lanes>& coefficients, bool move)
        : w(workspace),
          tiles(coefficients),
          moving(move),
          on(lanesOn),
          left(e.tapBqL),
          right(e.tapBqR),
          c(tiles.at(0)) {}

    TESSEL8_INLINE void step(int i) {
        if (moving) {
            c = tiles.at(i);
        }
        const P l = w.signal[0].at(i);
        const P r = w.signal[1].at(i);
        w.signal[0].set(i, select(on, left.step(c, l), l));
        w.signal[1].set(i, select(on, right.step(c, r), r));
    }

    TESSEL8_INLINE void finish() const {
        left.keep();
        right.keep();
    }
};

/// Moves the filters' frequencies and gains on and hands the chain that the taps' filters need to
/// `run`: the filters, or nothing where all are off.
template <int Lanes, typename Run>
TESSEL8_INLINE void withTapFilters(Engine& e, const BlockPlan& plan, const ModulationRows& mod,
                                   Workspace<Lanes>& w, Run run) {
    const FrequencySweep<Lanes> sweep(e, mod, w.frames);
    TapFilterKind kinds[Lanes];
    alignas(32) float on[Lanes];
    bool shaped = false;
    for (int t = 0; t < Lanes; ++t) {
        // A lane whose filter is off goes with the cheapest form.
        kinds[t] = plan.isFiltered(t) ? e.tapFltKind[t] : TapFilterKind::LowPass;
        on[t] = plan.isFiltered(t) ? 1.0f : 0.0f;
        shaped |= kinds[t] >= TapFilterKind::PeakCut;
    }
    if (!plan.filtered) {
        glideOnly<Lanes>(e.tapFltGainSmooth.v, e.tapFltGainTarget.v, e.smooth30, w.frames);
        glideOnly<Lanes>(e.tapFltRootSmooth.v, e.tapFltRootTarget.v, e.smooth30, w.frames);
        run(NoChain{});
        return;
    }
    CoefficientTiles<Lanes> tiles;
    const bool moving = shaped ? findCoefficients<Lanes, true>(e, sweep, kinds, w.frames, tiles)
                               : findCoefficients<Lanes, false>(e, sweep, kinds, w.frames, tiles);
    const Mask<Lanes> lanesOn = Pack<Lanes>::load(on) != Pack<Lanes>::all(0.0f);
    run(TapFilterChain<Lanes>(e, w, lanesOn, tiles, moving));
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
