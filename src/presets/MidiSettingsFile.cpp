#include "presets/MidiSettingsFile.h"

#include <algorithm>

#include "presets/ByteReader.h"

namespace tessel8 {

namespace {

constexpr uint8_t kHead[] = {'8', 'L', 'S', 'T', 11};  // identifier and version
constexpr size_t kVersionOffset = sizeof kHead - 1;
constexpr int32_t kEntries = int32_t(kMidiSettingsSize - sizeof kHead);

}  // namespace

MidiSettingsResult readMidiSettings(std::span<const uint8_t> data, ControllerMap& map) {
    if (data.size() < sizeof kHead) {
        return MidiSettingsResult::TooShort;
    }
    if (!std::equal(kHead, kHead + kVersionOffset, data.begin())) {
        return MidiSettingsResult::NotOurs;
    }
    if (data[kVersionOffset] != kHead[kVersionOffset]) {
        return MidiSettingsResult::OtherVersion;
    }
    ByteReader reader(data.subspan(sizeof kHead), false);
    // Entry by entry: controllers that come in meanwhile find the old map or the new one.
    for (int32_t i = 0; i < kMidiControllers; ++i) {
        uint8_t entry = kNotAssigned;
        if (i < kEntries && reader.remaining() > 0) {
            reader.copy(&entry, sizeof entry);
        }
        map.setEntry(i, entry);
    }
    return MidiSettingsResult::Applied;
}

std::array<uint8_t, kMidiSettingsSize> writeMidiSettings(const ControllerMap& map) {
    std::array<uint8_t, kMidiSettingsSize> file;
    ByteWriter writer(file.data());
    writer.copy(kHead, sizeof kHead);
    for (int32_t i = 0; i < kEntries; ++i) {
        const uint8_t entry = map.entry(i);
        writer.copy(&entry, sizeof entry);
    }
    return file;
}

}  // namespace tessel8
