#include "presets/ProgramRecord.h"

#include <algorithm>
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

size_t wholeCharacters(std::string_view text, size_t most) {
    const auto isInside = [&](size_t at) { return (uint8_t(text[at]) & 0xC0) == 0x80; };
    if (text.size() <= most) {
        return text.size();
    }
    size_t end = most;
    while (end > 0 && most - end < 3 && isInside(end)) {
        --end;
    }
    return isInside(end) ? most : end;  // else the text is no UTF-8
}

void setRecordName(ProgramRecord& record, const char* text) {
    std::array<char, kNameBytes> name{};
    const size_t size = strnlen(text, name.size());
    std::memcpy(name.data(), text, size);
    const size_t kept = wholeCharacters({name.data(), size}, name.size() - 1);
    std::fill(name.begin() + int64_t(kept), name.end(), '\0');
    record.name = name;
}

}  // namespace tessel8
