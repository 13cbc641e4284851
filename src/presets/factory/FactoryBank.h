#pragma once

#include <span>

#include "presets/ProgramRecord.h"

namespace tessel8 {

/// Writes the factory's 140 programs. `programs` has `kProgramCount` records.
void writeFactoryBank(std::span<ProgramRecord> programs);

}  // namespace tessel8
