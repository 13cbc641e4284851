#pragma once

#include <atomic>
#include <memory>

#include "parameters/Links.h"
#include "presets/ProgramRecord.h"
#include "vst/AudioEffectX.h"

namespace tessel8 {

/// The store of 140 programs between the host's interface and the effect. To the host there is
/// one program; the current record is itself the edit buffer.
class CPresetSystemEffect : public AudioEffectX, public ProgramSink {
  public:
    explicit CPresetSystemEffect(audioMasterCallback audioMaster);

    /// Writes into the current program; other indices do nothing.
    void setParameter(int32_t index, float value) override;
    /// The current program's value, -1 outside 0 to 214.
    float getParameter(int32_t index) override;

    int32_t getProgram() override { return 0; }
    /// The host cannot change the program.
    void setProgram(int32_t /*program*/) override {}
    void setProgramName(const char* name) override;
    void getProgramName(char* text) override;
    bool getProgramNameIndexed(int32_t category, int32_t index, char* text) override;

    /// Makes a program current and applies all its values.
    virtual void selectProgram(int32_t index);
    virtual int32_t getCurrentProgramIndex() { return currentProgram; }
    /// Last step of construction.
    virtual void finishConstruction() {}
    /// Fills the store with the factory's programs.
    virtual void initFactoryBank();

    // ProgramSink
    bool isLoadingProgram() const override { return loadingProgram; }
    void storeValue(int32_t index, float value) override;
    void storeAllValues(const float* values) override;

  protected:
    ProgramRecord& currentRecord() { return programs[size_t(currentProgram)]; }

    std::unique_ptr<ProgramRecord[]> programs;
    int32_t currentProgram = 0;
    std::atomic<bool> loadingProgram{false};
};

}  // namespace tessel8
