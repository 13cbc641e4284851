#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Plugin.h"

namespace tessel8::host {

/// One `--set`: a parameter's index and its new value.
struct Setting {
    int32_t index;
    float value;
};

/// Turns texts such as "Mix=0.3" and "#3=0.3" into settings, by the names that the effect gives.
class Parameters {
  public:
    explicit Parameters(const Plugin& plugin);

    /// Throws UserError for an unknown parameter, a text that is no number and a value outside
    /// the parameter's range.
    Setting parse(std::string_view text) const;

  private:
    int32_t find(std::string_view name) const;
    int32_t findIndex(std::string_view digits) const;
    std::string suggestion(std::string_view name) const;

    std::vector<std::string> names_;
};

}  // namespace tessel8::host
