#pragma once

#include <atomic>

#include "editor/EffectLink.h"
#include "engine/Engine.h"
#include "midi/ControllerMap.h"
#include "midi/MidiInput.h"
#include "parameters/Parameters.h"
#include "presets/ControllerMapStore.h"
#include "presets/PresetSystemEffect.h"

namespace tessel8 {

constexpr int32_t kUniqueId = fourCharacters('T', 'S', 'L', '8');

/// Why the engine does not process, as the panel and tests read it.
enum class EngineStatus : uint8_t {
    Ready = 0,
    NoMemory = 1,
    RateRefused = 2,
    Suspended = 3,
    NotStarted = 4
};

/// The effect: owns the engine, the parameters and the editor, and answers the host.
class Tessel8 : public CPresetSystemEffect,
                public EffectLink,
                private HostClock,
                private MidiTarget {
  public:
    explicit Tessel8(audioMasterCallback audioMaster);
    ~Tessel8() override;

    void suspend() override;
    void resume() override;
    void setSampleRate(float rate) override;
    void processReplacing(float** inputs, float** outputs, int32_t sampleFrames) override;

    void setParameter(int32_t index, float value) override;
    void setParameterAutomated(int32_t index, float value) override;
    float getParameter(int32_t index) override;
    void getParameterLabel(int32_t index, char* text) override;
    void getParameterDisplay(int32_t index, char* text) override;
    void getParameterName(int32_t index, char* text) override;

    bool getEffectName(char* text) override;
    bool getVendorString(char* text) override;
    bool getProductString(char* text) override;
    int32_t getVendorVersion() override;
    int32_t canDo(const char* text) override;
    int32_t getPlugCategory() override { return kPlugCategEffect; }
    int32_t processEvents(VstEvents* events) override;

    virtual void resetToDefaults();
    virtual void applyParameter(int32_t index, float value);
    float appliedValue(int32_t index) override;
    virtual void releaseEngineMemory();
    virtual void resetEngineState();
    virtual void clearEngine();
    void takeOutputPeaks(float* left, float* right) override;
    void takeInputPeaks(float* left, float* right) override;
    void restartTapFade(int32_t parameterIndex) override;
    int32_t getVersion(char* text) override;
    virtual EngineStatus getEngineStatus() { return engineStatus; }
    virtual void mirrorAppliedValues();
    void requestPanic(bool on) override;
    void beginEdit(int32_t tag) override { AudioEffectX::beginEdit(tag); }
    void endEdit(int32_t tag) override { AudioEffectX::endEdit(tag); }

    // The MIDI controllers of this instance.
    virtual void resetControllerMap() { controllerMap.reset(); }
    /// Last step of learn: puts the controller that was heard on the parameter, and ends learn.
    virtual void assignController(int32_t index);
    /// The lowest controller from 1 to 119 on a parameter, 128 for none.
    int32_t controllerForParameter(int32_t index) override;
    /// 128 bytes: what each controller drives, 217 and above for nothing.
    virtual uint8_t* controllerMapData() { return controllerMap.data(); }
    /// Takes the tag of a control that was touched while learn is on.
    void learnController(int32_t tag) override;
    void clearControllerMap() override { controllerMap.clear(); }

    virtual void loadControllerMap() { mapStore.load(); }
    virtual void saveControllerMap() { mapStore.save(); }
    ControllerMapStore* controllerMapStore() override { return &mapStore; }

    ProgramStoreLink* programStore() override { return this; }
    /// Also restores the user's defaults.
    void finishConstruction() override;

    // Texts for the panel's display, each cut (not rounded) to `decimals` digits behind the point
    // or, for 0, at the point. `text` takes `kTextBytes`.
    virtual void delayToMsText(float value, char* text, int32_t decimals);
    virtual void gainToDbText(float value, char* text, int32_t decimals);
    virtual void samplesToMsText(float value, char* text, int32_t decimals);
    virtual void gainToDbUnitText(float value, char* text, int32_t decimals);

  private:
    // HostClock
    bool hostTempo(double& bpm) override;
    bool songPosition(double& quarterNotes) override;

    // MidiTarget
    bool isLearning() const override { return parameters.isMidiLearnActive(); }
    void controllerHeard(uint8_t controller) override { parameters.hearController(controller); }
    int32_t heldParameter() override;
    void midiSeen() override;
    void midiMoved() override;

    void connectEditor();
    void endMidiLearn();
    bool isRateInRange() const;
    bool runsEngine() const;

    Engine engine;
    Parameters parameters{engine};
    ControllerMap controllerMap;
    ControllerMapStore mapStore{controllerMap};
    EditorLink* panel = nullptr;  ///< the editor as the effect sees it
    std::atomic<EngineStatus> engineStatus = EngineStatus::NotStarted;
    bool rateOk = false;
};

}  // namespace tessel8
