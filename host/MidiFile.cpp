#include "MidiFile.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>

#include "FileBytes.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

using Bytes = std::span<const uint8_t>;

constexpr size_t kMostFileBytes = size_t(16) << 20;
constexpr uint32_t kHeaderBytes = 6;
constexpr uint32_t kSmpteDivision = 0x8000;
constexpr double kMicrosecondsPerMinute = 60e6;

enum Status : uint8_t {
    kFirstStatus = 0x80,
    kProgramChange = 0xC0,  // this and the channel's pressure carry one byte, all others two
    kChannelPressure = 0xD0,
    kFirstSystemStatus = 0xF0,
    kSysEx = 0xF0,
    kSysExContinued = 0xF7,
    kMeta = 0xFF,
};

enum MetaType : uint8_t { kEndOfTrack = 0x2F, kSetTempo = 0x51 };

/// Reads on through a stretch of bytes and never beyond its end.
class Cursor {
  public:
    /// `subject` is what an error complains about, e.g. "song.mid: track 2".
    Cursor(Bytes bytes, std::string subject) : rest_(bytes), subject_(std::move(subject)) {}

    [[noreturn]] void fail(const std::string& complaint) const {
        throw UserError(subject_ + " " + complaint);
    }

    Bytes take(size_t count) {
        if (count > rest_.size()) {
            fail("breaks off");
        }
        const Bytes taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

    uint8_t byte() { return take(1)[0]; }
    uint8_t dataByte() {
        const uint8_t value = byte();
        if (value >= kFirstStatus) {
            fail("has a message within a message");
        }
        return value;
    }
    bool nextIsStatus() const { return !rest_.empty() && rest_[0] >= kFirstStatus; }

    /// A number of so many bytes, the highest first.
    uint32_t number(size_t bytes) {
        uint32_t value = 0;
        for (const uint8_t next : take(bytes)) {
            value = value << 8 | next;
        }
        return value;
    }

    /// A number of seven bits a byte; all its bytes but the last have the eighth bit set.
    uint32_t variableLengthNumber() {
        constexpr int kMostBytes = 4;
        uint32_t value = 0;
        for (int i = 0; i < kMostBytes; ++i) {
            const uint8_t next = byte();
            value = value << 7 | (next & 0x7FU);
            if (next < 0x80) {
                return value;
            }
        }
        fail("has a number of more than four bytes");
    }

    bool takeName(const char* name) {
        return std::ranges::equal(take(4), std::string_view(name),
                                  [](uint8_t a, char b) { return a == uint8_t(b); });
    }

  private:
    Bytes rest_;
    std::string subject_;
};

uint8_t readStatus(Cursor& track, uint8_t running) {
    if (track.nextIsStatus() || running == 0) {
        const uint8_t status = track.byte();
        if (status < kFirstStatus) {
            track.fail("has data where a message should begin");
        }
        return status;
    }
    return running;
}

MidiFile::Message readMessage(Cursor& track, uint64_t tick, uint8_t status) {
    MidiFile::Message message{tick, {status, track.dataByte(), 0}};
    const uint8_t kind = status & 0xF0;
    if (kind != kProgramChange && kind != kChannelPressure) {
        message.bytes[2] = track.dataByte();
    }
    return message;
}

void readTempo(Cursor& track, Bytes data, uint64_t tick, MidiFile& song) {
    const uint32_t microseconds =
        data.size() == 3 ? uint32_t(data[0]) << 16 | uint32_t(data[1]) << 8 | data[2] : 0;
    if (microseconds == 0) {
        track.fail("has a tempo that is none");
    }
    song.tempos.push_back({tick, microseconds});
}

/// Reads up to the mark of the track's end. A message without a status of its own has that of
/// the message before; anything but messages ends that.
void readTrack(Cursor track, MidiFile& song) {
    uint64_t tick = 0;
    uint8_t running = 0;
    for (;;) {
        tick += track.variableLengthNumber();
        const uint8_t status = readStatus(track, running);
        running = status < kFirstSystemStatus ? status : 0;
        if (status < kFirstSystemStatus) {
            song.messages.push_back(readMessage(track, tick, status));
        } else if (status == kSysEx || status == kSysExContinued) {
            track.take(track.variableLengthNumber());
        } else if (status == kMeta) {
            const uint8_t type = track.byte();
            const Bytes data = track.take(track.variableLengthNumber());
            if (type == kEndOfTrack) {
                return;
            }
            if (type == kSetTempo) {
                readTempo(track, data, tick, song);
            }
        } else {
            track.fail("has a message that belongs on a cable, not into a file");
        }
    }
}

/// Returns the number of tracks.
uint32_t readHeader(Cursor& file, MidiFile& song) {
    const uint32_t bytes = file.number(4);
    if (bytes < kHeaderBytes) {
        file.fail("is damaged: its header is too short");
    }
    const uint32_t format = file.number(2), tracks = file.number(2), division = file.number(2);
    file.take(bytes - kHeaderBytes);
    if (format > 1) {
        file.fail("is a MIDI file of format " + std::to_string(format) +
                  "; formats 0 and 1 can be played");
    }
    if (format == 0 && tracks != 1) {
        file.fail("is damaged: format 0 has one track, not " + std::to_string(tracks));
    }
    if ((division & kSmpteDivision) != 0) {
        file.fail("counts time in SMPTE frames; ticks of a quarter note are needed");
    }
    if (division == 0) {
        file.fail("is damaged: its quarter note has 0 ticks");
    }
    song.ticksPerQuarter = division;
    return tracks;
}

template <typename Entry>
void sortByTime(std::vector<Entry>& entries) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.tick < b.tick; });
}

}  // namespace

MidiFile readMidiFile(const std::filesystem::path& name) {
    const std::vector<uint8_t> bytes = readFile(name, kMostFileBytes);
    Cursor file(bytes, name.string());
    if (bytes.size() < 4 || !file.takeName("MThd")) {
        file.fail("is not a MIDI file");
    }
    MidiFile song;
    const uint32_t tracks = readHeader(file, song);
    for (uint32_t track = 1; track <= tracks;) {
        const bool isTrack = file.takeName("MTrk");
        const Bytes body = file.take(file.number(4));
        if (isTrack) {  // other pieces may stand between the tracks
            readTrack({body, name.string() + ": track " + std::to_string(track)}, song);
            ++track;
        }
    }
    sortByTime(song.messages);
    sortByTime(song.tempos);
    return song;
}

TempoMap tempoMapOf(const MidiFile& song, double bpm) {
    TempoMap map(bpm);
    for (const MidiFile::Tempo& tempo : song.tempos) {
        map.change(double(tempo.tick) / song.ticksPerQuarter,
                   kMicrosecondsPerMinute / tempo.microseconds);
    }
    return map;
}

}  // namespace tessel8::host
