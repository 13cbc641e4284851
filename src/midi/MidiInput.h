#pragma once

#include <cstdint>

#include "vst/Vst24.h"

namespace tessel8 {

class ControllerMap;

/// What MIDI events act upon.
class MidiTarget {
  public:
    virtual ~MidiTarget() = default;
    virtual void setParameter(int32_t index, float value) = 0;
    /// The same, and the host records it.
    virtual void setParameterAutomated(int32_t index, float value) = 0;

    virtual bool isLearning() const = 0;
    /// Learn has heard a controller; the last one counts.
    virtual void controllerHeard(uint8_t controller) = 0;

    /// The parameter that the mouse holds at this moment, a number from 215 on for none.
    virtual int32_t heldParameter() = 0;
    /// Any MIDI event came in.
    virtual void midiSeen() = 0;
    /// A controller has moved a parameter.
    virtual void midiMoved() = 0;
};

/// Lets controller messages drive parameters, on all channels alike. What the mouse holds is left
/// to the mouse. Other events are only seen.
void processMidiEvents(const VstEvents& events, const ControllerMap& map, MidiTarget& target);

}  // namespace tessel8
