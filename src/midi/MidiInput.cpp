#include "midi/MidiInput.h"

#include "midi/ControllerMap.h"

namespace tessel8 {

namespace {

constexpr uint8_t kControlChange = 0xB0;
constexpr float kHighestData = 127.0f;

struct Message {
    uint8_t status, data1, data2;
};

void drive(const Message& message, const ControllerMap& map, int32_t held, MidiTarget& target) {
    if (message.data1 > kLastLearnt) {
        return;
    }
    const uint8_t entry = map.entry(message.data1);
    // A controller does not fight the mouse.
    if (entry == held || entry >= kNotAssigned) {
        return;
    }
    if (entry == kDrivesTapPad) {
        // A press is the top value and nothing less; the host is not told.
        target.setParameter(kDrivesTapPad, message.data2 == uint8_t(kHighestData) ? 1.0f : 0.0f);
    } else {
        target.setParameterAutomated(entry, float(message.data2) / kHighestData);
    }
    target.midiMoved();
}

}  // namespace

void processMidiEvents(const VstEvents& events, const ControllerMap& map, MidiTarget& target) {
    const int32_t held = target.heldParameter();
    VstEvent* const* const list = events.events;  // as long as its count says
    for (int32_t i = 0; i < events.numEvents; ++i) {
        const VstEvent* const event = list[i];
        if (!event || event->type != kVstMidiType) {
            continue;
        }
        const char* const data = reinterpret_cast<const VstMidiEvent*>(event)->midiData;
        const Message message{uint8_t(data[0]), uint8_t(data[1]), uint8_t(data[2])};
        target.midiSeen();
        if ((message.status & kControlChange) != kControlChange) {
            continue;
        }
        if (target.isLearning()) {
            target.controllerHeard(message.data1);
        } else {
            drive(message, map, held, target);
        }
    }
}

}  // namespace tessel8
