#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Plugin.h"

namespace tessel8::host {

/// The programs of the effect's own store. To the interface there is one program only, but it
/// tells the names of all that are stored.
class Programs {
  public:
    explicit Programs(const Plugin& plugin);

    /// In the order of the store; the first has the number 0.
    const std::vector<std::string>& names() const { return names_; }

    /// The number that a text means: a number itself, or the first program of that name, else the
    /// first of that name in any case. Throws UserError where there is none.
    int32_t find(std::string_view text) const;

  private:
    std::vector<std::string> names_;
};

/// Prints a table of all programs: number and name.
void listPrograms(const std::filesystem::path& plugin);

}  // namespace tessel8::host
