#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "MidiPlayer.h"
#include "Parameters.h"
#include "Plugin.h"
#include "Transport.h"

namespace tessel8::host {

/// Two channels of one block, with the pointers to them that an effect wants.
struct Block {
    explicit Block(size_t frames) : left(frames), right(frames) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    std::vector<float> left;
    std::vector<float> right;
    std::array<float*, 2> channels{left.data(), right.data()};
};

/// The effect with its blocks; the song moves on with the audio.
class Chain {
  public:
    Chain(Plugin& plugin, Transport& transport, MidiPlayer midi, int sampleRate, int blockFrames);

    /// Starts the effect with these settings, before the first audio.
    void startWith(const std::vector<Setting>& settings);

    /// Sends the first frames of `in` to `out`, with the MIDI messages that fall into them.
    void process(size_t frames);

    int sampleRate() const { return sampleRate_; }
    size_t blockFrames() const { return in.left.size(); }
    int64_t processedFrames() const { return processedFrames_; }

    /// Processed time over the time that the processor has taken for it.
    double timesRealTime() const;

    Block in;
    Block out;

  private:
    Plugin& plugin_;
    Transport& transport_;
    MidiPlayer midi_;
    int sampleRate_;
    int64_t processedFrames_ = 0;
    double processorSeconds_ = 0;
};

}  // namespace tessel8::host
