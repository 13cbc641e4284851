#pragma once

#include <map>
#include <string>

#include "resources/paint/StripTable.h"

namespace tessel8::paint {

using Pictures = std::map<int32_t, Picture>;  ///< whole strips by their numbers

/// Writes first, middle and last image of every strip on one sheet, magnified.
void writeContactSheet(const Pictures& pictures, const std::string& path);

}  // namespace tessel8::paint
