#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tessel8::host {

/// How long the output goes on after the input, as the user asked for it.
struct TailLength {
    bool untilSilent = true;
    double seconds = 0;  ///< 0 to 3600, without meaning for `untilSilent`
};

/// "silent" or a number of seconds.
TailLength parseTail(std::string_view text);

/// The most frames that it can come to.
int64_t longestTail(TailLength length, int sampleRate);

/// Decides about the frames after the end of the input: how many there are, and which of them
/// belong to the output.
///
/// An exact tail is plain counting. A tail until silence ends one second after the last sound,
/// but a long echo may come back after seconds of silence. So quiet frames are held back, and
/// the search goes on for longer than the longest gap between two echoes: a sound lets go of
/// what was held back, and at the end one second of it is kept.
class Tail {
  public:
    using Emit = std::function<void(const float* left, const float* right, size_t frames)>;

    Tail(TailLength length, int sampleRate, Emit emit);

    /// How many of the next `room` frames shall be processed; 0 ends the render.
    size_t take(size_t room);

    /// Gets the effect's output for frames that were taken.
    void add(const float* left, const float* right, size_t frames);

    /// Emits what still belongs to the output.
    void finish();

  private:
    void release(size_t frames);

    bool untilSilent_;
    size_t remaining_;  // frames that may still be taken
    size_t keptSilence_;
    size_t longestGap_;
    Emit emit_;
    std::vector<float> quietLeft_;  // held back
    std::vector<float> quietRight_;
};

}  // namespace tessel8::host
