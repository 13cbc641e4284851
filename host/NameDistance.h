#pragma once

#include <cstddef>
#include <string_view>

namespace tessel8::host {

/// How many characters must be inserted, removed or replaced to turn one name into the other,
/// whatever their case.
size_t nameDistance(std::string_view a, std::string_view b);

}  // namespace tessel8::host
