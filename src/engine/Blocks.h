#pragma once

#include <cstddef>

namespace tessel8 {

constexpr int kTaps = 8;

/// One float per tap, in tap order: taps 1 to 4 are group 1, taps 5 to 8 group 2.
struct alignas(32) TapBlock {
    float v[kTaps] = {};

    constexpr TapBlock() = default;
    constexpr explicit TapBlock(float value) { fill(value); }
    constexpr void fill(float value) {
        for (float& lane : v) {
            lane = value;
        }
    }
    constexpr float& operator[](size_t tap) { return v[tap]; }
    constexpr float operator[](size_t tap) const { return v[tap]; }
};

/// Four floats that are read as one vector. `publish` replaces them in one 16-byte store, so that
/// a block that runs at the same moment sees the old four or the new four, never a mixture.
struct alignas(16) Quad {
    float v[4] = {};

    void publish(float a, float b, float c, float d) {
        using Vector = float __attribute__((vector_size(16), may_alias));
        *reinterpret_cast<volatile Vector*>(v) = Vector{a, b, c, d};
    }
    void fill(float value) { publish(value, value, value, value); }
    float& operator[](size_t lane) { return v[lane]; }
    float operator[](size_t lane) const { return v[lane]; }
};

}  // namespace tessel8
