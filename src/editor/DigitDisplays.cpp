#include "editor/DigitDisplays.h"

#include <algorithm>
#include <cmath>

#include "parameters/Conversions.h"

namespace tessel8 {

namespace {

/// A leading zero stays dark.
Digits digitsOf(int32_t number) {
    const int32_t n = std::clamp(number, 0, 9999);
    const int32_t first = n / 1000;
    return {first ? first : kGlyphBlank, n / 100 % 10, n / 10 % 10, n % 10};
}

}  // namespace

Digits tempoDigits(float tempo) {
    const double hundredths = std::nearbyint((double(tempo) * 320.0 + 30.0) * 100.0);
    return digitsOf(truncated(hundredths / 10.0));
}

Digits lfoDigits(float freqMod) {
    const double hz = std::max(std::pow(16.0, double(freqMod)) - 1.0, 0.01);
    return digitsOf(truncated(hz * 100.0 + 0.5));
}

Digits noteGlyphs(float note) {
    // Sixteen bands of 1/16, the upper bound included: straight and triplet take turns.
    constexpr int32_t kBands = 16;
    const int32_t band = std::clamp(truncated(std::ceil(double(note) * kBands)), 1, kBands) - 1;
    Digits glyphs;
    glyphs.fill(kGlyphBlank);
    size_t place = glyphs.size();
    for (int32_t number = 1 << band / 2; number > 0; number /= 10) {
        glyphs[--place] = number % 10;
    }
    if (band % 2 == 1) {
        glyphs[--place] = kGlyphT;
    }
    return glyphs;
}

}  // namespace tessel8
