#pragma once

#include "vst/AudioEffect.h"

/// The second layer of the plug-in interface: the opcodes 25 to 79 and what the effect asks of
/// its host.
class AudioEffectX : public AudioEffect {
  public:
    using AudioEffect::AudioEffect;

    intptr_t dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                        float opt) override;

    /// Asks the host for MIDI events if the effect says that it takes them.
    void resume() override;

    virtual int32_t processEvents(VstEvents* /*events*/) { return 0; }
    virtual bool getProgramNameIndexed(int32_t /*category*/, int32_t /*index*/, char* /*text*/) {
        return false;
    }
    virtual bool getEffectName(char* /*text*/) { return false; }
    virtual bool getVendorString(char* /*text*/) { return false; }
    virtual bool getProductString(char* /*text*/) { return false; }
    virtual int32_t getVendorVersion() { return 0; }
    virtual int32_t canDo(const char* /*text*/) { return 0; }
    virtual int32_t getPlugCategory() { return 0; }

    /// The host's transport, null when it gives none. `filter` is one of `VstTimeInfoFlags`; the
    /// caller still tests the same bit of the answer's `flags`.
    const VstTimeInfo* getTimeInfo(int32_t filter);
    bool canHostDo(const char* text);
    void updateDisplay();
    void beginEdit(int32_t index);
    void endEdit(int32_t index);
};
