#pragma once

#include <vector>

namespace tessel8::host {

/// The tempo of a song over its quarter notes; each tempo holds until the next one.
class TempoMap {
  public:
    /// From one change on.
    struct Stretch {
        double quarters;  ///< where it begins, in quarter notes from the start of the song
        double seconds;   ///< the same in time
        double bpm;
    };

    /// `bpm` holds from the start of the song.
    explicit TempoMap(double bpm) : stretches_{{0, 0, bpm}} {}

    /// `quarters` must not lie before that of an earlier change; at the same place the later
    /// change holds.
    void change(double quarters, double bpm);

    const Stretch& atSeconds(double seconds) const;
    double secondsAt(double quarters) const;

  private:
    std::vector<Stretch> stretches_;  // never empty
};

}  // namespace tessel8::host
