#pragma once

#include <jack/types.h>

#include "Transport.h"

namespace tessel8::host {

/// Where JACK's song stands at the beginning of the block that `position` tells of. Bars are taken
/// to be as long as the current one all the way. Another client writes the musical time; numbers
/// that cannot be count as none.
SongPosition songPositionOf(const jack_position_t& position, bool rolling);

}  // namespace tessel8::host
