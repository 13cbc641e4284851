#include "presets/ControllerMapStore.h"

#include <cstdio>

#include "platform/SettingsFolder.h"

namespace tessel8 {

namespace {

constexpr char kFolder[] = "MIDI";

struct ValueName {
    explicit ValueName(int32_t controller) {
        std::snprintf(text, sizeof text, "MIDI CC - %03d", controller);
    }
    char text[16];
};

}  // namespace

void ControllerMapStore::load() {
    const SettingsFolder folder(kFolder);
    const SettingsFolder::Made made = folder.make();
    folder.clean();
    if (made == SettingsFolder::Made::Now) {
        save();
    } else if (made == SettingsFolder::Made::Before) {
        for (int32_t i = kFirstLearnt; i <= kLastLearnt; ++i) {
            if (const auto value = folder.readInteger(ValueName(i).text)) {
                map.setEntry(i, uint8_t(*value));
            }
        }
    }
    known = map;
}

void ControllerMapStore::save() {
    known = map;
    const SettingsFolder folder(kFolder);
    if (!folder.exists()) {
        return;
    }
    // A disk that takes one of them not takes the others neither, and each try costs time.
    bool isTaken = true;
    for (int32_t i = kFirstLearnt; i <= kLastLearnt && isTaken; ++i) {
        isTaken = folder.writeInteger(ValueName(i).text, known.entry(i));
    }
}

void ControllerMapStore::saveChanges() {
    const SettingsFolder folder(kFolder);
    for (int32_t i = kFirstLearnt; i <= kLastLearnt; ++i) {
        const uint8_t entry = map.entry(i);
        if (entry != known.entry(i)) {
            known.setEntry(i, entry);
            folder.writeInteger(ValueName(i).text, entry);
        }
    }
}

}  // namespace tessel8
