#include "AudioWriter.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

#include "AudioFormat.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr size_t kChannels = 2;

/// Small blocks would cost a system call each, and the Vorbis coder keeps a whole piece on its
/// stack, so the file gets pieces of this size whatever the block.
constexpr size_t kPieceSamples = 4096 * kChannels;

/// The nearest step of `bits` bits, in the upper bits of the result. The steps of the reader are
/// 2^(1 - bits) too, so an untouched sample comes out as it went in.
int32_t quantise(float sample, int bits) {
    if (std::isnan(sample)) {
        return 0;
    }
    const double steps = std::ldexp(1.0, bits - 1);
    const double step = std::clamp(std::nearbyint(double(sample) * steps), -steps, steps - 1);
    return int32_t(int64_t(step) * (int64_t(1) << (32 - bits)));
}

/// Coders may use a sample as an index into a table, so they get nothing beyond full scale.
float withinFullScale(float sample) {
    return std::isnan(sample) ? 0.0F : std::clamp(sample, -1.0F, 1.0F);
}

}  // namespace

SF_VIRTUAL_IO AudioWriter::sinkFunctions() {
    SF_VIRTUAL_IO functions{};
    functions.get_filelen = [](void* user) -> sf_count_t {
        struct stat status {};
        return fstat(static_cast<Sink*>(user)->descriptor, &status) == 0 ? status.st_size : -1;
    };
    functions.seek = [](sf_count_t offset, int whence, void* user) -> sf_count_t {
        return lseek(static_cast<Sink*>(user)->descriptor, offset, whence);
    };
    functions.tell = [](void* user) -> sf_count_t {
        return lseek(static_cast<Sink*>(user)->descriptor, 0, SEEK_CUR);
    };
    functions.read = [](void* data, sf_count_t count, void* user) -> sf_count_t {
        return read(static_cast<Sink*>(user)->descriptor, data, size_t(count));
    };
    functions.write = [](const void* data, sf_count_t count, void* user) -> sf_count_t {
        auto* const sink = static_cast<Sink*>(user);
        const auto* const bytes = static_cast<const char*>(data);
        sf_count_t done = 0;
        while (done < count && sink->error == 0) {
            const ssize_t written = ::write(sink->descriptor, bytes + done, size_t(count - done));
            if (written > 0) {
                done += written;
            } else if (written == 0 || errno != EINTR) {
                sink->error = written == 0 ? ENOSPC : errno;
            }
        }
        return done;
    };
    return functions;
}

AudioWriter::AudioWriter(const std::filesystem::path& file, int format, int sampleRate)
    : pending_(file), sink_{pending_.descriptor(), 0}, format_(format) {
    SF_INFO info{};
    info.channels = int(kChannels);
    info.samplerate = sampleRate;
    info.format = format;
    SF_VIRTUAL_IO functions = sinkFunctions();
    file_.reset(sf_open_virtual(&functions, SFM_WRITE, &info, &sink_));
    if (!file_) {
        throw UserError("cannot write " + pending_.name() + ": " + sf_strerror(nullptr));
    }
    // That chunk holds the time of day, and equal renders shall give equal files.
    sf_command(file_.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    samples_.reserve(kPieceSamples);
}

void AudioWriter::write(const float* left, const float* right, size_t frames) {
    for (size_t i = 0; i < frames; ++i) {
        samples_.push_back(left[i]);
        samples_.push_back(right[i]);
        if (samples_.size() == kPieceSamples) {
            flush();
        }
    }
}

void AudioWriter::finish() {
    flush();
    file_.reset();
    check(true);
    pending_.commit();
}

void AudioWriter::flush() {
    if (const int bits = integerBits(format_); bits != 0) {
        flushIntegers(bits);
    } else {
        if (!isFloatingPoint(format_)) {
            std::transform(samples_.begin(), samples_.end(), samples_.begin(), withinFullScale);
        }
        const auto count = sf_count_t(samples_.size());
        check(sf_write_float(file_.get(), samples_.data(), count) == count);
    }
    samples_.clear();
}

void AudioWriter::flushIntegers(int bits) {
    integers_.resize(samples_.size());
    std::transform(samples_.begin(), samples_.end(), integers_.begin(),
                   [bits](float sample) { return quantise(sample, bits); });
    const auto count = sf_count_t(integers_.size());
    check(sf_write_int(file_.get(), integers_.data(), count) == count);
}

void AudioWriter::check(bool complete) {
    if (sink_.error != 0) {
        throw UserError("cannot write " + pending_.name() + ": " + std::strerror(sink_.error));
    }
    if (!complete) {
        throw UserError("cannot write " + pending_.name() + ": " + sf_strerror(file_.get()));
    }
}

}  // namespace tessel8::host
