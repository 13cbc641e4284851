#pragma once

#include <array>
#include <cstdint>

#include "engine/AlignedBuffer.h"

namespace tessel8 {

/// Lines, positions and coefficients of the spring and plate reverb. Every line is `mask` + 1
/// long, a power of two, and a read index trails its write index by the line's length.
struct Reverb {
    // set from outside
    int32_t on = 0;
    int32_t acrossOutput = 0;  ///< 0: on the taps' sends
    int32_t nextPlate = 0;     ///< type that the next block changes to, 0 spring
    float nextRate = 44100.0f;
    float amount = 0.0f;  ///< crossfade from the reverb's input to its output
    float decay = 0.0f, decayA = 0.0f, decayB = 0.0f, dampCoef = 0.0f;

    // memory
    std::array<AlignedBuffer, 6> line;
    std::array<AlignedBuffer, 6> allpass;
    std::array<AlignedBuffer, 4> diffuser;
    int32_t mask = 0;

    // positions
    int32_t plate = 0;     ///< the type that the positions stand for
    int32_t shortest = 1;  ///< shortest read distance in use, samples
    int32_t lineWrite = 0, apWrite = 0;
    std::array<int32_t, 6> lineRead{};
    std::array<int32_t, 6> apRead{};
    std::array<int32_t, 4> diffRead{};

    /// Band pass behind the structure: y = b0 x + b2 x2 - a1 y1 - a2 y2 on both channels.
    struct BandFilter {
        float b0 = 0.0f, b2 = 0.0f, a1 = 0.0f, a2 = 0.0f;
        std::array<float, 2> x1{}, x2{}, y1{}, y2{};
    } band;
    std::array<float, 6> damp{};  ///< one-pole damping states

    /// Allocates and zeroes all lines for `rate`; false where one is missing.
    bool allocateForRate(float rate);
    bool hasMemory() const;
    void release();
    void clearLines();
    void resetState();

    /// Sets read distances and band filter for the present type. The lines keep their content.
    void build(float rate);
};

}  // namespace tessel8
