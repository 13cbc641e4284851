#pragma once

#include "toolkit/CFrame.h"
#include "toolkit/Shared.h"
#include "toolkit/TickClock.h"
#include "toolkit/VSTGUIEditorInterface.h"
#include "vst/AEffEditor.h"
#include "vst/AudioEffectX.h"

namespace tessel8 {

/// An editor whose window holds a frame. A derived `open` makes the frame, and `close` ends it;
/// without one the host's keys are not handled and idle time is of no use.
class AEffGUIEditor : public AEffEditor, public VSTGUIEditorInterface {
  public:
    explicit AEffGUIEditor(AudioEffectX* edited, TickClock& tickClock = TickClock::system())
        : effect(edited), clock(tickClock) {}
    ~AEffGUIEditor() override;

    AudioEffectX* getEffect() const { return effect; }
    bool getRect(ERect** answer) override;
    /// Stores the host's window.
    bool open(void* parent) override;
    /// Ends the frame, if there is one. The frame member is null after that.
    void close() override;
    bool isOpen() const { return frame && frame->isOpen(); }
    /// The frame's idle, unless the host calls it from inside our call of its own.
    void idle() override;
    bool onKeyDown(const VstKeyCode& key) override;
    bool onKeyUp(const VstKeyCode& key) override;
    /// The host tells a turn of the wheel over the panel.
    bool onWheel(float distance);
    /// One mode for all editors of the library.
    bool setKnobMode(int32_t mode) override;
    /// The host asks for a repaint of a part.
    void draw(const ERect& part);
    CFrame* getFrame() const { return frame.get(); }

    // VSTGUIEditorInterface
    /// Every control calls this during a gesture, since the host's idle may not come then: one
    /// idle pass every 100 ms at most, and a wait of 4 ms for a call that comes early.
    void doIdleStuff() override;
    int32_t getKnobMode() const override;
    /// Told to the host with the tag as the parameter's index.
    void beginEdit(int32_t index) override;
    void endEdit(int32_t index) override;

  protected:
    AudioEffectX* effect;
    TickClock& clock;
    ERect rect{};
    void* systemWindow = nullptr;  ///< the host's, while open
    Shared<CFrame> frame;          ///< null while the window is closed

  private:
    uint32_t nextPass = 0;  ///< tick in milliseconds before which a call of `doIdleStuff` is early
    bool insideIdleStuff = false;
};

}  // namespace tessel8
