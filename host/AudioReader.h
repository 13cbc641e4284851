#pragma once

#include <sndfile.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tessel8::host {

/// An audio file as two channels of floats; a mono file becomes two equal ones.
class AudioReader {
  public:
    /// Throws UserError for what is not an audio file of one or two channels with some sound, at a
    /// rate that the effect takes.
    explicit AudioReader(const std::filesystem::path& file);

    int sampleRate() const { return info_.samplerate; }
    /// 0 where the length is not known beforehand, as in a compressed stream out of a pipe.
    int64_t frames() const { return info_.frames == SF_COUNT_MAX ? 0 : info_.frames; }
    int format() const { return info_.format; }

    /// Reads the next `count` frames; fewer mean that the file has ended.
    size_t read(float* left, float* right, size_t count);

    /// Goes back to the first frame; throws UserError where that cannot be done, as in a pipe.
    void rewind();

  private:
    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };

    std::string name_;
    SF_INFO info_{};
    std::unique_ptr<SNDFILE, Close> file_;
    std::vector<float> interleaved_;
};

}  // namespace tessel8::host
