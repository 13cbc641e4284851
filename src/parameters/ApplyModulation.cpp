// LFO, envelope follower and what the filters take of them.

#include <algorithm>
#include <cmath>

#include "parameters/Conversions.h"
#include "parameters/ModulationLaws.h"
#include "parameters/Parameters.h"

namespace tessel8 {

namespace {

constexpr int32_t kWaves = 5;
constexpr int32_t kSources = 10;
/// A value that `FreqMod` cannot have: the note mode gave no frequency.
constexpr float kNoNoteFrequency = 10.0f;

/// The value of the nearest of `steps` steps, as a fraction.
float snapped(float v, int32_t steps) {
    const auto last = float(steps - 1);
    return std::floor(last * v + 0.5f) / last;
}

/// Crossfade from LFO to follower, scaled by a bipolar depth.
struct Amounts {
    float lfo;
    float follower;
};
Amounts modulationAmounts(float source, float depthValue) {
    const float depth = 2.0f * (depthValue - 0.5f);
    return {finite((1.0f - source) * depth), finite(source * depth)};
}

}  // namespace

template <Family family>
void Parameters::applyTapModulation(int tap, float v) {
    keep(family, v, tap);
    const Amounts amounts =
        modulationAmounts(kept(Family::SourceF, tap), kept(Family::DepthFT, tap));
    engine.tapLfoAmount[size_t(tap)] = amounts.lfo;
    engine.tapEfAmount[size_t(tap)] = amounts.follower;
}
template void Parameters::applyTapModulation<Family::SourceF>(int, float);
template void Parameters::applyTapModulation<Family::DepthFT>(int, float);

void Parameters::applyPhaseFT(int tap, float v) {
    keep(Family::PhaseFT, v, tap);
    engine.tapLfoNegative[tap] = v != 0.0f;
}

template <Family family>
void Parameters::applyFbModulation(int, float v) {
    keep(family, v);
    const Amounts amounts = modulationAmounts(kept(Family::SourceFB), kept(Family::DepthFB));
    engine.fbLfoAmount = amounts.lfo;
    engine.fbEfAmount = amounts.follower;
}
template void Parameters::applyFbModulation<Family::SourceFB>(int, float);
template void Parameters::applyFbModulation<Family::DepthFB>(int, float);

void Parameters::selectWave() {
    const int32_t step = nearestStep(kept(Family::WaveMod), kWaves);
    const bool on = kept(Family::ActMod) != 0.0f && step >= 0 && step < kWaves;
    engine.lfo.wave = on ? LfoWave(step) : LfoWave::Off;
}

void Parameters::applyWaveMod(int, float v) {
    keep(Family::WaveMod, v);
    selectWave();
}

void Parameters::applyActMod(int, float v) {
    keep(Family::ActMod, switched(v));
    selectWave();
}

void Parameters::applySyncMod(int, float v) {
    keep(Family::SyncMod, kept(Family::NoteModeLfo) == 0.0f ? 0.0f : v);
}

void Parameters::setLfoHz(float freqMod) {
    lfoHz = finite(lfoFrequencyLaw(freqMod));
    engine.lfo.step = finite(lfoHz * (2.0f * kPiFloat) / sampleRate);
}

void Parameters::applyFreqMod(int, float v) {
    keep(Family::FreqMod, v);
    setLfoHz(v);
    if (lastFreqMod != v) {
        // No longer the frequency that the note gave.
        keep(Family::SyncMod, 0.0f);
        apply(command::kNoteModeLfo, 0.0f);
        tellEditor(parameterIndex(Family::SyncMod), 0.0f);
    }
}

void Parameters::applyNoteModeLfo(int, float v) {
    keep(Family::NoteModeLfo, v);
    if (v != 0.0f) {
        apply(command::kNumMod, kept(Family::NumMod));
        apply(command::kDenomMod, kept(Family::DenomMod));
    }
}

void Parameters::noteModeChanged() {
    if (kept(Family::NoteModeLfo) == 0.0f) {
        lastFreqMod = kNoNoteFrequency;
    } else {
        lfoFrequencyFromNote(true);
    }
}

void Parameters::applyNumMod(int, float v) {
    keep(Family::NumMod, snapped(v, int32_t(kLfoNumerators.size())));
    lfoNumIdx = lfoNumeratorIndex(kept(Family::NumMod));
    noteModeChanged();
}

void Parameters::applyDenomMod(int, float v) {
    keep(Family::DenomMod, snapped(v, kLfoDenominatorSteps));
    lfoDenIdx = lfoDenominatorIndex(kept(Family::DenomMod));
    noteModeChanged();
}

/// `inApply`: from a block the panel is not told, it follows by itself.
void Parameters::lfoFrequencyFromNote(bool inApply) {
    const float hz =
        lfoFrequencyOfNote(tempoBpm, kLfoNumerators[lfoNumIdx], kLfoDenominators[lfoDenIdx]);
    keep(Family::FreqMod, lfoFrequencyValue(hz));
    lastFreqMod = kept(Family::FreqMod);
    setLfoHz(lastFreqMod);
    if (inApply && editor) {
        editor->showLfoFrequency(lastFreqMod);
    }
}

void Parameters::applyPhaseMod(int, float v) {
    keep(Family::PhaseMod, v);
    engine.lfo.spread = finite((v - 0.5f) * kPiFloat);
    engine.respreadLfo();
}

void Parameters::applySourceEF(int, float v) {
    keep(Family::SourceEF, snapped(v, kSources));
    engine.follower.source =
        std::clamp(nearestStep(kept(Family::SourceEF), kSources), 0, kSources - 1);
}

void Parameters::applySpeedEF(int, float v) {
    keep(Family::SpeedEF, v);
    setFollowerSpeed();
}

void Parameters::setFollowerSpeed() {
    const double seconds = followerTimeLaw(kept(Family::SpeedEF));
    engine.follower.fastCoef = finite(followerCoefficient(seconds, double(sampleRate)));
    engine.follower.slowCoef = finite(followerCoefficient(10.0 * seconds, double(sampleRate)));
}

void Parameters::followSongPosition() {
    double position = 0.0;
    if (kept(Family::SyncMod) == 0.0f || loading() || !clock || !clock->songPosition(position) ||
        float(position) == lastPpqPos) {
        return;
    }
    lastPpqPos = float(position);
    const float run = std::fmod(lastPpqPos, 4.0f * kLfoNumerators[lfoNumIdx]);
    const float cycles = run * (60.0f * lfoHz / tempoBpm);
    const float phase = finite((cycles - std::trunc(cycles)) * (2.0f * kPiFloat));
    engine.lfo.setPhase(phase > kPiFloat ? phase - 2.0f * kPiFloat : phase);
}

}  // namespace tessel8
