#pragma once

#include "resources/paint/Painters.h"

/// The painters, one for each family of strips.
namespace tessel8::paint {}  // namespace tessel8::paint
