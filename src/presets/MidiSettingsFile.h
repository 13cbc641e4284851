#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "midi/ControllerMap.h"

namespace tessel8 {

// The controller map in a file of the user's: identifier (in one byte order only), a version byte
// and the entries of the controllers 0 to 119.

constexpr size_t kMidiSettingsSize = 125;

enum class MidiSettingsResult {
    Applied,
    TooShort,      ///< not even identifier and version
    NotOurs,       ///< another identifier
    OtherVersion,  ///< ours, but not MIDI settings, or of a version that is not known
};

/// Replaces the whole map, or leaves it as it is. Entries behind the end of the data are not
/// assigned.
MidiSettingsResult readMidiSettings(std::span<const uint8_t> data, ControllerMap& map);
std::array<uint8_t, kMidiSettingsSize> writeMidiSettings(const ControllerMap& map);

}  // namespace tessel8
