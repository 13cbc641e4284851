#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "presets/Image.h"

namespace tessel8::host {

/// A file of programs, of whatever form and byte order: one program, or a bank of all.
class ProgramFile {
  public:
    /// Throws UserError for what cannot be read or is not a file of this effect's programs.
    explicit ProgramFile(const std::filesystem::path& file);

    bool isBank() const { return kind_ == ImageKind::Bank; }
    const std::string& name() const { return name_; }

    // Both throw UserError for a file of the other kind, and for a damaged one.

    /// Into `programs`, and which of them is current into `current`.
    void readBank(std::span<ProgramRecord, kProgramCount> programs, int32_t& current) const;
    void readPreset(ProgramRecord& program) const;

  private:
    void check(ImageResult result, std::span<const ProgramRecord> programs) const;

    std::string name_;
    std::vector<uint8_t> bytes_;
    ImageKind kind_;
};

}  // namespace tessel8::host
