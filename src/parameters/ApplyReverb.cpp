// The reverb: place, type, damping and the taps' sends.

#include <algorithm>

#include "parameters/Conversions.h"
#include "parameters/Parameters.h"
#include "parameters/ReverbLaws.h"

namespace tessel8 {

namespace {

constexpr float kLowestReverbRate = 22050.0f;
/// `TypeRev` from here on is a plate, below it a spring.
constexpr float kPlateFrom = 0.5f;

}  // namespace

void Parameters::renewReverbSend(int tap) {
    const bool sends = kept(Family::ActRev) != 0.0f && kept(Family::ModeRev) == 0.0f &&
                       kept(Family::ActRevT, tap) != 0.0f;
    const float send = sends ? finite(kept(Family::RevTap, tap)) : 0.0f;
    engine.revSend[size_t(tap)] = send;
    engine.revDirect[size_t(tap)] = 1.0f - send;
}

void Parameters::applyActRev(int, float v) {
    keep(Family::ActRev, switched(v));
    engine.reverb.on = kept(Family::ActRev) != 0.0f;
    for (int t = 0; t < kTaps; ++t) {
        renewReverbSend(t);
    }
}

void Parameters::applyModeRev(int, float v) {
    keep(Family::ModeRev, v);
    engine.reverb.acrossOutput = v != 0.0f;
    for (int t = 0; t < kTaps; ++t) {
        renewReverbSend(t);
    }
}

void Parameters::applyTypeRev(int, float v) {
    keep(Family::TypeRev, v);
    const bool usable = sampleRate >= kLowestReverbRate && sampleRate <= kHighestRate;
    engine.setReverbType(v >= kPlateFrom, usable ? sampleRate : kLowestRate);
    applyDampRev(0, kept(Family::DampRev));
}

void Parameters::applyDampRev(int, float v) {
    keep(Family::DampRev, v);
    const ReverbDecay law = reverbDecayLaw(v, kept(Family::TypeRev) >= kPlateFrom);
    engine.reverb.decay = finite(law.decay);
    engine.reverb.decayA = finite(law.decayA);
    engine.reverb.decayB = finite(law.decayB);
    // Outside 0 to 1 the damping would blow up instead of following.
    engine.reverb.dampCoef = std::clamp(finite(law.damp), 0.0f, 1.0f);
}

void Parameters::applyAmtRev(int, float v) {
    keep(Family::AmtRev, v);
    engine.reverb.amount = finite(v);
}

void Parameters::applyActRevT(int tap, float v) {
    keep(Family::ActRevT, switched(v), tap);
    renewReverbSend(tap);
}

void Parameters::applyRevTap(int tap, float v) {
    keep(Family::RevTap, v, tap);
    renewReverbSend(tap);
}

}  // namespace tessel8
