// Compiled once per instruction set; `TESSEL8_ISA` names the set and keeps the builds apart.

#include "engine/SampleLoop.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

extern const SampleLoops kSampleLoops;
const SampleLoops kSampleLoops{sampleLoop<4, false>, sampleLoop<8, false>, sampleLoop<8, true>};

}  // namespace TESSEL8_ISA
}  // namespace tessel8
