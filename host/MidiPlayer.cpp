#include "MidiPlayer.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tessel8::host {

namespace {

VstMidiEvent eventOf(const std::array<uint8_t, 3>& bytes, int32_t deltaFrames) {
    VstMidiEvent event{};
    event.type = kVstMidiType;
    event.byteSize = int32_t(sizeof event - offsetof(VstMidiEvent, deltaFrames));
    event.deltaFrames = deltaFrames;
    std::transform(bytes.begin(), bytes.end(), event.midiData, [](uint8_t b) { return char(b); });
    return event;
}

}  // namespace

MidiPlayer::MidiPlayer(const MidiFile& song, const TempoMap& tempo, double sampleRate) {
    messages_.reserve(song.messages.size());
    for (const MidiFile::Message& message : song.messages) {
        const double quarters = double(message.tick) / song.ticksPerQuarter;
        messages_.push_back({std::round(tempo.secondsAt(quarters) * sampleRate), message.bytes});
    }
}

void MidiPlayer::play(const Plugin& plugin, size_t frames) {
    events_.clear();
    const double end = position_ + double(frames);
    for (; next_ < messages_.size() && messages_[next_].frame < end; ++next_) {
        const Timed& message = messages_[next_];
        events_.push_back(eventOf(message.bytes, int32_t(message.frame - position_)));
    }
    position_ = end;
    if (events_.empty()) {
        return;
    }
    list_.assign(offsetof(VstEvents, events) / sizeof(intptr_t) + events_.size(), 0);
    auto* const list = reinterpret_cast<VstEvents*>(list_.data());
    list->numEvents = int32_t(events_.size());
    for (size_t i = 0; i < events_.size(); ++i) {
        list->events[i] = reinterpret_cast<VstEvent*>(&events_[i]);
    }
    plugin.dispatch(effProcessEvents, 0, 0, list);
}

}  // namespace tessel8::host
