#pragma once

#include <cstdint>

#include "engine/Engine.h"

namespace tessel8::reference {

/// The LFO with its two outputs.
struct ScalarLfo {
    float phase = 0.0f, phasePos = 0.0f, phaseNeg = 0.0f;  ///< -pi to pi
    float outPos = 0.0f, outNeg = 0.0f;                    ///< -1 to 1
    float holdPos = 0.0f, holdNeg = 0.0f;
    uint32_t random = 1;

    void spreadPhases(const Engine& e);
    void reset(const Engine& e);
    /// One sample. With the LFO off the follower's output is silenced, too.
    void advance(const Engine& e, float& followerOut);

  private:
    float wave(const Engine& e, float x) const;
    float nextRandom();
};

}  // namespace tessel8::reference
