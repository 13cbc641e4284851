#pragma once

#include <array>

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

/// Sets a name of at most 23 characters; a longer one is cut.
void setRecordName(ProgramRecord& record, const char* text);

}  // namespace tessel8
