#pragma once

#include <array>
#include <cstdint>

namespace tessel8 {

/// Four glyphs of a digit display, by their number in the strip of `kGlyphImages`.
using Digits = std::array<int32_t, 4>;

constexpr int32_t kGlyphImages = 100;
constexpr int32_t kGlyphBlank = 10;
constexpr int32_t kGlyphT = 30;

/// Hundreds, tens, ones and tenths of the tempo in BPM, from the normalised value.
Digits tempoDigits(float tempo);
/// The LFO's frequency in Hz with two decimals, from the normalised value.
Digits lfoDigits(float freqMod);
/// The note of the delay grid, with a T before a triplet.
Digits noteGlyphs(float note);

}  // namespace tessel8
