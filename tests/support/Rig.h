#pragma once

// An engine and its parameters on the bench, without a host around them.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "engine/DenormalGuard.h"
#include "engine/Engine.h"
#include "parameters/Parameters.h"
#include "support/Sound.h"

namespace tessel8::testing {

struct Rig {
    Engine engine;
    Parameters parameters{engine};

    /// Neutral values, free delay times, wet signal only.
    explicit Rig(float rate = kLowestRate, InstructionSet isa = bestInstructionSet())
        : engine(isa) {
        setRate(rate);
        parameters.resetToDefaults();
        set(Family::TimeMode, 0.0f);
        set(Family::Mix, 1.0f);
        engine.endFades();
    }

    void setRate(float rate) {
        parameters.setSampleRate(rate);
        ASSERT_TRUE(engine.allocateForRate(rate));
        engine.setSmoothingRate(rate);
        parameters.recalculateForRate();
    }

    void set(Family family, float value, int tap = 0) {
        parameters.apply(parameterIndex(family, tap), value);
    }

    /// The value of a delay parameter that stands for `samples`.
    float delayValue(int32_t samples) const {
        return (float(samples) + 0.5f) / float(engine.ringLen);
    }
    void delay(int tap, int32_t samples) {
        set(Family::DelayT, delayValue(samples), tap);
        ASSERT_EQ(samples, engine.delaySamples[tap]);
    }

    void block(const float* const* inputs, float* const* outputs, int32_t frames) {
        parameters.beginBlock();
        const DenormalGuard guard;
        engine.beginBlock();
        engine.process(inputs, outputs, frames);
    }

    /// Plays `input` in blocks of the given sizes, over and over.
    Stereo play(const Stereo& input, const std::vector<int32_t>& sizes = {512}) {
        Stereo output(input.size());
        size_t done = 0;
        for (size_t turn = 0; done < input.size(); ++turn) {
            const auto left = int32_t(input.size() - done);
            const int32_t frames = std::min(sizes[turn % sizes.size()], left);
            const float* const in[] = {input.left.data() + done, input.right.data() + done};
            float* const out[] = {output.left.data() + done, output.right.data() + done};
            block(in, out, frames);
            done += size_t(frames);
        }
        return output;
    }

    /// Lets fades end and gains come to rest: one second of fade, and at 44.1 kHz about 15000
    /// frames until a gain no longer moves.
    void settle() { play(silence(size_t(2 * engine.fadeHoldLen) + 32768)); }
};

}  // namespace tessel8::testing
