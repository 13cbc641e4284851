#include "shell/Tessel8.h"

#include <cstring>
#include <memory>

#include "editor/EffectLink.h"
#include "editor/Tessel8Editor.h"
#include "engine/DenormalGuard.h"
#include "parameters/ControlTags.h"
#include "parameters/ParameterTexts.h"
#include "shell/Version.h"

namespace tessel8 {

namespace {

/// Hosts give no length; every text here is shorter than what the interface's buffers take.
void copyText(char* to, const char* text) {
    std::memcpy(to, text, std::strlen(text) + 1);
}

}  // namespace

Tessel8::Tessel8(audioMasterCallback callback) : CPresetSystemEffect(callback) {
    // Without rings this ends in "no memory": the effect is transparent until a rate arrives.
    Tessel8::resume();
    Tessel8::loadControllerMap();
    connectEditor();
    setNumInputs(2);
    setNumOutputs(2);
    canProcessReplacing(true);
    setUniqueID(kUniqueId);
    parameters.connect(this, this);
    Tessel8::finishConstruction();
    selectProgram(0);
}

void Tessel8::connectEditor() {
    auto made = std::make_unique<Tessel8Editor>(*this, this);
    panel = made.get();
    parameters.connect(panel);
    setEditor(std::move(made));
}

Tessel8::~Tessel8() {
    Tessel8::saveControllerMap();
    // The editor reaches back into the effect, also while it goes.
    panel = nullptr;
    parameters.connect(nullptr);
    setEditor(nullptr);
    rateOk = false;
    Tessel8::releaseEngineMemory();
}

void Tessel8::finishConstruction() {
    CPresetSystemEffect::finishConstruction();
    static_cast<Tessel8Editor*>(getEditor())->restoreDefaults();
}

bool Tessel8::isRateInRange() const {
    return sampleRate >= kLowestRate && sampleRate <= kHighestRate;
}

void Tessel8::setSampleRate(float rate) {
    engine.ready = false;
    rateOk = false;
    sampleRate = rate;
    parameters.setSampleRate(rate);
    if (!isRateInRange()) {
        engineStatus = EngineStatus::RateRefused;
        return;
    }
    rateOk = true;
    if (!engine.allocateForRate(rate)) {
        engineStatus = EngineStatus::NoMemory;
        return;
    }
    engine.ready = true;
}

void Tessel8::suspend() {
    engine.ready = false;
    // A block that runs on another thread is given a moment; a host that never comes back out of
    // one must not hang us.
    for (int turn = 0; engine.inProcess && turn < 200; ++turn) {
    }
    engine.inProcess = false;
    engineStatus = EngineStatus::Suspended;
    engine.rewind();
    resetEngineState();
    engine.clearRings();
    engine.reverb.clearLines();
}

void Tessel8::resume() {
    engine.ready = false;
    AudioEffectX::resume();
    rateOk = isRateInRange();
    engineStatus = rateOk ? EngineStatus::Ready : EngineStatus::RateRefused;
    engine.rewind();
    engine.setSmoothingRate(sampleRate);
    parameters.recalculateForRate();
    if (engine.hasMemory()) {
        engine.ready = true;
    } else {
        engineStatus = EngineStatus::NoMemory;
    }
    engine.endFades();
    Tessel8::requestPanic(false);  // also runs while the object is being made
}

bool Tessel8::runsEngine() const {
    return parameters.isPowered() && engine.ready && rateOk && !engine.panicRequested &&
           !loadingProgram;
}

void Tessel8::processReplacing(float** inputs, float** outputs, int32_t sampleFrames) {
    engine.inProcess = true;
    parameters.beginBlock();
    {
        const DenormalGuard guard;
        if (runsEngine()) {
            engine.beginBlock();
            engine.process(inputs, outputs, sampleFrames);
        } else {
            if (engine.clearPending) {
                clearEngine();
                engine.clearPending = false;
            }
            engine.panicRequested = false;
            engine.passThrough(inputs, outputs, sampleFrames);
        }
    }
    engine.inProcess = false;
    if (parameters.isDirty()) {
        mirrorAppliedValues();
    }
}

void Tessel8::releaseEngineMemory() {
    engine.ready = false;
    engineStatus = EngineStatus::NoMemory;
    engine.releaseMemory();
}

void Tessel8::resetEngineState() {
    engine.resetState();
    parameters.endMidiLearn();
}

void Tessel8::clearEngine() {
    engine.clear();
    parameters.endMidiLearn();
}

void Tessel8::requestPanic(bool on) {
    engine.panicRequested = on;
    engine.clearPending = on;
}

void Tessel8::takeInputPeaks(float* left, float* right) {
    *left = engine.takeMeter(0);
    *right = engine.takeMeter(1);
}

void Tessel8::takeOutputPeaks(float* left, float* right) {
    *left = engine.takeMeter(2);
    *right = engine.takeMeter(3);
}

void Tessel8::restartTapFade(int32_t index) {
    const int32_t tap = index - parameterIndex(Family::DelayT);
    if (tap >= 0 && tap < kTaps) {
        engine.restartFade(tap);
    }
}

void Tessel8::resetToDefaults() {
    parameters.resetToDefaults();
}

void Tessel8::applyParameter(int32_t index, float value) {
    parameters.apply(index, value);
}

float Tessel8::appliedValue(int32_t index) {
    return parameters.applied(index);
}

void Tessel8::mirrorAppliedValues() {
    parameters.mirrorAppliedValues();
}

void Tessel8::setParameter(int32_t index, float value) {
    applyParameter(index, value);
}

void Tessel8::setParameterAutomated(int32_t index, float value) {
    AudioEffect::setParameterAutomated(index, value);
}

float Tessel8::getParameter(int32_t index) {
    return parameters.stored(index);
}

void Tessel8::getParameterName(int32_t index, char* text) {
    copyText(text, parameterName(index));
}

void Tessel8::getParameterLabel(int32_t index, char* text) {
    copyText(text, parameterLabel(index));
}

void Tessel8::getParameterDisplay(int32_t index, char* text) {
    writeDisplayText(parameters, index, text);
}

void Tessel8::delayToMsText(float value, char* text, int32_t decimals) {
    writeDelayMs(parameters, value, text, decimals);
}

void Tessel8::gainToDbText(float value, char* text, int32_t decimals) {
    writeDecibels(value, text, decimals);
}

void Tessel8::samplesToMsText(float value, char* text, int32_t decimals) {
    writeSamplesAsMs(parameters, value, text, decimals);
}

void Tessel8::gainToDbUnitText(float value, char* text, int32_t decimals) {
    writeDecibelsWithUnit(value, text, decimals);
}

int32_t Tessel8::processEvents(VstEvents* events) {
    if (events) {
        processMidiEvents(*events, controllerMap, *this);
    }
    return 1;
}

int32_t Tessel8::heldParameter() {
    return panel ? panel->editedParameter() : kNotAssigned;
}

void Tessel8::midiSeen() {
    if (panel) {
        panel->setParameter(reading::kMidiStamp, 1.0f);
        parameters.stampMidi(panel->tick());
    }
}

void Tessel8::midiMoved() {
    if (panel) {
        panel->markMidiChange();
    }
}

void Tessel8::endMidiLearn() {
    parameters.endMidiLearn();
    if (panel) {
        panel->setParameter(command::kMidiLearn, 0.0f);
    }
}

void Tessel8::learnController(int32_t tag) {
    if (canBeLearnt(tag)) {
        assignController(parameterOfTag(tag));
    } else {
        endMidiLearn();
    }
}

void Tessel8::assignController(int32_t index) {
    const uint8_t heard = parameters.heardController();
    if (parameters.isMidiLearnActive() && heard <= kLastLearnt) {
        controllerMap.assign(heard, index);
    }
    endMidiLearn();
}

int32_t Tessel8::controllerForParameter(int32_t index) {
    return controllerMap.controllerFor(index);
}

bool Tessel8::getEffectName(char* text) {
    copyText(text, kProductName);
    return true;
}

bool Tessel8::getVendorString(char* text) {
    copyText(text, "Vantoraudio");
    return true;
}

bool Tessel8::getProductString(char* text) {
    copyText(text, "Vantor Tessel Echo - 8 tap delay plug-in");
    return true;
}

int32_t Tessel8::getVendorVersion() {
    return getVersion(nullptr);
}

int32_t Tessel8::getVersion(char* text) {
    return versionNumber(kVersionLiteral, text);
}

int32_t Tessel8::canDo(const char* text) {
    // The effect takes MIDI exactly where the host sends it.
    return std::strcmp(text, "receiveVstMidiEvent") == 0 && canHostDo("sendVstMidiEvent");
}

bool Tessel8::hostTempo(double& bpm) {
    const VstTimeInfo* time = getTimeInfo(kVstTempoValid);
    if (!time || !(time->flags & kVstTempoValid)) {
        return false;
    }
    bpm = time->tempo;
    return true;
}

bool Tessel8::songPosition(double& quarterNotes) {
    const VstTimeInfo* time = getTimeInfo(kVstPpqPosValid);
    if (!time || !(time->flags & kVstPpqPosValid)) {
        return false;
    }
    quarterNotes = time->ppqPos;
    return true;
}

}  // namespace tessel8
