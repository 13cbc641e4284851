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
    LfoWave wave = LfoWave::Off;
    bool off = true;  ///< all zero; the rows are not filled
    bool followerHeard = false;
    Row lfoPositive{}, lfoNegative{}, follower{};
};

/// A uniform random number from -1 to 1, from the common 15-bit congruential generator.
TESSEL8_INLINE float nextRandom(uint32_t& state) {
    state = state * 214013u + 2531011u;
    return float(state >> 16 & 0x7fffu) * 2.0f / 32767.0f - 1.0f;
}

/// One wave over a row of phases (-pi to pi), clipped to -1 to 1.
TESSEL8_INLINE RowPack lfoShape(const Engine& e, LfoWave wave, const RowPack& phase) {
    const RowPack one = RowPack::all(1.0f);
    const RowPack pi = RowPack::all(kPiFloat);
    RowPack x = phase;
    switch (wave) {
        case LfoWave::Sine:
            x = lookUp(e.sineTable.data(), phase + pi, kSineScale, kSineEntries);
            break;
        case LfoWave::Square:
            x = select(phase > RowPack::all(0.0f), one, RowPack::all(-1.0f));
            break;
        case LfoWave::Triangle: {
            const RowPack halfPi = RowPack::all(kPiFloat / 2.0f);
            const RowPack two = RowPack::all(2.0f);
            const RowPack nothing = RowPack::all(0.0f);
            const RowPack ramp = phase / halfPi;
            x = select(phase > halfPi, nothing - ramp + two, ramp);
            x = select(phase < nothing - halfPi, nothing - ramp - two, x);
            break;
        }
        default:
            x = phase / pi;  // saw
    }
    return (abs(x + one) - abs(x - one)) * RowPack::all(0.5f);
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

/// The LFO's phases as a chain. `shapeLfo` makes the outputs of them.
struct LfoChain {
    Engine& e;
    ModulationRows& rows;
    Lfo lfo;

    LfoChain(Engine& engine, ModulationRows& to) : e(engine), rows(to), lfo(engine.lfo) {
        lfo.wave = rows.wave;
    }

    TESSEL8_INLINE void step(int i) {
        if (lfo.wave == LfoWave::Random) {
            holdRandom(lfo, lfo.step);
            rows.lfoPositive[i] = clipped(lfo.holdPos);
            rows.lfoNegative[i] = clipped(lfo.holdNeg);
        } else if (!rows.off) {
            rows.lfoPositive[i] = lfo.phasePos;
            rows.lfoNegative[i] = lfo.phaseNeg;
        }
        advancePhase(lfo.phasePos, lfo.step);
        advancePhase(lfo.phaseNeg, lfo.step);
        advancePhase(lfo.phase, lfo.step);
    }

    /// Only the block's own fields go back: the others may have been set meanwhile.
    TESSEL8_INLINE void finish() const {
        e.lfo.phase = lfo.phase;
        e.lfo.phasePos = lfo.phasePos;
        e.lfo.phaseNeg = lfo.phaseNeg;
        e.lfo.holdPos = lfo.holdPos;
        e.lfo.holdNeg = lfo.holdNeg;
        e.lfo.random = lfo.random;
    }
};

/// Turns the rows' phases into the LFO's outputs.
inline void shapeLfo(Engine& e, int frames, ModulationRows& rows) {
    const LfoWave wave = rows.wave;
    if (rows.off) {
        e.lfo.outPos = e.lfo.outNeg = 0.0f;
        return;
    }
    for (Row* row : {&rows.lfoPositive, &rows.lfoNegative}) {
        inPacks(wave == LfoWave::Random ? 0 : frames,
                [&](int i) { row->set(i, lfoShape(e, wave, row->at(i))); });
    }
    e.lfo.outPos = rows.lfoPositive[frames - 1];
    e.lfo.outNeg = rows.lfoNegative[frames - 1];
}

/// Adding and taking away a small number flushes what is far smaller.
TESSEL8_INLINE float flushed(float x) {
    return x + 1.0e-5f - 1.0e-5f;
}

/// The flush leaves a level standing once its step is too small to count. In silence that level
/// is over.
TESSEL8_INLINE float rested(float level, float previous, float input) {
    constexpr float kSilence = 1.0e-9f;
    return level == previous && input < kSilence ? 0.0f : level;
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

/// The envelope follower as a chain; `left` and `right` are its source's frames.
struct FollowerChain {
    Engine& e;
    const float* left;
    const float* right;
    ModulationRows& rows;
    float slow, quick, mean, dev, fast;
    float out = 0.0f;

    FollowerChain(Engine& engine, const float* sourceL, const float* sourceR, ModulationRows& to)
        : e(engine),
          left(sourceL),
          right(sourceR),
          rows(to),
          slow(engine.follower.slowCoef),
          quick(engine.follower.fastCoef),
          mean(engine.follower.mean),
          dev(engine.follower.dev),
          fast(engine.follower.fast) {}

    TESSEL8_INLINE void step(int i) {
        const float a = (__builtin_fabsf(left[i]) + __builtin_fabsf(right[i])) / 2.0f;
        mean = rested(flushed(mean + (a - mean) * slow), mean, a);
        // What is rare is left to branches, which do not lengthen the chain as selections would.
        float distance = __builtin_fabsf(a - dev);
        if (!(distance < 1.0f)) [[unlikely]] {
            keepBranch();
            distance = 1.0f;
        }
        dev = flushed(dev + (distance - dev) * slow);
        if (mean + dev > 1.0f || mean - dev < 0.0f) [[unlikely]] {
            keepBranch();
            dev = mean + dev > 1.0f ? 1.0f - mean : dev;
            dev = mean - dev < 0.0f ? mean : dev;
        }
        fast = rested(flushed(fast + (a - fast) * quick), fast, a);
        if (rows.followerHeard) {
            out = (followerPosition(e.squareTable.data(), mean, dev, fast) - 0.5f) * 2.0f;
            rows.follower[i] = out;
        }
    }

    TESSEL8_INLINE void finish() const {
        e.follower.mean = mean;
        e.follower.dev = dev;
        e.follower.fast = fast;
        e.follower.out = out;
    }
};

}  // namespace TESSEL8_ISA
}  // namespace tessel8
