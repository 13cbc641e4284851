#include "engine/SampleLoop.h"

namespace tessel8 {

SampleLoops sampleLoopsSse2() {
    return {sampleLoop<4, false>, sampleLoop<8, false>, sampleLoop<8, true>};
}

}  // namespace tessel8
