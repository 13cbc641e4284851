#pragma once

// The filter of the master feedback: a state-variable filter that runs five times a sample, or a
// biquad. Left and right are lanes of one vector (left, right, left, right).

#include "engine/Engine.h"
#include "engine/ModulationStage.h"
#include "engine/Stretch.h"
#include "engine/TapFilter.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// Modulated and smoothed frequency, Hz, for every frame.
inline void sweepFbFrequency(Engine& e, const ModulationRows& mod, int frames, Row& hz) {
    float now = e.fbFreqSmooth;
    for (int i = 0; i < frames; ++i) {
        float target = e.fbFreqBase;
        if (!mod.off) {
            const float sum =
                mod.follower[i] * e.fbEfAmount + mod.lfoPositive[i] * e.fbLfoAmount + 1.0f;
            target *= e.octaveTable.data()[tableIndex(sum * kOctaveScale, kOctaveEntries)];
        }
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

/// The state-variable filter over a stretch. `State` names the output.
template <FbFilterType State>
void runStateVariable(Engine& e, const Row& hz, int frames, Row& left, Row& right) {
    using P = Pack<4>;
    constexpr int kPasses = 5;
    const float reso = e.fbReso;
    const P six = P::all(6.0f);
    const P two = P::all(2.0f);
    P low = P::load(e.fbSvf.low.v);
    P high = P::load(e.fbSvf.high.v);
    P band = P::load(e.fbSvf.band.v);
    P in = P::load(e.fbSvf.in.v);
    for (int i = 0; i < frames; ++i) {
        const float tuning =
            e.svfTable.data()[tableIndex(hz[i] * kFrequencyScale, kFrequencyEntries)];
        const float span = 2.0f / tuning - tuning / 2.0f;
        const float m = span < 2.0f ? span : 2.0f;
        const P f = P::all(tuning);
        const P q = P::all((m * reso) * (m / 4.0f));
        const P signal = stereo(left[i], right[i]);
        P sum = signal;
        for (int pass = 0; pass < kPasses; ++pass) {
            in = signal - q * band;
            low = low + f * band;
            high = in - low;
            if (pass < kPasses - 1) {
                band = f * high - band * band * band / six + band;
            }
            const P& out = State == FbFilterType::SvfLow    ? low
                           : State == FbFilterType::SvfBand ? band
                                                            : high;
            sum = pass == 0 ? out : (sum + out) / two;
        }
        left[i] = sum.part[0][0];
        right[i] = sum.part[0][1];
    }
    low.store(e.fbSvf.low.v);
    high.store(e.fbSvf.high.v);
    band.store(e.fbSvf.band.v);
    in.store(e.fbSvf.in.v);
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

inline void runFbBiquad(Engine& e, const Row& hz, int frames, Row& left, Row& right) {
    using P = Pack<4>;
    const TapFilterKind tapKind = tapKindOf(e.fbFltType);
    const TapFilterKind kinds[] = {tapKind, tapKind, tapKind, tapKind};
    const KindMasks<4> kind(kinds);
    const P q = P::all(e.fbReso);
    const P unity = P::all(1.0f);
    BiquadRun<4, Quad> run(e.fbBq);
    for (int i = 0; i < frames; ++i) {
        const P tangent =
            P::all(e.tanTable.data()[tableIndex(hz[i] * kFrequencyScale, kFrequencyEntries)]);
        const P y = run.step(coefficients<4, false>(kind, tangent, q, unity, unity),
                             stereo(left[i], right[i]));
        left[i] = y.part[0][0];
        right[i] = y.part[0][1];
    }
    run.keep();
}

inline void filterFeedback(Engine& e, const Row& hz, int frames, Row& left, Row& right) {
    switch (e.fbFltType) {
        case FbFilterType::SvfLow:
            runStateVariable<FbFilterType::SvfLow>(e, hz, frames, left, right);
            break;
        case FbFilterType::SvfBand:
            runStateVariable<FbFilterType::SvfBand>(e, hz, frames, left, right);
            break;
        case FbFilterType::SvfHigh:
            runStateVariable<FbFilterType::SvfHigh>(e, hz, frames, left, right);
            break;
        default:
            runFbBiquad(e, hz, frames, left, right);
    }
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
