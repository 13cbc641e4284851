#pragma once

#include <cstdint>
#include <optional>

#include "TempoMap.h"
#include "vst/Vst24.h"

namespace tessel8::host {

/// Where a song stands that another program leads.
struct SongPosition {
    struct Musical {
        double bpm;
        double quarters;  ///< from the start of the song
    };

    double frame = 0;  ///< from the start of the song
    bool rolling = false;
    std::optional<Musical> musical;  ///< none where that program keeps no musical time
};

/// The song that the effect is told about: it stands at 0 until `play` and moves with the audio.
/// Without a tempo the host knows no musical time, and says so in the flags.
class Transport {
  public:
    explicit Transport(std::optional<TempoMap> tempo = std::nullopt);

    /// Puts the song at its beginning.
    void start(double sampleRate);
    void play();
    void advance(int64_t frames);

    /// In place of `play` and `advance`: goes where another program's song is, with its musical
    /// time or, where it has none, with our own tempo. Does not allocate.
    void follow(const SongPosition& position);

    /// What the effect gets to read; it may keep the pointer until the next call of ours.
    VstTimeInfo& time() { return time_; }

  private:
    void tellMusicalTime();

    std::optional<TempoMap> tempo_;
    VstTimeInfo time_{};
};

}  // namespace tessel8::host
