#include "AudioReader.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "SampleRate.h"
#include "UserError.h"

namespace tessel8::host {

AudioReader::AudioReader(const std::filesystem::path& file) : name_(file.string()) {
    std::error_code ignored;
    if (access(file.c_str(), R_OK) != 0) {
        throw UserError(name_ + ": " + std::strerror(errno));
    }
    if (std::filesystem::is_directory(file, ignored)) {
        throw UserError(name_ + " is a folder, not an audio file");
    }
    file_.reset(sf_open(file.c_str(), SFM_READ, &info_));
    if (!file_) {
        throw UserError(name_ + " is not a readable audio file: " + sf_strerror(nullptr));
    }
    if (info_.channels > 2) {
        throw UserError(name_ + " has " + std::to_string(info_.channels) +
                        " channels; the effect takes one or two");
    }
    if (info_.frames <= 0) {
        throw UserError(name_ + " holds no sound: it has 0 frames");
    }
    checkSampleRate(info_.samplerate, name_);
}

size_t AudioReader::read(float* left, float* right, size_t count) {
    const auto channels = size_t(info_.channels);
    interleaved_.resize(count * channels);
    const sf_count_t got = sf_readf_float(file_.get(), interleaved_.data(), sf_count_t(count));
    if (got < sf_count_t(count) && sf_error(file_.get()) != SF_ERR_NO_ERROR) {
        throw UserError("cannot read " + name_ + ": " + sf_strerror(file_.get()));
    }
    for (size_t i = 0; i < size_t(got); ++i) {
        left[i] = interleaved_[i * channels];
        right[i] = interleaved_[i * channels + channels - 1];
    }
    return size_t(got);
}

void AudioReader::rewind() {
    if (sf_seek(file_.get(), 0, SEEK_SET) != 0) {
        throw UserError(name_ + " cannot be repeated: it cannot be read from its beginning again");
    }
}

}  // namespace tessel8::host
