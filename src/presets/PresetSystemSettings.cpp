// What the editor keeps in the user's settings: defaults, memos and paths.

#include "platform/SettingsFolder.h"
#include "presets/PresetSystemEditor.h"

namespace tessel8 {

namespace {

constexpr char kDefaultBank[] = "DefaultBank", kDefaultPreset[] = "DefaultPreset";
constexpr char kMemoA[] = "MemoA", kMemoB[] = "MemoB";

}  // namespace

void CPresetSystemEditor::restoreDefaults() {
    if (!store) {
        return;
    }
    SettingsFolder().clean();
    loadDefaultBank();
    store->selectProgram(0);
    loadDefaultPreset();
    readPathSettings();
}

void CPresetSystemEditor::applyPresetValue(const char* name) {
    if (const auto bytes = SettingsFolder().readBytes(name)) {
        store->readPreset(*bytes, false);
        refreshPrograms();
    }
}

void CPresetSystemEditor::storeDefaultBank() {
    SettingsFolder().writeBytes(kDefaultBank, store->writeBank());
}

void CPresetSystemEditor::clearDefaultBank() {
    SettingsFolder().removeBytes(kDefaultBank);
}

void CPresetSystemEditor::loadDefaultBank() {
    if (const auto bytes = SettingsFolder().readBytes(kDefaultBank)) {
        store->readBank(*bytes, false);
        refreshPrograms();
    }
}

void CPresetSystemEditor::storeDefaultPreset() {
    SettingsFolder().writeBytes(kDefaultPreset, store->writePreset());
}

void CPresetSystemEditor::clearDefaultPreset() {
    SettingsFolder().removeBytes(kDefaultPreset);
}

void CPresetSystemEditor::loadDefaultPreset() {
    applyPresetValue(kDefaultPreset);
}

void CPresetSystemEditor::storeMemoA() {
    SettingsFolder().writeBytes(kMemoA, store->writePreset());
}

void CPresetSystemEditor::storeMemoB() {
    SettingsFolder().writeBytes(kMemoB, store->writePreset());
}

void CPresetSystemEditor::recallMemoA() {
    applyPresetValue(kMemoA);
}

void CPresetSystemEditor::recallMemoB() {
    applyPresetValue(kMemoB);
}

void CPresetSystemEditor::writePathSettings() {
    const SettingsFolder folder;
    folder.writeText("CurrDir", currDir);
    folder.writeText("CurrBank", currBank);
    folder.writeText("CurrPreset", currPreset);
}

void CPresetSystemEditor::readPathSettings() {
    const SettingsFolder folder;
    currDir = folder.readText("CurrDir").value_or(currDir);
    currBank = folder.readText("CurrBank").value_or(currBank);
    currPreset = folder.readText("CurrPreset").value_or(currPreset);
}

}  // namespace tessel8
