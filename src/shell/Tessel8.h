#pragma once

#include "engine/Engine.h"
#include "parameters/Parameters.h"
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
class Tessel8 : public CPresetSystemEffect, private HostClock {
  public:
    explicit Tessel8(audioMasterCallback audioMaster);
    ~Tessel8() override;

    void suspend() override;
    void resume() override;
    void setSampleRate(float rate) override;
    void processReplacing(float** inputs, float** outputs, int32_t sampleFrames) override;

    void setParameter(int32_t index, float value) override;
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

    virtual void resetToDefaults();
    virtual void applyParameter(int32_t index, float value);
    virtual float appliedValue(int32_t index);
    virtual void releaseEngineMemory();
    virtual void resetEngineState();
    virtual void clearEngine();
    virtual void takeOutputPeaks(float* left, float* right);
    virtual void takeInputPeaks(float* left, float* right);
    virtual void restartTapFade(int32_t parameterIndex);
    virtual int32_t getVersion(char* text);
    virtual EngineStatus getEngineStatus() { return engineStatus; }
    virtual void mirrorAppliedValues();
    virtual void requestPanic(bool on);

  private:
    // HostClock
    bool hostTempo(double& bpm) override;
    bool songPosition(double& quarterNotes) override;

    bool isRateInRange() const;
    bool runsEngine() const;

    Engine engine;
    Parameters parameters{engine};
    EngineStatus engineStatus = EngineStatus::NotStarted;
    bool rateOk = false;
};

}  // namespace tessel8
