#pragma once

#include <cstdint>
#include <filesystem>

namespace tessel8::host {

/// What the samples of the output become.
enum class SampleFormat {
    floatingPoint,  ///< 32-bit float, or the best that the container can hold
    asInput,        ///< the input's own kind of sample
};

/// libsndfile's number for a stereo file: the container by the ending of `file` (WAV without an
/// ending), the kind of sample by `wanted` and `inputFormat`. Throws UserError for an ending that
/// is not known and for a container that cannot hold the input's samples.
int outputFormat(const std::filesystem::path& file, SampleFormat wanted, int inputFormat,
                 int sampleRate);

/// Throws UserError if a file of so many stereo frames is more than its container can count.
void checkLength(const std::filesystem::path& file, int format, int64_t frames);

/// Bits of a sample if it is a whole number, else 0 (float, compressed).
int integerBits(int format);

/// Whether the samples are floats, which hold any value unchanged.
bool isFloatingPoint(int format);

}  // namespace tessel8::host
