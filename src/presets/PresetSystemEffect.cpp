#include "presets/PresetSystemEffect.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "presets/Chunk.h"
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
      programs(std::make_unique<ProgramRecord[]>(kProgramCount)),
      chunkBuffer(new (std::nothrow) uint8_t[kChunkSize]) {
    programsAreChunks(true);
    CPresetSystemEffect::initFactoryBank();
    initRecord = programs[0];
}

void CPresetSystemEffect::finishConstruction() {
    initRecord = programs[0];
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
    markChanged();
}

void CPresetSystemEffect::renameCurrentProgram(const char* name) {
    curProgram = 0;
    if (name) {
        setRecordName(currentRecord(), name);
        markChanged();
    }
    updateDisplay();
}

void CPresetSystemEffect::resetProgram(int32_t index) {
    if (index >= 0 && index < kProgramCount) {
        programs[size_t(index)] = initRecord;
        markChanged();
    }
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
    markChanged();
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

int32_t CPresetSystemEffect::getChunk(void** data, bool /*isPreset*/) {
    if (!chunkBuffer) {
        return 0;
    }
    writeChunk(store(), currentProgram, chunkBuffer.get());
    *data = chunkBuffer.get();
    return int32_t(kChunkSize);
}

template <typename Read>
ImageResult CPresetSystemEffect::replaceStore(Read read) {
    const std::unique_ptr<ProgramRecord[]> copy(new (std::nothrow) ProgramRecord[kProgramCount]);
    if (!copy) {
        return ImageResult::Dropped;
    }
    std::copy_n(programs.get(), kProgramCount, copy.get());
    int32_t current = 0;
    const ImageResult result =
        read(std::span<ProgramRecord, kProgramCount>(copy.get(), kProgramCount), current);
    if (result == ImageResult::Applied) {
        // From here on a block that runs meanwhile writes none of its own values into the programs.
        loadingProgram = true;
        std::copy_n(copy.get(), kProgramCount, programs.get());
        selectProgram(current);
    }
    return result;
}

int32_t CPresetSystemEffect::setChunk(void* data, int32_t byteSize, bool /*isPreset*/) {
    if (!data || byteSize < 0 || !chunkBuffer) {
        return -1;
    }
    const std::span<const uint8_t> chunk(static_cast<const uint8_t*>(data), size_t(byteSize));
    const ImageResult result = replaceStore(
        [&](auto copy, int32_t& current) { return readChunk(chunk, initRecord, copy, current); });
    return result == ImageResult::Refused ? -1 : 0;
}

ImageResult CPresetSystemEffect::readBank(std::span<const uint8_t> data, bool reversed) {
    return replaceStore([&](auto copy, int32_t& current) {
        return readBankFile(data, reversed, initRecord, copy, current);
    });
}

ImageResult CPresetSystemEffect::readPreset(std::span<const uint8_t> data, bool reversed) {
    ProgramRecord program = currentRecord();
    const ImageResult result = readPresetFile(data, reversed, initRecord, program);
    if (result == ImageResult::Applied) {
        loadingProgram = true;
        currentRecord() = program;
        renameCurrentProgram(nullptr);
        selectProgram(currentProgram);
    }
    return result;
}

std::vector<uint8_t> CPresetSystemEffect::writePreset() {
    std::vector<uint8_t> image(kPresetImageSize);
    writePresetImage(currentRecord(), image.data());
    return image;
}

std::vector<uint8_t> CPresetSystemEffect::writeBank() {
    std::vector<uint8_t> image(kBankImageSize);
    writeBankImage(store(), currentProgram, image.data());
    return image;
}

}  // namespace tessel8
