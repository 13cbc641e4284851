#pragma once

#include "engine/Engine.h"

namespace tessel8::reference {

/// The adaptive envelope follower.
struct ScalarFollower {
    float mean = 0.0f, dev = 0.0f, fast = 0.0f;
    float out = 0.0f;  ///< -1 to 1

    /// One sample of the followed signal.
    void advance(const Engine& e, float left, float right);
};

}  // namespace tessel8::reference
