#include "editor/Tessel8Editor.h"

#include <algorithm>
#include <utility>

#include "parameters/ControlTags.h"

namespace tessel8 {

namespace {

constexpr int32_t kNoStatus = 215;  // a tag without a text
/// Longer than any text waits for a MIDI change, so that none is remembered at the start.
constexpr uint32_t kLongAgoMs = 60000;

}  // namespace

Tessel8Editor::Tessel8Editor(EffectLink& link, AudioEffectX* audioEffect, TickClock& tickClock)
    : CPresetSystemEditor(link.programStore(), audioEffect, tickClock),
      effectLink(link),
      lastMidiChange(tickClock.now() - kLongAgoMs),
      scrollingTexts(link),
      tapPad(link),
      meters(tickClock.now()),
      hoverShown(kTagLogo),
      hoverLast(kTagLogo) {
    rect = {0, 0, int16_t(kPanelHeight), int16_t(kPanelWidth)};
    setKnobMode(kLinearMode);
}

Tessel8Editor::~Tessel8Editor() {
    Tessel8Editor::close();
}

Shared<NewFrame> Tessel8Editor::makeFrame(void* parent) {
    return makeShared<NewFrame>(CRect{0, 0, double(kPanelWidth), double(kPanelHeight)}, parent,
                                static_cast<VSTGUIEditorInterface*>(this));
}

bool Tessel8Editor::open(void* parent) {
    close();
    CPresetSystemEditor::open(parent);
    const Shared<NewFrame> made = makeFrame(parent);
    if (!made || !made->isOpen()) {
        CPresetSystemEditor::close();
        return false;
    }
    frame = made;
    frame->setBackground(makeShared<CBitmap>(kBackgroundPicture).get());
    changes.clear();
    scrollingTexts.composeCredits(effectLink);
    panel = std::make_unique<Panel>(*frame, *this, effectLink);
    lastMidiChange = clock.now() - kLongAgoMs;
    showAll();
    openStrip();
    setKnobMode(kLinearMode);
    setGraphMode(graphMode);
    hoverTag = -1;
    hoverShown = hoverLast = kTagLogo;
    if (!isGraph()) {
        updateStatus(kNoStatus);
    }
    return true;
}

void Tessel8Editor::close() {
    heldKeys = {};
    tapPad.endRun();
    editedTag = kNothingEdited;
    learnPress = 0;
    // The frame goes first: what it still calls finds the controls in place.
    CPresetSystemEditor::close();
    panel.reset();
    // What the user still holds is over for the host, which would wait for the end of it.
    for (const int32_t tag : std::exchange(openGestures, {})) {
        effectLink.endEdit(tag);
    }
}

void Tessel8Editor::setKeyboardFocus(bool takesFocus) {
    panelFrame()->setKeyboardFocus(takesFocus);
}

void Tessel8Editor::beginEdit(int32_t tag) {
    editedTag = tag;
    openGestures.push_back(tag);
    effectLink.beginEdit(tag);
}

void Tessel8Editor::endEdit(int32_t tag) {
    editedTag = kNothingEdited;
    if (const auto open = std::ranges::find(openGestures, tag); open != openGestures.end()) {
        openGestures.erase(open);
    }
    effectLink.endEdit(tag);
}

int32_t Tessel8Editor::editedParameter() {
    const int32_t tag = editedTag;
    return tag == kNothingEdited ? kParameterCount : parameterOfTag(tag);
}

void Tessel8Editor::setParameter(int32_t index, float value) {
    if (index == kTagTapPad) {
        padPresses.push(value != 0.0f, tick());
    } else {
        changes.mark(index);
    }
}

void Tessel8Editor::showTempo(float /*tempo*/) {
    changes.mark(EffectChanges::kTempoDigits);
}

void Tessel8Editor::showLfoFrequency(float /*freqMod*/) {
    changes.mark(EffectChanges::kLfoDigits);
}

void Tessel8Editor::markMidiChange() {
    lastMidiChange = tick();
}

void Tessel8Editor::setAutomated(int32_t index, float value) {
    effectLink.setParameterAutomated(index, value);
    takeOverChanges();
}

void Tessel8Editor::setUnheard(int32_t index, float value) {
    effectLink.setParameter(index, value);
    takeOverChanges();
}

void Tessel8Editor::setGraphMode(float mode) {
    graphMode = mode;
    if (panel) {
        panel->setGraphMode(isGraph(), editParameter);
        showEditStrip(editParameter);
        if (!isGraph()) {
            updateGraphTaps();
        }
    }
}

void Tessel8Editor::swapEditBars(int32_t parameter, float mode) {
    if (panel) {
        panel->swapEditBars(parameter, mode != 0.0f);
    }
}

void Tessel8Editor::showEditStrip(int32_t parameter) {
    if (panel) {
        panel->showEditStrip(parameter, isGraph());
    }
}

}  // namespace tessel8
