#pragma once

#include <cstdint>

namespace tessel8 {

/// How a drag moves a knob.
constexpr int32_t kCircularMode = 0;
constexpr int32_t kLinearMode = 2;

/// What a frame asks of the editor that opened it.
class VSTGUIEditorInterface {
  public:
    virtual ~VSTGUIEditorInterface() = default;
    /// Keeps the panel alive while a gesture lasts; see `AEffGUIEditor`.
    virtual void doIdleStuff() {}
    virtual int32_t getKnobMode() const { return kCircularMode; }
    /// The user has taken hold of the control with that tag, or let go of it.
    virtual void beginEdit(int32_t /*index*/) {}
    virtual void endEdit(int32_t /*index*/) {}
};

}  // namespace tessel8
