#pragma once

// The filter of the master feedback: a state-variable filter that runs five times a sample, or a
// biquad. Left and right are lanes of one vector (left, right, left, right).

#include "engine/Engine.h"
#include "engine/ModulationStage.h"
#include "engine/Stretch.h"
#include "engine/TapFilter.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// Modulated and smoothed frequency of the master feedback's filter, Hz, frame by frame.
inline void sweepFbFrequency(Engine& e, const ModulationRows& mod, int frames, Row& hz) {
    if (!mod.off) {
        for (int i = 0; i < frames; ++i) {
            const float sum =
                mod.follower[i] * e.fbEfAmount + mod.lfoPositive[i] * e.fbLfoAmount + 1.0f;
            hz[i] =
                e.fbFreqBase * e.octaveTable.data()[tableIndex(sum * kOctaveScale, kOctaveEntries)];
        }
    }
    float now = e.fbFreqSmooth;
    for (int i = 0; i < frames; ++i) {
        const float target = mod.off ? e.fbFreqBase : hz[i];
        now = clampScalar(e.smooth250.take * target + e.smooth250.keep * now, kLowestFrequency,
                          kHighestFrequency);
        hz[i] = now;
    }
    e.fbFreqSmooth = now;
}

TESSEL8_INLINE Pack<4> stereo(float left, float right) {
    Pack<4> p;
    p.part[0] = F4{left, right, left, right};
    return p;
}

/// The state-variable filter as a chain: five passes a sample, the output a mean of all passes in
/// which the later ones weigh more.
struct StateVariableChain {
    using P = Pack<4>;
    static constexpr int kPasses = 5;
    /// Far above anything the filter gives while it filters.
    static constexpr float kStateLimit = 1.0e9f;
    Engine& e;
    Row* signal;
    const Row& tuning;   ///< f
    const Row& damping;  ///< q
    Mask<4> takesLow, takesBand;
    P in, low, high, band;

    StateVariableChain(Engine& engine, const Row& f, const Row& q, Row* channels)
        : e(engine),
          signal(channels),
          tuning(f),
          damping(q),
          in(P::load(engine.fbSvf.in.v)),
          low(P::load(engine.fbSvf.low.v)),
          high(P::load(engine.fbSvf.high.v)),
          band(P::load(engine.fbSvf.band.v)) {
        const auto when = [](bool on) { return P::all(on ? 1.0f : 0.0f) != P::all(0.0f); };
        takesLow = when(e.fbFltType == FbFilterType::SvfLow);
        takesBand = when(e.fbFltType == FbFilterType::SvfBand);
    }

    TESSEL8_INLINE void step(int i) {
        const P f = P::all(tuning[i]);
        const P q = P::all(damping[i]);
        const P x = stereo(signal[0][i], signal[1][i]);
        P sum = x;
        for (int pass = 0; pass < kPasses; ++pass) {
            in = x - q * band;
            low = low + f * band;
            high = in - low;
            if (pass < kPasses - 1) {
                band = f * high - band * band * band / P::all(6.0f) + band;
            }
            const P out = select(takesLow, low, select(takesBand, band, high));
            sum = pass == 0 ? out : (sum + out) / P::all(2.0f);
        }
        // The cube in the band's law has no way back from an overflow: a channel that gets there
        // starts again from silence.
        const Mask<4> sane = abs(band) + abs(low) < P::all(kStateLimit);
        if (__builtin_expect(!everyLane(sane), 0)) {
            const P nothing = P::all(0.0f);
            band = select(sane, band, nothing);
            low = select(sane, low, nothing);
            sum = select(sane, sum, nothing);
        }
        signal[0][i] = sum.part[0][0];
        signal[1][i] = sum.part[0][1];
    }

    TESSEL8_INLINE void finish() const {
        in.store(e.fbSvf.in.v);
        low.store(e.fbSvf.low.v);
        high.store(e.fbSvf.high.v);
        band.store(e.fbSvf.band.v);
    }
};

/// f and q of the state-variable filter for every frame.
inline void tuneStateVariable(const Engine& e, const Row& hz, int frames, Row& f, Row& q) {
    for (int i = 0; i < frames; ++i) {
        f[i] = e.svfTable.data()[tableIndex(hz[i] * kFrequencyScale, kFrequencyEntries)];
    }
    for (int i = 0; i < frames; ++i) {
        const float span = 2.0f / f[i] - f[i] / 2.0f;
        const float m = span < 2.0f ? span : 2.0f;
        q[i] = (m * e.fbReso) * (m / 4.0f);
    }
}

TESSEL8_INLINE TapFilterKind tapKindOf(FbFilterType type) {
    switch (type) {
        case FbFilterType::BiquadBand:
            return TapFilterKind::BandPass;
        case FbFilterType::BiquadHigh:
            return TapFilterKind::HighPass;
        default:
            return TapFilterKind::LowPass;
    }
}

/// The biquad as a chain.
struct FbBiquadChain {
    using P = Pack<4>;
    Row* signal;
    const CoefficientTiles<4>& tiles;
    BiquadRun<4, Quad> run;

    TESSEL8_INLINE void step(int i) {
        const P y = run.step(tiles.at(i), stereo(signal[0][i], signal[1][i]));
        signal[0][i] = y.part[0][0];
        signal[1][i] = y.part[0][1];
    }
    TESSEL8_INLINE void finish() const { run.keep(); }
};

inline void findFbCoefficients(const Engine& e, const Row& hz, int frames,
                               CoefficientTiles<4>& tiles) {
    using P = Pack<4>;
    const TapFilterKind tapKind = tapKindOf(e.fbFltType);
    const TapFilterKind kinds[] = {tapKind, tapKind, tapKind, tapKind};
    const KindMasks<4> kind(kinds);
    const P q = P::all(e.fbReso);
    const P unity = P::all(1.0f);
    for (int i = 0; i < frames; ++i) {
        const P tangent =
            P::all(e.tanTable.data()[tableIndex(hz[i] * kFrequencyScale, kFrequencyEntries)]);
        tiles.set(i, coefficients<4, false>(kind, tangent, q, unity, unity));
    }
}

/// Moves the frequency on and hands the chain that the master feedback's filter needs to `run`.
template <typename Run>
TESSEL8_INLINE void withFeedbackFilter(Engine& e, const ModulationRows& mod, int frames,
                                       Row* signal, Run run) {
    Row hz;
    sweepFbFrequency(e, mod, frames, hz);
    if (!e.fbFilterOn) {
        run(NoChain{});
    } else if (e.fbFltType <= FbFilterType::SvfHigh) {
        Row f;
        Row q;
        tuneStateVariable(e, hz, frames, f, q);
        run(StateVariableChain(e, f, q, signal));
    } else {
        CoefficientTiles<4> tiles;
        findFbCoefficients(e, hz, frames, tiles);
        run(FbBiquadChain{signal, tiles, BiquadRun<4, Quad>(e.fbBq)});
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
