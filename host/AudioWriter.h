#pragma once

#include <sndfile.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "PendingFile.h"

namespace tessel8::host {

/// A stereo audio file in the making; it appears under its name with `finish` only.
class AudioWriter {
  public:
    /// `format` as libsndfile counts, see outputFormat().
    AudioWriter(const std::filesystem::path& file, int format, int sampleRate);

    void write(const float* left, const float* right, size_t frames);

    /// Completes the file. Without it nothing is left behind.
    void finish();

  private:
    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };
    /// What libsndfile's reads and writes end in. Its own error reports get lost when it writes
    /// the last bytes on closing, so the first failure is kept here.
    struct Sink {
        int descriptor;
        int error;  // errno of the first failed write, else 0
    };
    static SF_VIRTUAL_IO sinkFunctions();

    void flush();
    void flushIntegers(int bits);
    void check(bool complete);

    PendingFile pending_;
    Sink sink_;
    int format_;
    std::unique_ptr<SNDFILE, Close> file_;
    std::vector<float> samples_;  // interleaved, not yet handed to libsndfile
    std::vector<int32_t> integers_;
};

}  // namespace tessel8::host
