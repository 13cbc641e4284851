#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/Engine.h"

namespace tessel8::reference {

/// Spring and plate reverb, one sample at a time.
struct ScalarReverb {
    using Line = std::vector<float>;
    std::array<Line, 6> line, allpass;
    std::array<Line, 4> diffuser;
    uint32_t mask = 0;
    bool plate = false;
    uint32_t lineWrite = 0, apWrite = 0;
    std::array<uint32_t, 6> lineRead{}, apRead{};
    std::array<uint32_t, 4> diffRead{};
    std::array<float, 6> damp{};

    /// Band pass of one channel.
    struct Band {
        float x1 = 0.0f, x2 = 0.0f, y1 = 0.0f, y2 = 0.0f;
    };
    float b0 = 0.0f, b2 = 0.0f, a1 = 0.0f, a2 = 0.0f;
    Band bandL, bandR;

    void allocate(float rate);
    /// Distances and band filter; the lines keep their content.
    void build(bool toPlate, float rate);
    void clearLines();
    void reset();
    /// Replaces the input by its crossfade with the reverb's output. `dcFlip` is +-1e-18.
    void advance(const Engine& e, float& left, float& right, float dcFlip);

  private:
    void spring(const Engine& e, float in, float& left, float& right);
    void springOutput(size_t first, float sum, float& out);
    void plateStructure(const Engine& e, float in, float& left, float& right);
    float band(Band& state, float x, float dcFlip) const;
};

}  // namespace tessel8::reference
