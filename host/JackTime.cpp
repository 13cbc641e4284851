#include "JackTime.h"

#include <cmath>

namespace tessel8::host {

namespace {

constexpr double kSecondsPerMinute = 60;
constexpr double kQuartersPerWhole = 4;

bool has(const jack_position_t& position, jack_position_bits_t field) {
    return (unsigned(position.valid) & unsigned(field)) != 0;
}

bool isPositive(double value) {
    return std::isfinite(value) && value > 0;
}

bool hasMusicalTime(const jack_position_t& position) {
    return has(position, JackPositionBBT) && isPositive(position.beats_per_minute) &&
           isPositive(position.beats_per_bar) && isPositive(position.beat_type) &&
           isPositive(position.ticks_per_beat);
}

/// Bars and beats are counted from 1, ticks from 0.
SongPosition::Musical musicalTimeOf(const jack_position_t& position) {
    const bool fineTick = has(position, JackTickDouble) && std::isfinite(position.tick_double);
    const double tick = fineTick ? position.tick_double : position.tick;
    const double beats = (position.bar - 1.0) * position.beats_per_bar + (position.beat - 1.0) +
                         tick / position.ticks_per_beat;
    // The minute's beats are those of the time signature, an effect's are quarter notes.
    const double quartersPerBeat = kQuartersPerWhole / position.beat_type;
    const double bpm = position.beats_per_minute * quartersPerBeat;
    SongPosition::Musical musical{bpm, beats * quartersPerBeat};
    if (has(position, JackBBTFrameOffset) && position.frame_rate != 0) {
        const double secondsAgo = double(position.bbt_offset) / position.frame_rate;
        musical.quarters += secondsAgo * bpm / kSecondsPerMinute;
    }
    return musical;
}

}  // namespace

SongPosition songPositionOf(const jack_position_t& position, bool rolling) {
    SongPosition song{double(position.frame), rolling, std::nullopt};
    if (hasMusicalTime(position)) {
        song.musical = musicalTimeOf(position);
    }
    return song;
}

}  // namespace tessel8::host
