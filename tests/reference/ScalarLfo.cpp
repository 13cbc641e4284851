#include "reference/ScalarLfo.h"

#include <cmath>

#include "engine/Tables.h"
#include "reference/ScalarMath.h"

namespace tessel8::reference {

namespace {

constexpr float kPi = 3.14159265358979f;

float wrapped(float x) {
    if (x > kPi) {
        return x - 2.0f * kPi;
    }
    return x < -kPi ? x + 2.0f * kPi : x;
}

void grow(float& phase, float step) {
    phase += step;
    if (phase > kPi) {
        phase -= 2.0f * kPi;
    }
}

float clipped(float o) {
    return (std::fabs(o + 1.0f) - std::fabs(o - 1.0f)) * 0.5f;
}

}  // namespace

void ScalarLfo::spreadPhases(const Engine& e) {
    phasePos = wrapped(phase - e.lfo.spread);
    phaseNeg = wrapped(phase + e.lfo.spread);
}

void ScalarLfo::reset(const Engine& e) {
    phase = outPos = outNeg = holdPos = holdNeg = 0.0f;
    phasePos = -e.lfo.spread;
    phaseNeg = e.lfo.spread;
}

float ScalarLfo::wave(const Engine& e, float x) const {
    switch (e.lfo.wave) {
        case LfoWave::Sine:
            return lookUp(e.sineTable, (x + kPi) * kSineScale);
        case LfoWave::Square:
            return x > 0.0f ? 1.0f : -1.0f;
        case LfoWave::Triangle: {
            const float o = x / (kPi / 2.0f);
            return x < -kPi / 2.0f ? -o - 2.0f : x > kPi / 2.0f ? -o + 2.0f : o;
        }
        case LfoWave::Saw:
            return x / kPi;
        default:
            return 0.0f;
    }
}

/// The next number of a 32-bit congruential generator, -1 to 1.
float ScalarLfo::nextRandom() {
    random = random * 214013u + 2531011u;
    const auto number = float(random >> 16 & 0x7fffu);
    return number * 2.0f / 32767.0f - 1.0f;
}

void ScalarLfo::advance(const Engine& e, float& followerOut) {
    if (e.lfo.wave == LfoWave::Random) {
        if (phasePos >= kPi - e.lfo.step) {
            holdPos = nextRandom();
            holdNeg = phasePos == phaseNeg ? holdPos : nextRandom();
        }
        outPos = holdPos;
        outNeg = holdNeg;
    } else {
        outPos = wave(e, phasePos);
        outNeg = wave(e, phaseNeg);
    }
    if (e.lfo.wave == LfoWave::Off) {
        followerOut = 0.0f;
    }
    outPos = clipped(outPos);
    outNeg = clipped(outNeg);
    grow(phasePos, e.lfo.step);
    grow(phaseNeg, e.lfo.step);
    grow(phase, e.lfo.step);
}

}  // namespace tessel8::reference
