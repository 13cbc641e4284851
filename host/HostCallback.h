#pragma once

#include "vst/Vst24.h"

namespace tessel8::host {

class Transport;

/// The one function that an effect calls: version, time and abilities of this host, and yes
/// to MIDI. Everything else is answered with 0.
intptr_t VST_CALL hostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                               void* ptr, float opt);

/// Lets the callback find the transport of this effect. It stands in the record's field for the
/// host, so that there is no global state.
void attachTransport(AEffect& effect, Transport& transport);

}  // namespace tessel8::host
