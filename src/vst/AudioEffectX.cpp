#include "vst/AudioEffectX.h"

intptr_t AudioEffectX::dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                  float opt) {
    char* const text = static_cast<char*>(ptr);
    switch (opcode) {
        case effProcessEvents:
            if (ptr) {
                processEvents(static_cast<VstEvents*>(ptr));
            }
            return 1;
        case effCanBeAutomated:
            return 1;
        case effGetProgramNameIndexed:
            return text && getProgramNameIndexed(int32_t(value), index, text);
        case effGetPlugCategory:
            return getPlugCategory();
        case effGetEffectName:
            return text && getEffectName(text);
        case effGetVendorString:
            return text && getVendorString(text);
        case effGetProductString:
            return text && getProductString(text);
        case effGetVendorVersion:
            return getVendorVersion();
        case effCanDo:
            return text ? canDo(text) : 0;
        case effGetVstVersion:
            return kVstVersion;
        case effGetCurrentMidiProgram:
            return -1;
        case effGetSpeakerArrangement:
            // The arrangement is told as "none": both places get a null pointer.
            if (value) {
                *reinterpret_cast<void**>(value) = nullptr;
            }
            if (ptr) {
                *static_cast<void**>(ptr) = nullptr;
            }
            return 0;
        case effSetTotalSampleToProcess:
            return value;
        default:
            return AudioEffect::dispatcher(opcode, index, value, ptr, opt);
    }
}

void AudioEffectX::resume() {
    if (canDo("receiveVstMidiEvent") == 1) {
        callHost(audioMasterWantMidi, 0, 1);
    }
}

const VstTimeInfo* AudioEffectX::getTimeInfo(int32_t filter) {
    return reinterpret_cast<const VstTimeInfo*>(callHost(audioMasterGetTime, 0, filter));
}

bool AudioEffectX::canHostDo(const char* text) {
    return callHost(audioMasterCanDo, 0, 0, const_cast<char*>(text)) != 0;
}

void AudioEffectX::updateDisplay() {
    callHost(audioMasterUpdateDisplay);
}

void AudioEffectX::beginEdit(int32_t index) {
    callHost(audioMasterBeginEdit, index);
}

void AudioEffectX::endEdit(int32_t index) {
    callHost(audioMasterEndEdit, index);
}
