#pragma once

// What the factory's programs are played with: a drum loop and a chord, the same on every run.

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace tessel8::tools {

constexpr double kSampleRate = 48000.0;  ///< Hz
constexpr double kTempo = 120.0;         ///< BPM
constexpr double kBeatSeconds = 60.0 / kTempo;
constexpr double kSignalSeconds = 4.0;  ///< two bars
constexpr double kSignalPeak = 0.5;     ///< -6 dBFS

/// Stereo sound, left as the real and right as the imaginary part: powers are norms, and one
/// Fourier transform does for both channels.
using Sound = std::vector<std::complex<float>>;

inline size_t framesOf(double seconds) {
    return size_t(std::lround(seconds * kSampleRate));
}

/// Largest absolute sample of both channels.
inline double peakOf(const Sound& sound) {
    float peak = 0.0f;
    for (const auto frame : sound) {
        peak = std::max({peak, std::fabs(frame.real()), std::fabs(frame.imag())});
    }
    return double(peak);
}

inline Sound withSignalPeak(Sound sound) {
    const auto gain = float(kSignalPeak / peakOf(sound));
    std::for_each(sound.begin(), sound.end(), [gain](auto& frame) { frame *= gain; });
    return sound;
}

inline double sineOf(double turns) {
    return std::sin(2.0 * std::numbers::pi * turns);
}

/// Two bars of (k)ick, (s)nare and (h)ats in eighth notes. The noise differs from side to side;
/// hats are left and right in turn.
inline Sound drumLoop() {
    Sound loop(framesOf(kSignalSeconds));
    std::minstd_rand random(1);
    const auto sampleOf = [&](char drum, double t) {
        const double noise = 2.0 * double(random()) / double(std::minstd_rand::max()) - 1.0;
        const double thump = sineOf(50.0 * t + 3.0 * (1.0 - std::exp(-t / 0.03)));
        const double crack = sineOf(190.0 * t) * std::exp(-t / 0.05) + noise * std::exp(-t / 0.06);
        return float(drum == 'k'   ? thump * std::exp(-t / 0.12)
                     : drum == 's' ? 0.4 * crack
                     : drum == 'h' ? 0.25 * noise * std::exp(-t / 0.02)
                                   : 0.0);
    };
    for (size_t eighth = 0; eighth < 16; ++eighth) {
        const float left = eighth % 2 == 0 ? 1.0f : 0.3f, right = 1.3f - left;
        const char drum = "k.s.kks."[eighth % 8];
        const size_t start = framesOf(double(eighth) * kBeatSeconds / 2.0);
        for (size_t i = start; i < loop.size(); ++i) {
            const double t = double(i - start) / kSampleRate;
            // Braces: the left side's noise comes first with every compiler.
            loop[i] += std::complex{left * sampleOf('h', t), right * sampleOf('h', t)};
            loop[i] += std::complex{sampleOf(drum, t), sampleOf(drum, t)};
        }
    }
    return withSignalPeak(std::move(loop));
}

/// Four notes of two detuned saws each over a sine, with an attack of 0.3 s and an end of 5 ms.
inline Sound chord() {
    Sound sound(framesOf(kSignalSeconds));
    for (size_t i = 0; i < sound.size(); ++i) {
        const double t = double(i) / kSampleRate;
        const double level = std::min({1.0, t / 0.3, (kSignalSeconds - t) / 0.005});
        double low = sineOf(65.41 * t), high = low;
        for (const double frequency : {130.81, 164.81, 196.00, 246.94}) {
            for (int partial = 1; partial <= 24; ++partial) {
                low += sineOf(0.998 * frequency * partial * t) / partial;
                high += sineOf(1.002 * frequency * partial * t) / partial;
            }
        }
        sound[i] = {float(level * (low + 0.4 * high)), float(level * (0.4 * low + high))};
    }
    return withSignalPeak(std::move(sound));
}

}  // namespace tessel8::tools
