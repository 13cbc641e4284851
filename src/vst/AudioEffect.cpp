#include "vst/AudioEffect.h"

#include <utility>

namespace {

AudioEffect* objectOf(AEffect* effect) {
    return effect ? static_cast<AudioEffect*>(effect->object) : nullptr;
}

intptr_t VST_CALL dispatcherEntry(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                                  void* ptr, float opt) {
    AudioEffect* object = objectOf(effect);
    if (!object) {
        return 0;
    }
    const intptr_t answer = object->dispatcher(opcode, index, value, ptr, opt);
    if (opcode == effClose) {
        delete object;
        return 1;
    }
    return answer;
}

void VST_CALL processEntry(AEffect* effect, float** inputs, float** outputs, int32_t frames) {
    if (AudioEffect* object = objectOf(effect)) {
        object->process(inputs, outputs, frames);
    }
}

void VST_CALL processReplacingEntry(AEffect* effect, float** inputs, float** outputs,
                                    int32_t frames) {
    if (AudioEffect* object = objectOf(effect)) {
        object->processReplacing(inputs, outputs, frames);
    }
}

void VST_CALL processDoubleReplacingEntry(AEffect* effect, double** inputs, double** outputs,
                                          int32_t frames) {
    if (AudioEffect* object = objectOf(effect)) {
        object->processDoubleReplacing(inputs, outputs, frames);
    }
}

void VST_CALL setParameterEntry(AEffect* effect, int32_t index, float value) {
    if (AudioEffect* object = objectOf(effect)) {
        object->setParameter(index, value);
    }
}

float VST_CALL getParameterEntry(AEffect* effect, int32_t index) {
    AudioEffect* object = objectOf(effect);
    return object ? object->getParameter(index) : 0.0f;
}

VstKeyCode keyCodeFrom(int32_t index, intptr_t value, float opt) {
    return {index, uint8_t(value & 0xff), uint8_t(int32_t(opt >= 0 && opt < 256 ? opt : 0))};
}

}  // namespace

AudioEffect::AudioEffect(audioMasterCallback callback, int32_t numPrograms, int32_t numParams)
    : audioMaster(callback) {
    cEffect.magic = kEffectMagic;
    cEffect.dispatcher = dispatcherEntry;
    cEffect.process = processEntry;
    cEffect.setParameter = setParameterEntry;
    cEffect.getParameter = getParameterEntry;
    cEffect.numPrograms = numPrograms;
    cEffect.numParams = numParams;
    cEffect.ioRatio = 1.0f;
    cEffect.object = this;
    cEffect.version = 1;
    cEffect.processReplacing = processReplacingEntry;
    cEffect.processDoubleReplacing = processDoubleReplacingEntry;
}

AudioEffect::~AudioEffect() = default;

intptr_t AudioEffect::callHost(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                               float opt) {
    return audioMaster ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}

void AudioEffect::setEditor(std::unique_ptr<AEffEditor> newEditor) {
    editor = std::move(newEditor);
    setFlag(effFlagsHasEditor, editor != nullptr);
}

void AudioEffect::setParameterAutomated(int32_t index, float value) {
    setParameter(index, value);
    callHost(audioMasterAutomate, index, 0, nullptr, value);
}

intptr_t AudioEffect::dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                 float opt) {
    char* const text = static_cast<char*>(ptr);
    switch (opcode) {
        case effOpen:
            open();
            return 0;
        case effClose:
            close();
            return 0;
        case effSetProgram:
            if (value < cEffect.numPrograms) {
                setProgram(int32_t(value));
            }
            return 0;
        case effGetProgram:
            return getProgram();
        case effSetProgramName:
            if (text) {
                setProgramName(text);
            }
            return 0;
        case effGetProgramName:
            if (text) {
                getProgramName(text);
            }
            return 0;
        case effGetParamLabel:
            if (text) {
                getParameterLabel(index, text);
            }
            return 0;
        case effGetParamDisplay:
            if (text) {
                getParameterDisplay(index, text);
            }
            return 0;
        case effGetParamName:
            if (text) {
                getParameterName(index, text);
            }
            return 0;
        case effSetSampleRate:
            setSampleRate(opt);
            return 0;
        case effSetBlockSize:
            setBlockSize(int32_t(value));
            return 0;
        case effMainsChanged:
            if (value) {
                resume();
            } else {
                suspend();
            }
            return 0;
        case effEditGetRect:
            return editor && ptr && editor->getRect(static_cast<ERect**>(ptr));
        case effEditOpen:
            return editor && editor->open(ptr);
        case effEditClose:
            if (editor) {
                editor->close();
            }
            return 0;
        case effEditIdle:
            if (editor) {
                editor->idle();
            }
            return 0;
        case effIdentify:
            return fourCharacters('N', 'v', 'E', 'f');
        case effGetChunk:
            return ptr ? getChunk(static_cast<void**>(ptr), index != 0) : 0;
        case effSetChunk:
            return setChunk(ptr, int32_t(value), index != 0);
        case effEditKeyDown:
            return editor && editor->onKeyDown(keyCodeFrom(index, value, opt));
        case effEditKeyUp:
            return editor && editor->onKeyUp(keyCodeFrom(index, value, opt));
        case effSetEditKnobMode:
            return editor && editor->setKnobMode(int32_t(value));
        default:
            return 0;
    }
}
