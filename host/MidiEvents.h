#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Plugin.h"

namespace tessel8::host {

/// The MIDI messages of one block, in the form in which an effect takes them.
class MidiEvents {
  public:
    /// Up to `room` messages a block, nothing here allocates; more are taken all the same.
    explicit MidiEvents(size_t room = 0);

    /// One message, whose bytes that it does not have are 0, `deltaFrames` frames after the
    /// beginning of the block.
    void add(const std::array<uint8_t, 3>& message, int32_t deltaFrames);

    size_t size() const { return events_.size(); }
    void clear() { events_.clear(); }

    /// Hands them to the effect, if there are any, and is empty again. What the effect keeps of the
    /// list holds until the next message is added.
    void sendTo(const Plugin& plugin);

  private:
    std::vector<VstMidiEvent> events_;
    std::vector<intptr_t> list_;  // a VstEvents with room for all of them
};

}  // namespace tessel8::host
