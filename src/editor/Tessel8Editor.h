#pragma once

#include <atomic>
#include <memory>
#include <vector>

#include "editor/DigitDisplays.h"
#include "editor/EffectChanges.h"
#include "editor/EffectLink.h"
#include "editor/HeldKeys.h"
#include "editor/Meters.h"
#include "editor/NewFrame.h"
#include "editor/PadPresses.h"
#include "editor/Panel.h"
#include "editor/ScrollingTexts.h"
#include "editor/SliderScale.h"
#include "editor/Solo.h"
#include "editor/TapLinks.h"
#include "editor/TapPad.h"
#include "parameters/Links.h"
#include "presets/PresetSystemEditor.h"

namespace tessel8 {

/// The effect's panel. Lives as long as the effect, with or without a window, and gets its time
/// from the host's calls of `idle`; whatever moves by itself is worked out there from the clock.
///
/// The effect tells it of changes on any thread. Those calls only leave marks; `idle`, and every
/// gesture after what it has set, takes them over.
class Tessel8Editor : public CPresetSystemEditor, public EditorLink {
  public:
    /// `audioEffect` hears of gestures on behalf of the host; null in tests.
    Tessel8Editor(EffectLink& link, AudioEffectX* audioEffect,
                  TickClock& tickClock = TickClock::system());
    ~Tessel8Editor() override;

    bool open(void* parent) override;
    void close() override;
    void idle() override;
    void beginEdit(int32_t tag) override;
    void endEdit(int32_t tag) override;

    // EditorLink, on any thread
    void setParameter(int32_t index, float value) override;
    void showTempo(float tempo) override;
    void showLfoFrequency(float freqMod) override;
    int32_t editedParameter() override;
    void markMidiChange() override;
    uint32_t tick() const override { return clock.now(); }

    void valueChanged(CControl* control) override;

    // EditorMidiFiles.cpp: the controller map in a file of the user's choice.
    virtual void saveMidiSettings();
    virtual void loadMidiSettings();
    /// Where the last of these files was.
    void writePathSettings() override;
    void readPathSettings() override;

    /// Writes both lines of the display for a control.
    virtual void updateStatus(int32_t tag);
    /// What stands there in place of it while MIDI learn is on.
    virtual void showMidiAssignment(int32_t tag);
    /// 0: panel mode, anything else graph mode.
    virtual void setGraphMode(float mode);
    virtual void swapEditBars(int32_t parameter, float mode);
    virtual void showEditStrip(int32_t parameter);
    /// Level scale and levels of the graph by the edit parameter.
    virtual void updateGraphTaps();

    float getGraphMode() const { return graphMode; }
    int32_t getEditParameter() const { return editParameter; }

  protected:
    /// Makes the frame in the host's window; tests make it in another.
    virtual Shared<NewFrame> makeFrame(void* parent);
    Panel* getPanel() { return panel.get(); }
    void setKeyboardFocus(bool takesFocus) override;

  private:
    // Calls of the effect, and what it has told us by them.
    void setAutomated(int32_t index, float value);
    void setUnheard(int32_t index, float value);
    void takeOverChanges();

    // EditorUpdate.cpp: what the panel shows of the effect.
    void updateIndex(int32_t index);
    void showAll();
    void updateSliderScale();
    void updateSlider(int32_t tap);
    void updateSliders();
    void updateGraphTimes();
    void updateGraphSwitches();
    void refreshDelays();
    void updateMeterMode();
    void updateTapPadPicture();
    void showDigits(int32_t tag, const Digits& digits);

    // EditorIdle.cpp
    void showHoverText(uint32_t now);
    void refreshSyncedTaps();
    void repeatHeldKeys(uint32_t now);
    void moveMeters(uint32_t now);
    void pollValues();
    void putOutMidiLamp(uint32_t now);
    void storeMidiChanges();
    void showBesideStatus(int32_t tag);

    // EditorDispatch.cpp: what a control does.
    bool isTakenByLearn(int32_t tag);
    void act(CControl* control, int32_t tag, float value, uint32_t buttons);
    void actOnTapParameter(int32_t index, float value, uint32_t buttons);
    void actOnMaster(CControl* control, int32_t tag, float value, uint32_t buttons);
    void actOnKey(int32_t tag, float value, uint32_t buttons);
    void moveDelay(int32_t tap, float value, uint32_t buttons);
    void stepLfoNote(int32_t index, float step, uint32_t buttons);
    void moveZoom(int32_t direction);
    void moveEditParameter(int32_t direction);
    void touchTapSwitch(CControl* control, int32_t tap, float value, uint32_t buttons);
    void resetColumn(int32_t tag);
    void panic();
    void takeMidiFile(const std::string& path);

    // Keys that repeat while they are held.
    void pressNoteKey(int32_t tag, float value);
    void pressTempoKey(int32_t tag, float value);
    void pressDelayKey(int32_t tag, float value, uint32_t buttons);
    void stepNote(int32_t tag);
    void stepTempo(int32_t tag, float step);
    void stepDelay(int32_t tap, bool up, int32_t steps, uint32_t buttons);

    float applied(int32_t index) { return effectLink.appliedValue(index); }
    float applied(Family family, int32_t tap = 0) { return applied(parameterIndex(family, tap)); }
    bool isLearning() { return applied(command::kMidiLearn) != 0.0f; }
    bool isGraph() const { return graphMode != 0.0f; }
    NewFrame* panelFrame() const { return static_cast<NewFrame*>(frame.get()); }

    EffectLink& effectLink;
    EffectChanges changes;
    PadPresses padPresses;
    std::atomic<uint32_t> lastMidiChange;
    std::atomic<int32_t> editedTag{kNothingEdited};
    std::vector<int32_t> openGestures;  ///< tags that the host was told to begin, and not to end
    static constexpr int32_t kNothingEdited = INT32_MIN;

    std::unique_ptr<Panel> panel;  ///< while the window is open
    SliderScale sliderScale;
    ScrollingTexts scrollingTexts;
    TapPad tapPad;
    HeldKeys heldKeys;
    Solo solo;
    Meters meters;

    float graphMode = 0.0f;  ///< survives `close`
    int32_t editParameter = 0;
    int32_t hoverShown, hoverLast;
    std::string midiDir;
    uint32_t learnPress = 0;  ///< the mouse press that MIDI learn has taken, 0 for none

    // As last seen by `idle`.
    float seenZoom = 0.0f, seenTempo = 0.0f, seenFreqMod = 0.0f, refreshedTempo = 0.0f;
};

}  // namespace tessel8
