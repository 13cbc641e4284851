#pragma once

#include <sndfile.h>

#include <cstddef>
#include <filesystem>
#include <vector>

namespace tessel8::host::test {

/// An audio file in memory.
struct Sound {
    int rate = 48000;
    int channels = 2;
    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    std::vector<float> samples;  // interleaved

    size_t frames() const { return samples.size() / size_t(channels); }
    float at(size_t frame, int channel) const {
        return samples[frame * size_t(channels) + size_t(channel)];
    }
};

/// Silence of so many frames.
Sound silence(size_t frames, int channels = 2, int rate = 48000);

/// Noise between -`peak` and `peak`, the same on every call; the channels differ.
Sound noise(size_t frames, int channels = 2, float peak = 0.5F);

void writeSound(const std::filesystem::path& file, const Sound& sound);

/// Fails the test if the file cannot be read.
Sound readSound(const std::filesystem::path& file);

/// The samples of an integer file as they stand in it, in the upper bits; no rounding on the way.
std::vector<int> readIntegers(const std::filesystem::path& file);

/// Index of the first sample whose bits differ, or -1; also for a different count.
ptrdiff_t firstDifference(const std::vector<float>& a, const std::vector<float>& b);

}  // namespace tessel8::host::test
