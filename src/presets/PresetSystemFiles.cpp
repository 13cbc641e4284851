// Preset and bank files of the user's choice.

#include "platform/WholeFile.h"
#include "presets/PresetSystemEditor.h"

namespace tessel8 {

namespace {

constexpr char kPresetType[] = "Vantor Preset", kPresetExtension[] = "vtp";
constexpr char kBankType[] = "Vantor Bank", kBankExtension[] = "vtb";

}  // namespace

void CPresetSystemEditor::askForFile(const FileQuestion& question,
                                     std::function<void(const std::string&)> chosen) {
    const auto selector = CNewFileSelector::create(frame.get(), question.kind);
    if (!selector || isAsking) {
        return;
    }
    selector->setTitle(question.title);
    selector->setInitialDirectory(question.folder);
    selector->setDefaultSaveName(question.defaultName);
    selector->addFileExtension(CFileExtension(question.typeName, question.extension));
    isAsking = true;
    const bool isOpen = selector->run([this, chosen = std::move(chosen)](CNewFileSelector& answer) {
        isAsking = false;
        if (answer.getNumSelectedFiles() == 1) {
            chosen(*answer.getSelectedFile(0));
        }
    });
    isAsking = isAsking && isOpen;
}

void CPresetSystemEditor::splitPath(const std::string& path, std::string& fileName,
                                    std::string& directory) {
    const size_t separator = path.rfind('/');
    if (separator != std::string::npos) {
        fileName = path.substr(separator + 1);
        directory = path.substr(0, separator + 1);
    }
}

std::optional<std::vector<uint8_t>> CPresetSystemEditor::readProgramFile(const std::string& path) {
    auto bytes = readWholeFile(path, kMostFileBytes);
    if (bytes && imageKind(*bytes) == ImageKind::Foreign) {
        bytes.reset();
    }
    return bytes;
}

void CPresetSystemEditor::loadPreset(bool reversed) {
    askForFile({FileDialogKind::Load, reversed ? "Load preset (endian-reversed)" : "Load preset",
                kPresetType, kPresetExtension, currDir, ""},
               [this, reversed](const std::string& path) {
                   splitPath(path, currPreset, currDir);
                   CPresetSystemEditor::writePathSettings();
                   if (const auto bytes = readProgramFile(path)) {
                       store->readPreset(*bytes, reversed);
                       refreshPrograms();
                       redraw();
                   }
               });
}

void CPresetSystemEditor::loadBank(bool reversed) {
    askForFile({FileDialogKind::Load, reversed ? "Load bank (endian-reversed)" : "Load bank",
                kBankType, kBankExtension, currDir, ""},
               [this, reversed](const std::string& path) {
                   splitPath(path, currBank, currDir);
                   CPresetSystemEditor::writePathSettings();
                   if (const auto bytes = readProgramFile(path)) {
                       store->readBank(*bytes, reversed);
                       store->selectProgram(0);  // also after a file of ours that is no bank
                       refreshPrograms();
                       redraw();
                   }
               });
}

void CPresetSystemEditor::savePreset() {
    askForFile(
        {FileDialogKind::Save, "Save preset", kPresetType, kPresetExtension, currDir, currPreset},
        [this](const std::string& path) {
            splitPath(path, currPreset, currDir);
            CPresetSystemEditor::writePathSettings();
            writeWholeFile(path, store->writePreset());
        });
}

void CPresetSystemEditor::saveBank() {
    askForFile({FileDialogKind::Save, "Save bank", kBankType, kBankExtension, currDir, currBank},
               [this](const std::string& path) {
                   splitPath(path, currBank, currDir);
                   CPresetSystemEditor::writePathSettings();
                   writeWholeFile(path, store->writeBank());
               });
}

}  // namespace tessel8
