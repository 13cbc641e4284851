#pragma once

#include <cstdint>

namespace tessel8 {

struct Engine;

/// The arguments of a block: two inputs, two outputs (they may be the same memory), frames.
using SampleLoop = void (*)(Engine& engine, const float* const* inputs, float* const* outputs,
                            int32_t frames);

/// The three loops of one instruction set. They share one source and give the same bits.
struct SampleLoops {
    SampleLoop fourTaps;    ///< taps 1 to 4, switches at the taps' outputs
    SampleLoop eightTaps;   ///< all taps, switches at the taps' outputs
    SampleLoop gatedInput;  ///< all taps, switches at their lines' inputs
};

SampleLoops sampleLoopsSse2();

}  // namespace tessel8
