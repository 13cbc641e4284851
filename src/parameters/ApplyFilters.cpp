// The filters of the taps and of the master feedback.

#include <algorithm>
#include <cmath>

#include "parameters/Conversions.h"
#include "parameters/FilterLaws.h"
#include "parameters/Parameters.h"

namespace tessel8 {

namespace {

/// What a step of `TypeFT` stands for; the peak's kind depends on its gain as well.
struct TapFilterType {
    TapFilterKind kind;
    double qRange;
    float (*gain)(float);  ///< null: the type has no gain and leaves it as it was
};

constexpr TapFilterType kTapFilterTypes[] = {
    {TapFilterKind::LowPass, kNormalQ, nullptr},
    {TapFilterKind::BandPass, kSharpQ, gainUpLaw},
    {TapFilterKind::HighPass, kNormalQ, nullptr},
    {TapFilterKind::PeakBoost, kSharpQ, peakGainLaw},
    {TapFilterKind::LowShelfBoost, kNormalQ, gainUpLaw},
    {TapFilterKind::LowShelfCut, kNormalQ, gainDownLaw},
    {TapFilterKind::HighShelfBoost, kNormalQ, gainUpLaw},
    {TapFilterKind::HighShelfCut, kNormalQ, gainDownLaw},
};
constexpr int32_t kTapFilterSteps = 8;
constexpr int32_t kFbFilterSteps = 6;

bool isPeak(TapFilterKind kind) {
    return kind == TapFilterKind::PeakCut || kind == TapFilterKind::PeakBoost;
}

TapFilterKind peakKind(float gain) {
    return gain >= 0.5f ? TapFilterKind::PeakBoost : TapFilterKind::PeakCut;
}

}  // namespace

void Parameters::setTapFilterGain(int tap, float gain) {
    engine.tapFltGainTarget[size_t(tap)] = finite(gain);
}

void Parameters::applyTypeFT(int tap, float v) {
    const auto lane = size_t(tap);
    if (loading()) {
        tapFltTypeIdx.fill(kNoType);
    }
    keep(Family::TypeFT, v, tap);
    const int32_t step = nearestStep(v, kTapFilterSteps);
    if (step != tapFltTypeIdx[lane]) {
        engine.clearTapFilter(tap);
        tapFltTypeIdx[lane] = step;
        if (step >= 0 && step < kTapFilterSteps) {
            const TapFilterType& type = kTapFilterTypes[step];
            const float gain = kept(Family::GainFT, tap);
            engine.tapFltKind[tap] = isPeak(type.kind) ? peakKind(gain) : type.kind;
            engine.tapQ[lane] = finite(qLaw(kept(Family::ResoFT, tap), type.qRange));
            if (type.gain) {
                setTapFilterGain(tap, type.gain(gain));
            }
        }
    }
    engine.tapFltRootTarget[lane] = std::sqrt(2.0f * engine.tapFltGainTarget[lane]);
    engine.snapTapFilterGain(tap);
}

void Parameters::applyFreqFT(int tap, float v) {
    keep(Family::FreqFT, v, tap);
    engine.tapFreqBase[size_t(tap)] = finite(frequencyLaw(v));
}

void Parameters::applyResoFT(int tap, float v) {
    keep(Family::ResoFT, v, tap);
    const TapFilterKind kind = engine.tapFltKind[tap];
    const bool sharp = kind == TapFilterKind::BandPass || kind == TapFilterKind::PeakCut;
    engine.tapQ[size_t(tap)] = finite(qLaw(v, sharp ? kSharpQ : kNormalQ));
}

void Parameters::applyGainFT(int tap, float v) {
    keep(Family::GainFT, v, tap);
    switch (engine.tapFltKind[tap]) {
        case TapFilterKind::LowPass:
        case TapFilterKind::HighPass:
            break;
        case TapFilterKind::BandPass:
        case TapFilterKind::LowShelfBoost:
        case TapFilterKind::HighShelfBoost:
            setTapFilterGain(tap, gainUpLaw(v));
            break;
        case TapFilterKind::PeakCut:
        case TapFilterKind::PeakBoost:
            engine.tapFltKind[tap] = peakKind(v);
            setTapFilterGain(tap, peakGainLaw(v));
            break;
        case TapFilterKind::LowShelfCut:
        case TapFilterKind::HighShelfCut:
            setTapFilterGain(tap, gainDownLaw(v));
            break;
    }
    engine.tapFltRootTarget[size_t(tap)] = std::sqrt(2.0f * engine.tapFltGainTarget[size_t(tap)]);
}

void Parameters::applyActFltT(int tap, float v) {
    engine.clearTapFilter(tap);
    keep(Family::ActFltT, switched(v), tap);
    engine.tapFilterOn[size_t(tap)] = kept(Family::ActFltT, tap);
}

void Parameters::applyTypeFFB(int, float v) {
    if (loading()) {
        fbFltTypeIdx = kNoType;
    }
    keep(Family::TypeFFB, v);
    engine.clearFeedback();
    const int32_t step = nearestStep(v, kFbFilterSteps);
    if (step != fbFltTypeIdx) {
        fbFltTypeIdx = step;
        engine.fbFltType = FbFilterType(std::clamp(step, 0, kFbFilterSteps - 1));
        setFbResonance();
    }
}

void Parameters::applyFreqFFB(int, float v) {
    keep(Family::FreqFFB, v);
    engine.fbFreqBase = finite(frequencyLaw(v));
}

void Parameters::applyResoFFB(int, float v) {
    keep(Family::ResoFFB, v);
    setFbResonance();
}

void Parameters::setFbResonance() {
    const float r = kept(Family::ResoFFB);
    switch (engine.fbFltType) {
        case FbFilterType::SvfLow:
        case FbFilterType::SvfBand:
        case FbFilterType::SvfHigh:
            engine.fbReso = finite(svfResonanceLaw(r));
            break;
        case FbFilterType::BiquadLow:
        case FbFilterType::BiquadHigh:
            engine.fbReso = finite(qLaw(r, kSoftQ));
            break;
        case FbFilterType::BiquadBand:
            engine.fbReso = finite(qLaw(r, kNormalQ));
            break;
    }
}

void Parameters::applyActFltFB(int, float v) {
    engine.clearFbBiquad();
    keep(Family::ActFltFB, switched(v));
    engine.fbFilterOn = kept(Family::ActFltFB) != 0.0f;
}

}  // namespace tessel8
