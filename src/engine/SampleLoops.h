#pragma once

#include <array>
#include <cstdint>

namespace tessel8 {

struct Engine;

/// The arguments of a block: two inputs, two outputs (they may be the same memory), frames.
using SampleLoop = void (*)(Engine& engine, const float* const* inputs, float* const* outputs,
                            int32_t frames);

/// The three loops of one instruction set. They share one source and give the same bits.
struct SampleLoops {
    SampleLoop processFourTaps;    ///< taps 1 to 4, switches at the taps' outputs
    SampleLoop processEightTaps;   ///< all taps, switches at the taps' outputs
    SampleLoop processGatedInput;  ///< all taps, switches at their lines' inputs
};

/// What the loops can be built for. The first is the baseline that every processor has.
enum class InstructionSet : uint8_t { Baseline, Avx2, Avx512 };
inline constexpr std::array kInstructionSets{InstructionSet::Baseline, InstructionSet::Avx2,
                                             InstructionSet::Avx512};

const char* nameOf(InstructionSet set);
/// True if this build has loops for the set and this processor runs them.
bool isSupported(InstructionSet set);
/// The widest supported set.
InstructionSet bestInstructionSet();
/// The loops of a supported set.
const SampleLoops& sampleLoops(InstructionSet set);

}  // namespace tessel8
