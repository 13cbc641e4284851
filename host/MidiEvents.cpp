#include "MidiEvents.h"

#include <algorithm>

namespace tessel8::host {

namespace {

constexpr size_t kListHead = offsetof(VstEvents, events) / sizeof(intptr_t);

}  // namespace

MidiEvents::MidiEvents(size_t room) {
    events_.reserve(room);
    list_.reserve(kListHead + room);
}

void MidiEvents::add(const std::array<uint8_t, 3>& message, int32_t deltaFrames) {
    VstMidiEvent event{};
    event.type = kVstMidiType;
    event.byteSize = int32_t(sizeof event - offsetof(VstMidiEvent, deltaFrames));
    event.deltaFrames = deltaFrames;
    std::transform(message.begin(), message.end(), event.midiData,
                   [](uint8_t byte) { return char(byte); });
    events_.push_back(event);
}

void MidiEvents::sendTo(const Plugin& plugin) {
    if (events_.empty()) {
        return;
    }
    list_.assign(kListHead + events_.size(), 0);
    auto* const list = reinterpret_cast<VstEvents*>(list_.data());
    list->numEvents = int32_t(events_.size());
    for (size_t i = 0; i < events_.size(); ++i) {
        list->events[i] = reinterpret_cast<VstEvent*>(&events_[i]);
    }
    plugin.dispatch(effProcessEvents, 0, 0, list);
    events_.clear();
}

}  // namespace tessel8::host
