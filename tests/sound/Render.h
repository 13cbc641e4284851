#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "Settings.h"
#include "engine/DenormalGuard.h"

namespace tessel8::test {

/// Stereo, left then right.
struct Audio {
    std::vector<float> left, right;
    bool operator==(const Audio&) const = default;
};

/// Noise bursts, a click and silence: level for the follower, transients for the lines.
inline Audio testMaterial(int32_t frames) {
    Audio audio{std::vector<float>(size_t(frames)), std::vector<float>(size_t(frames))};
    std::minstd_rand random(7);
    std::uniform_real_distribution<float> noise(-0.5f, 0.5f);
    for (int32_t i = 0; i < frames; ++i) {
        const float envelope = i % 9000 < 3000 ? float(i % 9000) / 3000.0f : 0.0f;
        audio.left[size_t(i)] = envelope * noise(random);
        audio.right[size_t(i)] = envelope * noise(random);
    }
    audio.left[20000] = 1.0f;
    audio.right[20100] = -1.0f;
    return audio;
}

/// An engine with its parameters, brought to a rate.
struct Instrument {
    Engine engine;
    Parameters parameters{engine};

    explicit Instrument(float rate, InstructionSet set = bestInstructionSet()) : engine(set) {
        engine.allocateForRate(rate);
        engine.setSmoothingRate(rate);
        parameters.setSampleRate(rate);
        parameters.recalculateForRate();
        parameters.resetToDefaults();
    }

    void run(const float* left, const float* right, float* outL, float* outR, int32_t frames) {
        const float* const inputs[] = {left, right};
        float* const outputs[] = {outL, outR};
        parameters.beginBlock();
        const DenormalGuard guard;
        engine.beginBlock();
        engine.process(inputs, outputs, frames);
    }
};

/// Renders a setting in blocks of `block` frames.
inline Audio render(const Setting& setting, const Audio& in, float rate, int32_t block,
                    InstructionSet set) {
    const auto instrument = std::make_unique<Instrument>(rate, set);
    setting.apply(instrument->parameters);
    instrument->engine.endFades();  // as resuming does: sound from the first sample on
    const auto frames = int32_t(in.left.size());
    Audio out{std::vector<float>(size_t(frames)), std::vector<float>(size_t(frames))};
    for (int32_t done = 0; done < frames; done += block) {
        instrument->run(&in.left[size_t(done)], &in.right[size_t(done)], &out.left[size_t(done)],
                        &out.right[size_t(done)], std::min(block, frames - done));
    }
    return out;
}

}  // namespace tessel8::test
