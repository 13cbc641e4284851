#include "engine/SampleLoops.h"

namespace tessel8 {

namespace baseline {
extern const SampleLoops kSampleLoops;
}
#ifdef TESSEL8_WIDE_LOOPS
namespace avx2 {
extern const SampleLoops kSampleLoops;
}
namespace avx512 {
extern const SampleLoops kSampleLoops;
}
#endif

const char* nameOf(InstructionSet set) {
    switch (set) {
        case InstructionSet::Avx2:
            return "AVX2";
        case InstructionSet::Avx512:
            return "AVX-512VL";
        default:
            return "baseline";
    }
}

#ifdef TESSEL8_WIDE_LOOPS

bool isSupported(InstructionSet set) {
    switch (set) {
        case InstructionSet::Avx2:
            return __builtin_cpu_supports("avx2");
        case InstructionSet::Avx512:
            return __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq");
        default:
            return true;
    }
}

const SampleLoops& sampleLoops(InstructionSet set) {
    switch (set) {
        case InstructionSet::Avx2:
            return avx2::kSampleLoops;
        case InstructionSet::Avx512:
            return avx512::kSampleLoops;
        default:
            return baseline::kSampleLoops;
    }
}

#else

bool isSupported(InstructionSet set) {
    return set == InstructionSet::Baseline;
}

const SampleLoops& sampleLoops(InstructionSet /*set*/) {
    return baseline::kSampleLoops;
}

#endif

InstructionSet bestInstructionSet() {
    InstructionSet best = InstructionSet::Baseline;
    for (const InstructionSet set : kInstructionSets) {
        best = isSupported(set) ? set : best;
    }
    return best;
}

}  // namespace tessel8
