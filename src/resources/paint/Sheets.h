#pragma once

#include <map>
#include <string>

#include "resources/paint/StripTable.h"

namespace tessel8::paint {

using Pictures = std::map<int32_t, Picture>;  ///< whole strips by their numbers

/// Writes the panel as it looks in one of its modes, with every control at rest.
void writePreview(const Pictures& pictures, Mode mode, const std::string& path);

/// Writes first, middle and last image of every strip on one sheet, magnified.
void writeContactSheet(const Pictures& pictures, const std::string& path);

}  // namespace tessel8::paint
