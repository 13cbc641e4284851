#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "MidiEvents.h"
#include "MidiFile.h"
#include "Plugin.h"
#include "TempoMap.h"

namespace tessel8::host {

/// Hands the messages of a song to the effect, each with the block into which it falls.
class MidiPlayer {
  public:
    /// Plays nothing.
    MidiPlayer() = default;
    /// `sampleRate` in Hz.
    MidiPlayer(const MidiFile& song, const TempoMap& tempo, double sampleRate);

    /// Sends what falls into the block of `frames` frames that comes next.
    void play(const Plugin& plugin, size_t frames);

  private:
    struct Timed {
        double frame;  // a whole number, but a lying file's may be beyond every integer
        std::array<uint8_t, 3> bytes;
    };

    std::vector<Timed> messages_;  // in order of time
    size_t next_ = 0;              // the first that is not sent
    double position_ = 0;          // frames before the next block
    MidiEvents events_;
};

}  // namespace tessel8::host
