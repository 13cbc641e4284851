#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "Plugin.h"
#include "presets/Image.h"

namespace tessel8::host {

/// The effect's whole store of programs, which travels as one chunk. What is changed here reaches
/// the effect with `send`.
class Store {
  public:
    /// Fetches the store; throws UserError where the effect gives none.
    explicit Store(const Plugin& plugin);

    /// Takes over the programs of a bank file and which of them is current. Throws
    /// UserError for what is none.
    void loadBank(const std::filesystem::path& file);

    /// Replaces the current program by that of a preset file. Throws UserError for what is none.
    void loadPreset(const std::filesystem::path& file);

    /// `number` 0 to 139.
    void makeCurrent(int32_t number) { current_ = number; }

    /// Throws UserError where the effect does not take it.
    void send(const Plugin& plugin) const;

  private:
    using Programs = std::span<ProgramRecord, kProgramCount>;

    Programs programs() { return Programs(programs_); }

    std::vector<ProgramRecord> programs_ = std::vector<ProgramRecord>(kProgramCount);
    int32_t current_ = 0;
};

}  // namespace tessel8::host
