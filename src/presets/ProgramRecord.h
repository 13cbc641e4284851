#pragma once

#include <array>
#include <string_view>

#include "parameters/ParameterTable.h"

namespace tessel8 {

constexpr int32_t kProgramCount = 140;
constexpr int32_t kNameBytes = 24;

/// One program: a name (zero-terminated unless all 24 bytes are used) and the applied value of
/// every parameter in index order.
struct ProgramRecord {
    std::array<char, kNameBytes> name{};
    std::array<float, kParameterCount> values{};
};

/// The neutral program.
ProgramRecord neutralProgram();

/// The size of the longest part at the start of a UTF-8 text that has at most `most` bytes and
/// cuts no character in two.
size_t wholeCharacters(std::string_view text, size_t most);

/// Sets a name of at most 23 bytes; a longer one is cut.
void setRecordName(ProgramRecord& record, const char* text);

}  // namespace tessel8
