#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "TempoMap.h"

namespace tessel8::host {

/// What a standard MIDI file says to an effect: the channel messages of all its tracks and its
/// tempos, each in order of time. Times are ticks from the start of the song.
struct MidiFile {
    struct Message {
        uint64_t tick;
        std::array<uint8_t, 3> bytes;  ///< the status first; what a short message lacks is 0
    };
    struct Tempo {
        uint64_t tick;
        uint32_t microseconds;  ///< of a quarter note, never 0
    };

    uint32_t ticksPerQuarter = 1;
    std::vector<Message> messages;
    std::vector<Tempo> tempos;
};

/// Reads a file of format 0 or 1 that counts in ticks of a quarter note. Messages of one tick
/// keep the order of the tracks. Throws UserError for every other file and for a damaged one.
MidiFile readMidiFile(const std::filesystem::path& file);

/// The song's tempo over its quarter notes; `bpm` holds before the first that the file tells.
TempoMap tempoMapOf(const MidiFile& song, double bpm);

}  // namespace tessel8::host
