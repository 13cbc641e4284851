#include "presets/PresetSystemEditor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>

#include "platform/InstalledManual.h"
#include "platform/OpenDocument.h"
#include "platform/SettingsFolder.h"

namespace tessel8 {

namespace {

constexpr float kClear = 0.75f;  // a label's value below it: Ctrl was held

}  // namespace

CPresetSystemEditor::CPresetSystemEditor(ProgramStoreLink* programStore, AudioEffectX* edited,
                                         TickClock& tickClock)
    : AEffGUIEditor(edited, tickClock), store(programStore) {
    std::error_code failed;  // a process may stand in a folder that is gone
    currDir = std::filesystem::current_path(failed).string();
}

CPresetSystemEditor::~CPresetSystemEditor() {
    if (store) {
        CPresetSystemEditor::writePathSettings();
    }
}

bool CPresetSystemEditor::openStrip() {
    if (!frame || !store) {
        return false;
    }
    presetStrip = std::make_unique<PresetStrip>(*frame, *this);
    refreshPrograms();
    const bool takesFocus = SettingsFolder().readInteger("KeyboardFocus").value_or(0) != 0;
    presetStrip->focusButton()->setValue(takesFocus ? 1.0f : 0.0f);
    setKeyboardFocus(takesFocus);
    return true;
}

void CPresetSystemEditor::close() {
    // The frame goes first: a running gesture ends on controls that still stand.
    AEffGUIEditor::close();
    presetStrip.reset();
    isAsking = false;
}

void CPresetSystemEditor::idle() {
    if (presetStrip && store->storeRevision() != seenRevision) {
        refreshPrograms();
    }
    AEffGUIEditor::idle();
}

void CPresetSystemEditor::valueChanged(CControl* control) {
    if (!presetStrip) {
        return;
    }
    const float value = control->getValue();
    switch (control->getTag()) {
        case strip_tag::kName: {
            const std::string& text = presetStrip->nameField()->getText();
            commitProgramName(text.substr(0, wholeCharacters(text, kNameBytes)));
            break;
        }
        case strip_tag::kRocker:
            stepProgram(value);
            break;
        case strip_tag::kLoadBank:
            loadBank(value == 0.5f);
            break;
        case strip_tag::kSaveBank:
            saveBank();
            break;
        case strip_tag::kLoadPreset:
            loadPreset(value == 0.5f);
            break;
        case strip_tag::kSavePreset:
            savePreset();
            break;
        case strip_tag::kProgramList:
            chooseFromList(value);
            break;
        case strip_tag::kBankLabel:
            value < kClear ? clearDefaultBank() : storeDefaultBank();
            break;
        case strip_tag::kPresetLabel:
            value < kClear ? clearDefaultPreset() : storeDefaultPreset();
            break;
        case strip_tag::kStoreMemoA:
            storeMemoA();
            break;
        case strip_tag::kStoreMemoB:
            storeMemoB();
            break;
        case strip_tag::kRecallMemoA:
            recallMemoA();
            break;
        case strip_tag::kRecallMemoB:
            recallMemoB();
            break;
        case strip_tag::kFocus:
            switchKeyboardFocus(value != 0.0f);
            break;
        case strip_tag::kManual:
            openManual();
            break;
        default:
            break;
    }
}

std::string CPresetSystemEditor::programName(int32_t index) {
    std::array<char, kNameBytes + 1> name{};
    store->getProgramNameIndexed(0, index, name.data());
    return name.data();
}

void CPresetSystemEditor::refreshPrograms() {
    // First, so that what changes from here on is seen the next time.
    seenRevision = store->storeRevision();
    if (!presetStrip) {
        return;
    }
    std::vector<std::string> titles;
    titles.reserve(kProgramCount);
    for (int32_t i = 0; i < kProgramCount; ++i) {
        titles.push_back(programName(i));
    }
    presetStrip->showTitles(titles);
    const int32_t current = store->getCurrentProgramIndex();
    presetStrip->programList()->setCurrent(current);
    presetStrip->nameField()->setText(titles[size_t(current)]);
}

void CPresetSystemEditor::redraw() {
    if (frame) {
        frame->invalidRect(frame->getViewSize());
    }
}

void CPresetSystemEditor::showProgramName(const std::string& name) {
    if (presetStrip) {
        presetStrip->nameField()->setText(name);
        presetStrip->programList()->setEntry(presetStrip->programList()->getCurrent(), name);
    }
}

void CPresetSystemEditor::commitProgramName(const std::string& name) {
    store->renameCurrentProgram(name.c_str());
    refreshPrograms();
    // The store keeps a character less than what is shown of a name as it was typed.
    showProgramName(name);
}

void CPresetSystemEditor::chooseFromList(float value) {
    if (store->storeRevision() != seenRevision) {
        refreshPrograms();  // the titles are older than the store
    }
    const auto index = int32_t(std::lround(value));
    if (const std::string* const title = presetStrip->programList()->getEntry(index)) {
        const std::string name = *title;
        store->selectProgram(index);
        commitProgramName(name);
    }
}

void CPresetSystemEditor::stepProgram(float direction) {
    if (direction == 0.0f) {
        return;
    }
    const int32_t next = std::clamp(store->getCurrentProgramIndex() + (direction > 0.0f ? 1 : -1),
                                    0, kProgramCount - 1);
    const std::string name = programName(next);
    store->selectProgram(next);
    commitProgramName(name);
}

void CPresetSystemEditor::switchKeyboardFocus(bool takesFocus) {
    setKeyboardFocus(takesFocus);
    SettingsFolder().writeInteger("KeyboardFocus", takesFocus ? 1 : 0);
}

void CPresetSystemEditor::openManual() {
    const std::string path = SettingsFolder().readText("ManualPath").value_or(installedManual());
    const OpenResult result = path.empty() ? OpenResult::Failed : openDocument(path);
    switch (result) {
        case OpenResult::Opened:
            break;
        case OpenResult::NoApplication:
            frame->showMessage("Could not open manual file",
                               "Make sure that a reader for PDF files is installed");
            break;
        case OpenResult::Failed:
            frame->showMessage("", "Could not open user manual");
            break;
    }
    presetStrip->manualButton()->release();
}

}  // namespace tessel8
