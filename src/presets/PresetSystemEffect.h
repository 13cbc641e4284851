#pragma once

#include <atomic>
#include <memory>
#include <span>

#include "parameters/Links.h"
#include "presets/ProgramStoreLink.h"
#include "vst/AudioEffectX.h"

namespace tessel8 {

/// The store of 140 programs between the host's interface and the effect. To the host there is
/// one program; the current record is itself the edit buffer.
class CPresetSystemEffect : public AudioEffectX, public ProgramSink, public ProgramStoreLink {
  public:
    explicit CPresetSystemEffect(audioMasterCallback audioMaster);

    /// Writes into the current program; other indices do nothing.
    void setParameter(int32_t index, float value) override;
    /// The current program's value, -1 outside 0 to 214.
    float getParameter(int32_t index) override;

    int32_t getProgram() override { return 0; }
    /// The host cannot change the program.
    void setProgram(int32_t /*program*/) override {}
    /// Takes the first 23 bytes.
    void setProgramName(const char* name) override;
    void getProgramName(char* text) override;
    bool getProgramNameIndexed(int32_t category, int32_t index, char* text) override;

    /// The whole store, also where the host asks for one program. `data` is good until the next
    /// call. Answers the size in bytes, 0 without memory.
    int32_t getChunk(void** data, bool isPreset) override;
    /// Replaces the store and selects its current program. Answers 0, or -1 for data that is not a
    /// chunk of ours or is not whole; then, as after a value that no program may hold (which
    /// answers 0), nothing has changed.
    int32_t setChunk(void* data, int32_t byteSize, bool isPreset) override;

    int32_t getCurrentProgramIndex() override { return currentProgram; }
    void selectProgram(int32_t index) override;
    void renameCurrentProgram(const char* name) override;
    ImageResult readPreset(std::span<const uint8_t> data, bool reversed) override;
    ImageResult readBank(std::span<const uint8_t> data, bool reversed) override;
    std::vector<uint8_t> writePreset() override;
    std::vector<uint8_t> writeBank() override;
    virtual int32_t getPluginId() { return getAeffect()->uniqueID; }
    /// Makes a program the neutral one, name included.
    virtual void resetProgram(int32_t index);
    /// Last step of construction.
    virtual void finishConstruction();
    /// Fills the store with the factory's programs.
    virtual void initFactoryBank();

    uint32_t storeRevision() const override { return revision.load(std::memory_order_acquire); }

    // ProgramSink
    bool isLoadingProgram() const override { return loadingProgram; }
    void storeValue(int32_t index, float value) override;
    void storeAllValues(const float* values) override;

  protected:
    ProgramRecord& currentRecord() { return programs[size_t(currentProgram)]; }
    std::span<ProgramRecord, kProgramCount> store() {
        return std::span<ProgramRecord, kProgramCount>(programs.get(), kProgramCount);
    }

    std::unique_ptr<ProgramRecord[]> programs;
    int32_t currentProgram = 0;
    ProgramRecord initRecord;  ///< what a program holds where loaded data says nothing
    std::atomic<bool> loadingProgram{false};

  private:
    /// Takes over a bank that a function reads into a copy of the store. Without memory for the
    /// copy nothing happens.
    template <typename Read>
    ImageResult replaceStore(Read read);
    void markChanged() { revision.fetch_add(1, std::memory_order_release); }

    std::unique_ptr<uint8_t[]> chunkBuffer;  ///< null without memory
    std::atomic<uint32_t> revision{0};
};

}  // namespace tessel8
