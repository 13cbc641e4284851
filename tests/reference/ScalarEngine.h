#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/Engine.h"
#include "reference/ScalarFeedbackFilter.h"
#include "reference/ScalarFollower.h"
#include "reference/ScalarLfo.h"
#include "reference/ScalarReverb.h"
#include "reference/ScalarTap.h"

namespace tessel8::reference {

/// The three sample loops as plain formulas: one sample after another, one tap after another, in
/// 32-bit floats. Slow, and made to be read; the real loops are measured against it bit by bit.
///
/// Control values (targets, switches, routing, delays, coefficients, tables) are read from an
/// `Engine`; signals and running state are the twin's own. What parameter application asks the
/// engine to do to its state must be asked of the twin as well.
struct ScalarEngine {
    /// Starts silent at the engine's write position, with lines of its present length.
    explicit ScalarEngine(const Engine& engine);

    void restartFade(int tap);
    void endFades();
    void clearTapFilter(int tap);
    void snapTapFilterGain(int tap);
    void clearFbBiquad() { fbFilter.clearBiquad(); }
    void clearFeedback();
    void respreadLfo() { lfo.spreadPhases(controls); }
    void setLfoPhase(float radians);
    /// The type and rate that the engine's reverb is to take next.
    void buildReverb();
    /// Silences the processors' short memories.
    void resetState();
    /// Silences processors and reverb lines.
    void clear();
    void clearRings();
    /// Takes over what stands in the engine's lines.
    void copyLines();

    void beginBlock();
    void process(const float* const* inputs, float* const* outputs, int32_t frames);
    void passThrough(const float* const* inputs, float* const* outputs, int32_t frames);

    const Engine& controls;
    std::array<std::vector<float>, kTaps> lineL, lineR;
    int32_t writePos = 0;
    std::array<int32_t, kTaps> readPos{};
    std::array<ScalarTap, kTaps> taps;
    int32_t fadeHoldCount = 0;
    std::array<float, 4> mixSmooth{};
    std::array<float, 4> meters{};
    float inL = 0.0f, inR = 0.0f, outL = 0.0f, outR = 0.0f;
    ScalarFeedbackFilter fbFilter;
    ScalarFollower follower;
    ScalarLfo lfo;
    ScalarReverb reverb;

  private:
    void sample(int computedTaps, bool gateAtInput, float dcFlip, float left, float right);
    void follow();
    void masterFeedback(float left, float right);
    void raiseMeters(float left, float right, float lastL, float lastR);
    void advance(int32_t& position) const;
};

}  // namespace tessel8::reference
