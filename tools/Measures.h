#pragma once

// Figures of a rendered sound: levels, decay, width, spectrum, and whether two sounds are alike.

#include "tools/Signals.h"

namespace tessel8::tools {

/// Levels are linear, of both channels together; RMS, width and centroid leave out the tail.
struct Measures {
    bool finite;      ///< no sample is infinite or NaN
    double peak;      ///< of the whole sound
    double rms;       ///< root of the mean power
    double decay;     ///< seconds from the signal's end until the sound stays 60 dB below its level
                      ///< there; negative where it does not
    bool grows;       ///< the last two seconds are not below the level at the signal's end
    double width;     ///< RMS of the side over RMS of the middle
    double centroid;  ///< power-weighted mean frequency, Hz
};

/// From frame `first` to before `last`.
inline double rmsOf(const Sound& sound, size_t first, size_t last) {
    double sum = 0.0;
    for (size_t i = first; i < last; ++i) {
        sum += std::norm(std::complex<double>(sound[i]));
    }
    return std::sqrt(sum / double(2 * (last - first)));
}

/// Seconds from frame `end` until the RMS of windows of 50 ms, begun every 10 ms, stays below
/// `level`; negative where the last window is not below.
inline double decayOf(const Sound& sound, size_t end, double level) {
    const size_t window = framesOf(0.05), hop = framesOf(0.01);
    const size_t windows = (sound.size() - end - window) / hop + 1;
    size_t quiet = windows;  // from this one on
    for (size_t start = end + (windows - 1) * hop;
         quiet > 0 && rmsOf(sound, start, start + window) < level; start -= hop) {
        --quiet;
    }
    return quiet == windows ? -1.0 : double(quiet * hop) / kSampleRate;
}

inline double widthOf(const Sound& sound, size_t end) {
    double middle = 0.0, side = 0.0;
    for (size_t i = 0; i < end; ++i) {
        middle += std::pow(double(sound[i].real()) + double(sound[i].imag()), 2);
        side += std::pow(double(sound[i].real()) - double(sound[i].imag()), 2);
    }
    return side > 0.0 ? std::sqrt(side / middle) : 0.0;
}

/// Discrete Fourier transform of every `stride`th of 2^n values into as many at `out`.
inline void transform(const std::complex<double>* in, std::complex<double>* out, size_t size,
                      size_t stride = 1) {
    if (size == 1) {
        *out = *in;
        return;
    }
    const size_t half = size / 2;
    transform(in, out, half, 2 * stride);
    transform(in + stride, out + half, half, 2 * stride);
    const auto step = std::polar(1.0, -2.0 * std::numbers::pi / double(size));
    std::complex<double> factor = 1.0;
    for (size_t k = 0; k < half; ++k, factor *= step) {
        const auto even = out[k], odd = factor * out[k + half];
        out[k] = even + odd;
        out[k + half] = even - odd;
    }
}

/// Over Hann windows that overlap by half. Bins k and N - k of the complex sound hold together
/// twice the power of both channels.
inline double centroidOf(const Sound& sound, size_t end) {
    constexpr size_t kSize = 4096;
    std::vector<std::complex<double>> windowed(kSize), bins(kSize);
    double power = 0.0, moment = 0.0;
    for (size_t start = 0; start + kSize <= end; start += kSize / 2) {
        for (size_t i = 0; i < kSize; ++i) {
            const double hann = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * double(i) / kSize);
            windowed[i] = hann * std::complex<double>(sound[start + i]);
        }
        transform(windowed.data(), bins.data(), kSize);
        for (size_t k = 1; k < kSize / 2; ++k) {
            const double both = std::norm(bins[k]) + std::norm(bins[kSize - k]);
            power += both;
            moment += both * double(k) * kSampleRate / kSize;
        }
    }
    return power > 0.0 ? moment / power : 0.0;
}

/// `end` is the frame in which the signal ended. The level there is the RMS of the last beat, so
/// that it is not that of a gap between two hits, and at least -100 dBFS.
inline Measures measure(const Sound& sound, size_t end) {
    const double level = std::max(1.0e-5, rmsOf(sound, end - framesOf(kBeatSeconds), end));
    const double last = rmsOf(sound, sound.size() - framesOf(2.0), sound.size());
    return {.finite = std::isfinite(rmsOf(sound, 0, sound.size())),
            .peak = peakOf(sound),
            .rms = rmsOf(sound, 0, end),
            .decay = decayOf(sound, end, level * 1.0e-3),
            .grows = !(last < level),
            .width = widthOf(sound, end),
            .centroid = centroidOf(sound, end)};
}

/// Whether the RMS of the difference of two equally long sounds is below `level`.
inline bool areCloser(const Sound& a, const Sound& b, double level) {
    const double limit = level * level * double(2 * a.size());
    double sum = 0.0;
    for (size_t i = 0; i < a.size() && sum <= limit; ++i) {
        sum += std::norm(std::complex<double>(a[i] - b[i]));
    }
    return sum <= limit;
}

}  // namespace tessel8::tools
