#pragma once

#include <memory>

#include "vst/AEffEditor.h"
#include "vst/Vst24.h"

/// The first layer of the plug-in interface: the record that the host holds, its entry functions,
/// and the opcodes 0 to 24. Virtual operations have harmless bodies.
class AudioEffect {
  public:
    AudioEffect(audioMasterCallback audioMaster, int32_t numPrograms, int32_t numParams);
    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;
    virtual ~AudioEffect();

    AEffect* getAeffect() { return &cEffect; }

    virtual intptr_t dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                float opt);

    virtual void open() {}
    virtual void close() {}
    virtual void suspend() {}
    virtual void resume() {}

    /// The accumulating call of old hosts; nothing is added.
    virtual void process(float** /*inputs*/, float** /*outputs*/, int32_t /*sampleFrames*/) {}
    virtual void processReplacing(float** inputs, float** outputs, int32_t sampleFrames) = 0;
    virtual void processDoubleReplacing(double** /*inputs*/, double** /*outputs*/,
                                        int32_t /*sampleFrames*/) {}

    virtual void setParameter(int32_t /*index*/, float /*value*/) {}
    virtual float getParameter(int32_t /*index*/) { return 0.0f; }
    /// Applies the value and tells the host, which may record it.
    virtual void setParameterAutomated(int32_t index, float value);
    /// Gives the host time while a gesture on the panel keeps its thread busy.
    void masterIdle() { callHost(audioMasterIdle); }

    virtual int32_t getProgram() { return 0; }
    virtual void setProgram(int32_t program) { curProgram = program; }
    virtual void setProgramName(const char* /*name*/) {}
    virtual void getProgramName(char* text) { *text = 0; }

    virtual void getParameterLabel(int32_t /*index*/, char* text) { *text = 0; }
    virtual void getParameterDisplay(int32_t /*index*/, char* text) { *text = 0; }
    virtual void getParameterName(int32_t /*index*/, char* text) { *text = 0; }

    /// Size in bytes of the data that `data` is pointed at, 0 for none.
    virtual int32_t getChunk(void** /*data*/, bool /*isPreset*/) { return 0; }
    virtual int32_t setChunk(void* /*data*/, int32_t /*byteSize*/, bool /*isPreset*/) { return 0; }

    virtual void setSampleRate(float rate) { sampleRate = rate; }
    virtual void setBlockSize(int32_t frames) { blockSize = frames; }
    float getSampleRate() const { return sampleRate; }

    void setEditor(std::unique_ptr<AEffEditor> newEditor);
    AEffEditor* getEditor() const { return editor.get(); }

  protected:
    void setNumInputs(int32_t count) { cEffect.numInputs = count; }
    void setNumOutputs(int32_t count) { cEffect.numOutputs = count; }
    void setUniqueID(int32_t id) { cEffect.uniqueID = id; }
    void canProcessReplacing(bool on = true) { setFlag(effFlagsCanReplacing, on); }
    void programsAreChunks(bool on = true) { setFlag(effFlagsProgramChunks, on); }

    /// Every call to the host goes through here; without a callback the answer is 0.
    intptr_t callHost(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);

    AEffect cEffect{};
    audioMasterCallback audioMaster;
    std::unique_ptr<AEffEditor> editor;
    float sampleRate = 44100.0f;
    int32_t blockSize = 1024;
    int32_t curProgram = 0;

  private:
    void setFlag(int32_t flag, bool on) {
        cEffect.flags = on ? cEffect.flags | flag : cEffect.flags & ~flag;
    }
};
