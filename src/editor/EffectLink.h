#pragma once

#include <cstdint>

namespace tessel8 {

class ControllerMapStore;
class ProgramStoreLink;

/// The name under which the effect ships.
inline constexpr char kProductName[] = "Vantor Tessel Echo";

/// From about this value of `TimeMode` on the host has the tempo.
inline constexpr float kHostLeads = 0.9f;

/// The effect as the panel sees it. The indices are those of parameters, commands and readings.
class EffectLink {
  public:
    virtual ~EffectLink() = default;

    /// What the engine holds, or a reading.
    virtual float appliedValue(int32_t index) = 0;
    /// What the host reads.
    virtual float getParameter(int32_t index) = 0;
    /// A change that the host is not told of.
    virtual void setParameter(int32_t index, float value) = 0;
    /// A gesture on a host parameter.
    virtual void setParameterAutomated(int32_t index, float value) = 0;
    /// Announce a gesture to the host, by the control's tag.
    virtual void beginEdit(int32_t tag) = 0;
    virtual void endEdit(int32_t tag) = 0;

    /// The highest levels since the last call, which sets them to 0.
    virtual void takeInputPeaks(float* left, float* right) = 0;
    virtual void takeOutputPeaks(float* left, float* right) = 0;
    /// Fades a tap in anew, so that a moved delay is not heard jumping; by the index of its delay.
    virtual void restartTapFade(int32_t parameterIndex) = 0;
    virtual void requestPanic(bool on) = 0;

    /// The MIDI controller on a parameter, 128 for none.
    virtual int32_t controllerForParameter(int32_t index) = 0;
    /// A control was touched while MIDI learn is on.
    virtual void learnController(int32_t tag) = 0;
    virtual void clearControllerMap() = 0;

    /// The programs, and the controller map as it is kept for the user; null where there are none.
    virtual ProgramStoreLink* programStore() { return nullptr; }
    virtual ControllerMapStore* controllerMapStore() { return nullptr; }

    /// Writes "1.6.1 build 349" into at least 35 bytes.
    virtual int32_t getVersion(char* text) = 0;
};

}  // namespace tessel8
