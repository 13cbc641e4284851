#pragma once

#include "parameters/ParameterTable.h"

namespace tessel8::factory {

// Musical quantities as the normalised values of the parameters, so that a program can be read.
// Each is the inverse of the law that the parameter applies, rounded to six decimals.

constexpr double sixDecimals(double v) {
    return double(int64_t(v * 1.0e6 + (v < 0.0 ? -0.5 : 0.5))) / 1.0e6;
}

/// log2 of a positive number: whole octaves, then the series of atanh for what is left.
constexpr double log2Of(double x) {
    double octaves = 0.0;
    while (x >= 2.0) {
        x /= 2.0;
        octaves += 1.0;
    }
    while (x < 1.0) {
        x *= 2.0;
        octaves -= 1.0;
    }
    const double ratio = (x - 1.0) / (x + 1.0);
    double term = ratio, sum = 0.0;
    for (int n = 1; n < 60; n += 2, term *= ratio * ratio) {
        sum += term / n;
    }
    return octaves + sum * 2.0 / 0.69314718055994530942;
}

/// 2 to the power of x.
constexpr double exp2Of(double x) {
    double power = 1.0;
    while (x >= 1.0) {
        x -= 1.0;
        power *= 2.0;
    }
    while (x < 0.0) {
        x += 1.0;
        power /= 2.0;
    }
    double term = 1.0, sum = 0.0;
    for (int n = 1; n < 30; ++n) {
        sum += term;
        term *= x * 0.69314718055994530942 / n;
    }
    return power * sum;
}

// time

constexpr double kFree = 0.0, kTempo = 0.5, kSync = 1.0;  ///< `TimeMode`

/// `DelayT` in milliseconds, up to 8000.
constexpr double ms(double milliseconds) {
    return sixDecimals(milliseconds / 8000.0);
}
/// `DelayT` in quarter notes at 120 BPM, up to 16; a program on the grid holds the neutral tempo.
constexpr double beats(double quarters) {
    return sixDecimals(quarters / 16.0);
}
/// `Tempo` in BPM, 30 to 350.
constexpr double bpm(double tempo) {
    return sixDecimals((tempo - 30.0) / 320.0);
}
/// `Note`: the grid, a straight note of 1/n or a triplet of it (n = 1, 2, 4, ... 128).
constexpr double grid(int n) {
    return sixDecimals((2.0 * log2Of(n) + 1.0) / 16.0);
}
constexpr double tripletGrid(int n) {
    return sixDecimals((2.0 * log2Of(n) + 2.0) / 16.0);
}
/// `ZoomDel`: what the panel's delay sliders span.
constexpr double kZoom100ms = 0, kZoom500ms = 1, kZoom1s = 2, kZoom2s = 3, kZoom4s = 4, kZoom8s = 5,
                 kZoomBeat = 6, kZoomBar = 7, kZoom2Bars = 8, kZoom4Bars = 10, kZoomAll = 18;

// level and place

/// `GainT`, `Input`, `Output`: up to +12 dB; the neutral value is 0 dB.
constexpr double dB(double decibels) {
    return sixDecimals(exp2Of(decibels / 40.0 * 3.32192809488736234787) / 2.0);
}
/// `PanTap`: -1 left, 0 middle, 1 right.
constexpr double pan(double place) {
    return sixDecimals(0.5 + 0.5 * place);
}
constexpr double kLeft = 0.0, kMiddle = 0.5, kRight = 1.0;

// filters

/// `TypeFT`
constexpr double kLowPass = sixDecimals(0 / 7.0), kBandPass = sixDecimals(1 / 7.0),
                 kHighPass = sixDecimals(2 / 7.0), kPeak = sixDecimals(3 / 7.0),
                 kLowShelfBoost = sixDecimals(4 / 7.0), kLowShelfCut = sixDecimals(5 / 7.0),
                 kHighShelfBoost = sixDecimals(6 / 7.0), kHighShelfCut = sixDecimals(7 / 7.0);
/// `TypeFFB`: two-pole state-variable filters, then biquads.
constexpr double kSvfLowPass = 0.0, kSvfBandPass = 0.2, kSvfHighPass = 0.4, kBiquadLowPass = 0.6,
                 kBiquadBandPass = 0.8, kBiquadHighPass = 1.0;
/// `FreqFT`, `FreqFFB`: 20 to 20000 Hz.
constexpr double hertz(double frequency) {
    return sixDecimals(log2Of(frequency / 20.0) / 9.965784);
}
/// `GainFT`: -18 to +18 dB.
constexpr double filterGain(double decibels) {
    return sixDecimals((decibels + 18.0) / 36.0);
}
/// `DepthFT`, `DepthFB`: -1 to 1, 0 is none.
constexpr double depth(double amount) {
    return sixDecimals(0.5 + 0.5 * amount);
}
/// `SourceF`, `SourceFB`: what moves the filter.
constexpr double kFromLfo = 0.0, kFromBoth = 0.5, kFromFollower = 1.0;

// modulation

/// `WaveMod`
constexpr double kSine = 0.0, kSquare = 0.25, kTriangle = 0.5, kSaw = 0.75, kRandom = 1.0;
/// `FreqMod` in Hz, up to 15.
constexpr double lfo(double frequency) {
    return sixDecimals(log2Of(frequency + 1.0) / 4.0);
}
/// `SourceEF`: the effect's input, a tap from 1 to 8, its output.
constexpr double kFollowInput = 0.0, kFollowOutput = 1.0;
constexpr double followTap(int tap) {
    return sixDecimals(tap / 9.0);
}

// reverb and feedback

constexpr double kOnTaps = 0.0, kOnOutput = 1.0;               ///< `ModeRev`
constexpr double kSpring = 0.0, kPlate = 1.0;                  ///< `TypeRev`
constexpr double kMultiEcho = 0, kMultiTap = 1, kMultiFb = 2;  ///< `ModeFB`

}  // namespace tessel8::factory
