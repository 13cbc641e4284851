#pragma once

// What the factory's programs are played with: a drum loop and a chord, the same on every run.

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
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

constexpr size_t framesOf(double seconds) {
    return size_t(seconds * kSampleRate + 0.5);
}

/// Largest absolute sample of both channels.
inline double peakOf(const Sound& sound) {
    float peak = 0.0f;
    for (const auto frame : sound) {
        peak = std::max({peak, std::fabs(frame.real()), std::fabs(frame.imag())});
    }
    return double(peak);
}

/// Scales a sound to the peak that all test signals have.
inline void normalise(Sound& sound) {
    const auto gain = float(kSignalPeak / peakOf(sound));
    for (auto& frame : sound) {
        frame *= gain;
    }
}

inline double sineOf(double turns) {
    return std::sin(2.0 * std::numbers::pi * turns);
}

enum class Drum : uint8_t { Kick, Snare, Hat };

/// A drum `t` seconds after it was hit; `noise` is white, within +-1.
inline double drumAt(Drum drum, double t, double noise) {
    switch (drum) {
        case Drum::Kick:  // falls from 150 to 50 Hz
            return sineOf(50.0 * t + 3.0 * (1.0 - std::exp(-t / 0.03))) * std::exp(-t / 0.12);
        case Drum::Snare:
            return 0.4 * (sineOf(190.0 * t) * std::exp(-t / 0.05) + noise * std::exp(-t / 0.06));
        default:
            return 0.25 * noise * std::exp(-t / 0.02);
    }
}

/// Two bars of kick, snare and hats: the snare's noise is wide, the hats are left and right in
/// turn.
inline Sound drumLoop() {
    static constexpr struct {
        double beat;
        Drum drum;
        float left, right;
    } kBar[] = {{0.0, Drum::Kick, 1.0f, 1.0f},  {1.0, Drum::Snare, 1.0f, 1.0f},
                {2.0, Drum::Kick, 1.0f, 1.0f},  {2.5, Drum::Kick, 0.8f, 0.8f},
                {3.0, Drum::Snare, 1.0f, 1.0f}, {0.0, Drum::Hat, 1.0f, 0.3f},
                {0.5, Drum::Hat, 0.3f, 1.0f},   {1.0, Drum::Hat, 1.0f, 0.3f},
                {1.5, Drum::Hat, 0.3f, 1.0f},   {2.0, Drum::Hat, 1.0f, 0.3f},
                {2.5, Drum::Hat, 0.3f, 1.0f},   {3.0, Drum::Hat, 1.0f, 0.3f},
                {3.5, Drum::Hat, 0.3f, 1.0f}};
    Sound loop(framesOf(kSignalSeconds));
    std::minstd_rand random(1);
    const auto noise = [&] { return 2.0 * double(random()) / double(random.max()) - 1.0; };
    for (const double bar : {0.0, 4.0}) {
        for (const auto& hit : kBar) {
            const size_t start = framesOf((bar + hit.beat) * kBeatSeconds);
            for (size_t i = start; i < loop.size(); ++i) {
                const double t = double(i - start) / kSampleRate;
                const auto left = float(drumAt(hit.drum, t, noise()));
                const auto right = float(drumAt(hit.drum, t, noise()));
                loop[i] += std::complex(hit.left * left, hit.right * right);
            }
        }
    }
    normalise(loop);
    return loop;
}

/// Four notes of two detuned saws each over a sine, with an attack of 0.3 s and an end of 5 ms.
inline Sound chord() {
    constexpr int kPartials = 24;
    constexpr double kDetune = 0.002, kAttack = 0.3, kRelease = 0.005;
    Sound sound(framesOf(kSignalSeconds));
    for (size_t i = 0; i < sound.size(); ++i) {
        const double t = double(i) / kSampleRate;
        const double level = std::min({1.0, t / kAttack, (kSignalSeconds - t) / kRelease});
        double low = sineOf(65.41 * t), high = low;
        for (const double frequency : {130.81, 164.81, 196.00, 246.94}) {
            for (int partial = 1; partial <= kPartials; ++partial) {
                low += sineOf(frequency * (1.0 - kDetune) * partial * t) / partial;
                high += sineOf(frequency * (1.0 + kDetune) * partial * t) / partial;
            }
        }
        sound[i] = {float(level * (low + 0.4 * high)), float(level * (0.4 * low + high))};
    }
    normalise(sound);
    return sound;
}

}  // namespace tessel8::tools
