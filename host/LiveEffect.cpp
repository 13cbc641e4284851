#include "LiveEffect.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "SampleRate.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{1};
constexpr std::chrono::seconds kLongestBlock{2};

}  // namespace

void LiveEffect::start(StreamFormat format, const std::vector<Setting>& settings) {
    prepare(format);
    for (const Setting& setting : settings) {
        plugin_.setParameter(setting.index, setting.value);
    }
    // Behind the settings: a delay that is changed while the effect runs fades in.
    plugin_.start();
    isOpen_ = true;
}

void LiveEffect::keepTo(StreamFormat format) {
    if (format != format_) {
        holdNow();
        plugin_.stop();
        prepare(format);
        plugin_.start();
    }
    isOpen_ = true;
}

void LiveEffect::process(const LiveBlock& block) noexcept {
    // Each side says first what it is about to do and looks then at what the other has said, both
    // in the one order that all threads agree upon: it cannot be that neither sees the other.
    isInside_ = true;
    if (isOpen_ && block.frames <= format_.blockFrames) {
        transport_.follow(block.song);
        block.midi.sendTo(plugin_);
        auto inputs = block.inputs;
        auto outputs = block.outputs;
        plugin_.process(inputs.data(), outputs.data(), block.frames);
    } else {
        block.midi.clear();
        for (float* const output : block.outputs) {
            std::fill_n(output, block.frames, 0.0F);
        }
    }
    isInside_ = false;
}

void LiveEffect::prepare(StreamFormat format) {
    checkSampleRate(format.sampleRate, "the JACK server");
    format_ = format;
    transport_.start(format.sampleRate);
    plugin_.prepare(float(format.sampleRate), format.blockFrames);
}

void LiveEffect::holdNow() {
    hold();
    const auto deadline = std::chrono::steady_clock::now() + kLongestBlock;
    while (isInside_) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw UserError("the effect does not come back from its work on a block");
        }
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

}  // namespace tessel8::host
