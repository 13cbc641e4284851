#include "presets/PresetSystemEffect.h"

#include <algorithm>
#include <cstring>

#include "presets/factory/FactoryBank.h"

namespace tessel8 {

namespace {

constexpr int32_t kHostPrograms = 1;

void copyName(const ProgramRecord& record, char* text) {
    std::memcpy(text, record.name.data(), kNameBytes);
    text[kNameBytes] = 0;
}

}  // namespace

CPresetSystemEffect::CPresetSystemEffect(audioMasterCallback callback)
    : AudioEffectX(callback, kHostPrograms, kParameterCount),
      programs(std::make_unique<ProgramRecord[]>(kProgramCount)) {
    programsAreChunks(true);
    CPresetSystemEffect::initFactoryBank();
}

void CPresetSystemEffect::initFactoryBank() {
    writeFactoryBank({programs.get(), kProgramCount});
}

void CPresetSystemEffect::setParameter(int32_t index, float value) {
    storeValue(index, value);
}

float CPresetSystemEffect::getParameter(int32_t index) {
    return index >= 0 && index < kParameterCount ? currentRecord().values[size_t(index)] : -1.0f;
}

void CPresetSystemEffect::storeValue(int32_t index, float value) {
    if (index >= 0 && index < kParameterCount) {
        currentRecord().values[size_t(index)] = value;
    }
}

void CPresetSystemEffect::storeAllValues(const float* values) {
    std::copy_n(values, kParameterCount, currentRecord().values.begin());
}

void CPresetSystemEffect::setProgramName(const char* name) {
    setRecordName(currentRecord(), name);
}

void CPresetSystemEffect::getProgramName(char* text) {
    copyName(currentRecord(), text);
}

bool CPresetSystemEffect::getProgramNameIndexed(int32_t /*category*/, int32_t index, char* text) {
    if (index < 0 || index >= kProgramCount) {
        return false;
    }
    copyName(programs[size_t(index)], text);
    return true;
}

void CPresetSystemEffect::selectProgram(int32_t index) {
    if (index < 0 || index >= kProgramCount) {
        return;
    }
    loadingProgram = true;
    curProgram = 0;
    currentProgram = index;
    // By value: a parameter may reach back into the record while it is being applied.
    const ProgramRecord record = currentRecord();
    for (int32_t i = 0; i < kParameterCount; ++i) {
        setParameter(i, record.values[size_t(i)]);
    }
    updateDisplay();
    beginEdit(0);
    endEdit(0);
    loadingProgram = false;
}

}  // namespace tessel8
