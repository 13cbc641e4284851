#pragma once

#include <cstdint>

namespace tessel8 {

constexpr float kPiFloat = 3.14159265358979f;

enum class LfoWave : int32_t { Sine, Square, Triangle, Saw, Random, Off };

/// One LFO with two outputs whose phases stand apart.
struct Lfo {
    // set from outside
    LfoWave wave = LfoWave::Off;
    float step = 0.0f;    ///< radians per sample
    float spread = 0.0f;  ///< radians from the master phase to either output

    // the block's own
    float phase = 0.0f;     ///< master phase, -pi to pi
    float phasePos = 0.0f;  ///< phase - spread
    float phaseNeg = 0.0f;  ///< phase + spread
    float outPos = 0.0f;    ///< -1 to 1
    float outNeg = 0.0f;
    float holdPos = 0.0f;  ///< the random wave's held values
    float holdNeg = 0.0f;
    uint32_t random = 1;  ///< state of the congruential generator

    /// Turns the master phase to `radians` (-pi to pi) and the outputs with it.
    void setPhase(float radians) {
        phase = radians;
        applySpread();
    }
    void applySpread() {
        phasePos = wrapped(phase - spread);
        phaseNeg = wrapped(phase + spread);
    }
    void resetState() {
        phase = outPos = outNeg = holdPos = holdNeg = 0.0f;
        phasePos = -spread;
        phaseNeg = spread;
    }

    /// Brings a phase back by one turn at most.
    static float wrapped(float radians) {
        if (radians > kPiFloat) {
            return radians - 2.0f * kPiFloat;
        }
        return radians < -kPiFloat ? radians + 2.0f * kPiFloat : radians;
    }
};

/// An adaptive envelope follower: not the level, but where the level stands within the recent
/// average and spread.
struct Follower {
    static constexpr int32_t kMasterIn = 0;  ///< 1 to 8 are the taps
    static constexpr int32_t kMasterOut = 9;

    // set from outside
    int32_t source = kMasterIn;
    float fastCoef = 0.0f;
    float slowCoef = 0.0f;

    // the block's own
    float mean = 0.0f;
    float dev = 0.0f;
    float fast = 0.0f;
    float out = 0.0f;  ///< -1 to 1

    void resetState() { mean = dev = fast = out = 0.0f; }
};

}  // namespace tessel8
