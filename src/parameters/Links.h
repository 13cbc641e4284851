#pragma once

#include <cstdint>

namespace tessel8 {

// The three things outside that the parameters speak to. Each may be missing; calls come on
// whatever thread applies a value.

/// What the effect tells an editor. An editor only notes it and draws later.
class EditorLink {
  public:
    virtual ~EditorLink() = default;
    virtual void setParameter(int32_t index, float value) = 0;
    /// The tempo was written while the host leads it: show this normalised value.
    virtual void showTempo(float tempo) = 0;
    /// The note gave the LFO a new frequency: show this normalised value.
    virtual void showLfoFrequency(float freqMod) = 0;

    /// The parameter under the mouse gesture that is running, 215 for none.
    virtual int32_t editedParameter() = 0;
    /// A MIDI controller has moved a parameter: for a while the display does not follow the mouse.
    virtual void markMidiChange() = 0;
    /// The editor's clock in milliseconds.
    virtual uint32_t tick() const = 0;
};

/// Where the applied values of the current program go.
class ProgramSink {
  public:
    virtual ~ProgramSink() = default;
    /// True while a whole program is being applied; nothing is written back then.
    virtual bool isLoadingProgram() const = 0;
    virtual void storeValue(int32_t index, float value) = 0;
    /// All `kParameterCount` values in index order.
    virtual void storeAllValues(const float* values) = 0;
};

/// The host's transport.
class HostClock {
  public:
    virtual ~HostClock() = default;
    /// Writes the tempo in BPM; false where the host does not know one.
    virtual bool hostTempo(double& bpm) = 0;
    /// Writes the song position in quarter notes; false where the host does not know one.
    virtual bool songPosition(double& quarterNotes) = 0;
};

}  // namespace tessel8
