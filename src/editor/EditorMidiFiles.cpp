// The controller map in files, and in the user's settings as it changes.

#include "editor/Tessel8Editor.h"
#include "platform/SettingsFolder.h"
#include "platform/WholeFile.h"
#include "presets/ControllerMapStore.h"
#include "presets/MidiSettingsFile.h"

namespace tessel8 {

namespace {

constexpr char kTypeName[] = "Tessel8TE MIDI setings", kExtension[] = "vtm";
constexpr char kFolderSetting[] = "CurrDirMIDISet";

}  // namespace

void Tessel8Editor::writePathSettings() {
    SettingsFolder().writeText(kFolderSetting, midiDir);
}

void Tessel8Editor::readPathSettings() {
    midiDir = SettingsFolder().readText(kFolderSetting).value_or("");
}

void Tessel8Editor::saveMidiSettings() {
    ControllerMapStore* const maps = effectLink.controllerMapStore();
    if (!maps) {
        return;
    }
    readPathSettings();
    askForFile(
        {FileDialogKind::Save, "Save midi settings as...", kTypeName, kExtension, midiDir, ""},
        [this, maps](const std::string& path) {
            std::string name;
            splitPath(path, name, midiDir);
            writePathSettings();
            writeWholeFile(path, writeMidiSettings(maps->controllerMap()));
        });
}

void Tessel8Editor::loadMidiSettings() {
    if (!effectLink.controllerMapStore()) {
        return;
    }
    readPathSettings();
    askForFile({FileDialogKind::Load, "Select midi settings to load...", kTypeName, kExtension,
                midiDir, ""},
               [this](const std::string& path) {
                   std::string name;
                   splitPath(path, name, midiDir);
                   writePathSettings();
                   takeMidiFile(path);
               });
}

void Tessel8Editor::takeMidiFile(const std::string& path) {
    const auto bytes = readWholeFile(path, kMostFileBytes);
    if (!bytes) {
        return;
    }
    switch (readMidiSettings(*bytes, effectLink.controllerMapStore()->controllerMap())) {
        case MidiSettingsResult::Applied:
            redraw();
            break;
        case MidiSettingsResult::TooShort:
            break;
        case MidiSettingsResult::NotOurs:
            frame->showMessage("Error...", "Invalid file format!");
            break;
        case MidiSettingsResult::OtherVersion:
            frame->showMessage("Error...", "Not a midi settings file!");
            break;
    }
}

void Tessel8Editor::storeMidiChanges() {
    if (ControllerMapStore* const maps = effectLink.controllerMapStore()) {
        maps->saveChanges();
    }
}

}  // namespace tessel8
