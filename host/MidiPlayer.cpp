#include "MidiPlayer.h"

#include <cmath>

namespace tessel8::host {

MidiPlayer::MidiPlayer(const MidiFile& song, const TempoMap& tempo, double sampleRate) {
    messages_.reserve(song.messages.size());
    for (const MidiFile::Message& message : song.messages) {
        const double quarters = double(message.tick) / song.ticksPerQuarter;
        messages_.push_back({std::round(tempo.secondsAt(quarters) * sampleRate), message.bytes});
    }
}

void MidiPlayer::play(const Plugin& plugin, size_t frames) {
    const double end = position_ + double(frames);
    for (; next_ < messages_.size() && messages_[next_].frame < end; ++next_) {
        const Timed& message = messages_[next_];
        events_.add(message.bytes, int32_t(message.frame - position_));
    }
    position_ = end;
    events_.sendTo(plugin);
}

}  // namespace tessel8::host
