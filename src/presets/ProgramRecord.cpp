#include "presets/ProgramRecord.h"

#include <cstring>

namespace tessel8 {

ProgramRecord neutralProgram() {
    ProgramRecord record;
    setRecordName(record, "*init");
    for (int32_t index = 0; index < kParameterCount; ++index) {
        record.values[size_t(index)] = parameterDefault(index);
    }
    return record;
}

void setRecordName(ProgramRecord& record, const char* text) {
    record.name.fill(0);
    std::memcpy(record.name.data(), text, strnlen(text, kNameBytes - 1));
}

}  // namespace tessel8
