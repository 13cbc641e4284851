#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Parameters.h"
#include "Plugin.h"

namespace tessel8::host {

/// What the effect begins with, as the user asked for it.
struct ProgramChoice {
    std::filesystem::path bank;          ///< empty: the effect's own programs
    std::optional<std::string> program;  ///< number or name
    std::filesystem::path preset;        ///< empty: none; takes the current program's place
    std::vector<std::string> settings;   ///< "Name=value", applied in this order
};

/// Gives the effect its programs and makes the chosen one current. Returns the settings, which are
/// still to be applied. Throws UserError for bad files, names and values.
std::vector<Setting> choose(const ProgramChoice& choice, const Plugin& plugin);

}  // namespace tessel8::host
