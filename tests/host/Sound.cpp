#include "Sound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <stdexcept>

namespace tessel8::host::test {

Sound silence(size_t frames, int channels, int rate) {
    Sound sound;
    sound.rate = rate;
    sound.channels = channels;
    sound.samples.assign(frames * size_t(channels), 0.0F);
    return sound;
}

Sound noise(size_t frames, int channels, float peak) {
    Sound sound = silence(frames, channels);
    std::minstd_rand random(1);
    for (float& sample : sound.samples) {
        sample = peak * (float(random() % 65536) / 32768.0F - 1.0F);
    }
    return sound;
}

void writeSound(const std::filesystem::path& file, const Sound& sound) {
    SF_INFO info{};
    info.samplerate = sound.rate;
    info.channels = sound.channels;
    info.format = sound.format;
    SNDFILE* const handle = sf_open(file.c_str(), SFM_WRITE, &info);
    if (handle == nullptr) {
        throw std::runtime_error("cannot make " + file.string());
    }
    sf_write_float(handle, sound.samples.data(), sf_count_t(sound.samples.size()));
    sf_close(handle);
}

Sound readSound(const std::filesystem::path& file) {
    SF_INFO info{};
    SNDFILE* const handle = sf_open(file.c_str(), SFM_READ, &info);
    if (handle == nullptr) {
        ADD_FAILURE() << "cannot read " << file;
        return silence(0);
    }
    Sound sound{info.samplerate, info.channels, info.format, {}};
    sound.samples.resize(size_t(info.frames) * size_t(info.channels));
    sf_read_float(handle, sound.samples.data(), sf_count_t(sound.samples.size()));
    sf_close(handle);
    return sound;
}

std::vector<int> readIntegers(const std::filesystem::path& file) {
    SF_INFO info{};
    SNDFILE* const handle = sf_open(file.c_str(), SFM_READ, &info);
    if (handle == nullptr) {
        ADD_FAILURE() << "cannot read " << file;
        return {};
    }
    std::vector<int> samples(size_t(info.frames) * size_t(info.channels));
    sf_read_int(handle, samples.data(), sf_count_t(samples.size()));
    sf_close(handle);
    return samples;
}

ptrdiff_t firstDifference(const std::vector<float>& a, const std::vector<float>& b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        if (std::memcmp(&a[i], &b[i], sizeof(float)) != 0) {
            return ptrdiff_t(i);
        }
    }
    return a.size() == b.size() ? -1 : ptrdiff_t(common);
}

}  // namespace tessel8::host::test
