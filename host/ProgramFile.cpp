#include "ProgramFile.h"

#include <algorithm>

#include "FileBytes.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

/// A bank of our own has 1 MB; others may have written longer records.
constexpr size_t kMostFileBytes = size_t(16) << 20;

}  // namespace

ProgramFile::ProgramFile(const std::filesystem::path& file)
    : name_(file.string()), bytes_(readFile(file, kMostFileBytes)), kind_(imageKind(bytes_)) {
    if (kind_ == ImageKind::Foreign) {
        throw UserError(name_ + " is not a file of this effect's programs");
    }
    if (kind_ == ImageKind::Unknown) {
        throw UserError(name_ + " holds no programs in a form that is known");
    }
}

void ProgramFile::readBank(std::span<ProgramRecord, kProgramCount> programs,
                           int32_t& current) const {
    if (!isBank()) {
        throw UserError(name_ + " holds no bank of programs");
    }
    check(readBankFile(bytes_, false, neutralProgram(), programs, current), programs);
}

void ProgramFile::readPreset(ProgramRecord& program) const {
    if (isBank()) {
        throw UserError(name_ + " holds no single program");
    }
    check(readPresetFile(bytes_, false, neutralProgram(), program), {&program, 1});
}

void ProgramFile::check(ImageResult result, std::span<const ProgramRecord> programs) const {
    if (result == ImageResult::Refused) {
        throw UserError(name_ + " is damaged: it breaks off or its sizes do not fit together");
    }
    // The older forms may bring what is not a number, and the effect would take none of it.
    const bool proper =
        std::all_of(programs.begin(), programs.end(), [](const ProgramRecord& program) {
            return std::all_of(program.values.begin(), program.values.end(),
                               [](float value) { return value >= 0; });
        });
    if (result == ImageResult::Dropped || !proper) {
        throw UserError(name_ + " is damaged: it holds values that no program may have");
    }
}

}  // namespace tessel8::host
