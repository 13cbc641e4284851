#pragma once

// LFO and envelope follower, frame by frame. Both clocks run on while modulation is off, so that
// the LFO keeps its place and the follower its measure.

#include "engine/Engine.h"
#include "engine/Stretch.h"
#include "engine/Tables.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// What the filters get of LFO and follower, -1 to 1 each.
struct ModulationRows {
    bool off = true;  ///< all zero; the rows are not filled
    bool followerHeard = false;
    Row lfoPositive, lfoNegative, follower;
};

/// A uniform random number from -1 to 1, from the common 15-bit congruential generator.
TESSEL8_INLINE float nextRandom(uint32_t& state) {
    state = state * 214013u + 2531011u;
    return float(state >> 16 & 0x7fffu) * 2.0f / 32767.0f - 1.0f;
}

template <LfoWave Wave>
TESSEL8_INLINE float lfoShape(const Engine& e, float phase) {
    constexpr float kHalfPi = kPiFloat / 2.0f;
    if constexpr (Wave == LfoWave::Sine) {
        return e.sineTable.data()[tableIndex((phase + kPiFloat) * kSineScale, kSineEntries)];
    } else if constexpr (Wave == LfoWave::Square) {
        return phase > 0.0f ? 1.0f : -1.0f;
    } else if constexpr (Wave == LfoWave::Triangle) {
        const float ramp = phase / kHalfPi;
        if (phase < -kHalfPi) {
            return -ramp - 2.0f;
        }
        return phase > kHalfPi ? -ramp + 2.0f : ramp;
    } else {
        return phase / kPiFloat;  // saw
    }
}

TESSEL8_INLINE float clipped(float x) {
    return (__builtin_fabsf(x + 1.0f) - __builtin_fabsf(x - 1.0f)) * 0.5f;
}

/// New random values at the end of the first output's cycle; the second output follows it.
TESSEL8_INLINE void holdRandom(Lfo& lfo, float step) {
    if (lfo.phasePos >= kPiFloat - step) {
        const bool together = lfo.phasePos == lfo.phaseNeg;
        lfo.holdPos = nextRandom(lfo.random);
        lfo.holdNeg = together ? lfo.holdPos : nextRandom(lfo.random);
    }
}

TESSEL8_INLINE void advancePhase(float& phase, float step) {
    phase += step;
    phase = phase > kPiFloat ? phase - 2.0f * kPiFloat : phase;
}

/// The outputs and, behind them, the phases of one wave over a stretch.
template <LfoWave Wave>
void runWave(Engine& e, Lfo& lfo, int frames, ModulationRows& rows) {
    for (int i = 0; i < frames; ++i) {
        if constexpr (Wave == LfoWave::Random) {
            holdRandom(lfo, lfo.step);
            rows.lfoPositive[i] = clipped(lfo.holdPos);
            rows.lfoNegative[i] = clipped(lfo.holdNeg);
        } else if constexpr (Wave != LfoWave::Off) {
            rows.lfoPositive[i] = clipped(lfoShape<Wave>(e, lfo.phasePos));
            rows.lfoNegative[i] = clipped(lfoShape<Wave>(e, lfo.phaseNeg));
        }
        advancePhase(lfo.phasePos, lfo.step);
        advancePhase(lfo.phaseNeg, lfo.step);
        advancePhase(lfo.phase, lfo.step);
    }
    if constexpr (Wave != LfoWave::Off) {
        lfo.outPos = rows.lfoPositive[frames - 1];
        lfo.outNeg = rows.lfoNegative[frames - 1];
    } else {
        lfo.outPos = lfo.outNeg = 0.0f;
    }
}

inline void runLfo(Engine& e, int frames, ModulationRows& rows) {
    Lfo lfo = e.lfo;
    switch (lfo.wave) {
        case LfoWave::Sine:
            runWave<LfoWave::Sine>(e, lfo, frames, rows);
            break;
        case LfoWave::Square:
            runWave<LfoWave::Square>(e, lfo, frames, rows);
            break;
        case LfoWave::Triangle:
            runWave<LfoWave::Triangle>(e, lfo, frames, rows);
            break;
        case LfoWave::Saw:
            runWave<LfoWave::Saw>(e, lfo, frames, rows);
            break;
        case LfoWave::Random:
            runWave<LfoWave::Random>(e, lfo, frames, rows);
            break;
        case LfoWave::Off:
            runWave<LfoWave::Off>(e, lfo, frames, rows);
            break;
    }
    // Only the block's own fields go back: the others may have been set meanwhile.
    e.lfo.phase = lfo.phase;
    e.lfo.phasePos = lfo.phasePos;
    e.lfo.phaseNeg = lfo.phaseNeg;
    e.lfo.outPos = lfo.outPos;
    e.lfo.outNeg = lfo.outNeg;
    e.lfo.holdPos = lfo.holdPos;
    e.lfo.holdNeg = lfo.holdNeg;
    e.lfo.random = lfo.random;
}

/// Adding and taking away a small number flushes what is far smaller.
TESSEL8_INLINE float flushed(float x) {
    return x + 1.0e-5f - 1.0e-5f;
}

/// Where the fast level stands within the recent range, 0 to 1, by two parabolas that meet at
/// the mean.
TESSEL8_INLINE float followerPosition(const float* squares, float mean, float dev, float fast) {
    if (dev == 0.0f) {
        return fast > mean ? 1.0f : 0.0f;
    }
    const auto square = [=](float x) {
        return squares[tableIndex(x * kSquareScale, kSquareEntries)];
    };
    const float low = mean - dev;
    const float high = mean + dev;
    const float norm = 0.5f / square(dev);
    if (fast <= low) {
        return 0.0f;
    }
    if (fast >= high) {
        return 1.0f;
    }
    return fast > mean ? 1.0f - norm * square(high - fast) : norm * square(fast - low);
}

/// `left` and `right` are the source's frames; `rows.follower` is filled where it is heard.
inline void runFollower(Engine& e, const float* left, const float* right, int frames,
                        ModulationRows& rows) {
    const float slow = e.follower.slowCoef;
    const float quick = e.follower.fastCoef;
    float mean = e.follower.mean;
    float dev = e.follower.dev;
    float fast = e.follower.fast;
    for (int i = 0; i < frames; ++i) {
        const float a = (__builtin_fabsf(left[i]) + __builtin_fabsf(right[i])) / 2.0f;
        mean = flushed(mean + (a - mean) * slow);
        const float distance = __builtin_fabsf(a - dev);
        const float d = distance < 1.0f ? distance : 1.0f;
        dev = flushed(dev + (d - dev) * slow);
        if (__builtin_expect(mean + dev > 1.0f, 0)) {
            dev = 1.0f - mean;
        }
        if (__builtin_expect(mean - dev < 0.0f, 0)) {
            dev = mean;
        }
        fast = flushed(fast + (a - fast) * quick);
        if (rows.followerHeard) {
            const float position = followerPosition(e.squareTable.data(), mean, dev, fast);
            rows.follower[i] = (position - 0.5f) * 2.0f;
        }
    }
    e.follower.mean = mean;
    e.follower.dev = dev;
    e.follower.fast = fast;
    e.follower.out = rows.followerHeard ? rows.follower[frames - 1] : 0.0f;
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
