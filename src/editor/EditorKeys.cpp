// Keys that repeat while they are held: note, tempo, and one step of a delay.

#include <algorithm>

#include "editor/Tessel8Editor.h"
#include "parameters/ControlTags.h"
#include "toolkit/CControl.h"

namespace tessel8 {

namespace {

constexpr uint32_t kNoteFirstMs = 1500, kNoteNextMs = 200;
constexpr uint32_t kTempoFirstMs = 500, kTempoNextMs = 50, kTempoFastMs = 1;
constexpr uint32_t kTempoFastAfterMs = 2000, kTempoWideAfterMs = 4000;
constexpr uint32_t kDelayFirstMs = 1000, kDelayNextMs = 50;
constexpr int32_t kStepsOfARepeat = 10;  // in Time mode, from the second repeat on

constexpr float kNoteStep = 0.0625f;        // of sixteen
constexpr float kTempoStep = 0.0003125f;    // 0.1 BPM
constexpr float kTempoWideStep = 0.00125f;  // 0.4 BPM

bool isDown(const CControl* key) {
    return key && key->getValue() != 0.0f;
}

}  // namespace

void Tessel8Editor::stepNote(int32_t tag) {
    float note = applied(Family::Note) + (tag == kTagNoteUp ? kNoteStep : -kNoteStep);
    note = note > 1.0f ? kNoteStep : note < kNoteStep ? 1.0f : note;
    setAutomated(parameterIndex(Family::Note), note);
}

void Tessel8Editor::pressNoteKey(int32_t tag, float value) {
    if (value != 0.0f && !heldKeys.note.held) {
        heldKeys.note.press(clock.now());
        stepNote(tag);
    } else {
        heldKeys.note.release();
        setAutomated(parameterIndex(Family::Note), applied(Family::Note));
    }
    refreshDelays();
}

void Tessel8Editor::stepTempo(int32_t tag, float step) {
    const float tempo = applied(Family::Tempo) + (tag == kTagTempoUp ? step : -step);
    setAutomated(parameterIndex(Family::Tempo), std::clamp(tempo, 0.0f, 1.0f));
}

void Tessel8Editor::pressTempoKey(int32_t tag, float value) {
    const uint32_t now = clock.now();
    if (value != 0.0f && !heldKeys.tempo.held) {
        heldKeys.tempo.press(now);
        stepTempo(tag, kTempoStep);
    } else {
        heldKeys.tempo.release();
        setAutomated(parameterIndex(Family::Tempo), applied(Family::Tempo));
    }
    heldKeys.tempoPress = now;
    refreshDelays();
}

void Tessel8Editor::stepDelay(int32_t tap, bool up, int32_t steps, uint32_t buttons) {
    const int32_t tag = (up ? command::kStepDelayUp : command::kStepDelayDown) + tap;
    const TapSet moved = tessel8::stepDelay(effectLink, tag, steps, buttons);
    takeOverChanges();
    for (int32_t t = 0; t < kTaps; ++t) {
        if (moved[size_t(t)]) {
            updateSlider(t);
        }
    }
}

void Tessel8Editor::pressDelayKey(int32_t tag, float value, uint32_t buttons) {
    if (value != 0.0f && !heldKeys.delay.held) {
        heldKeys.delayUp = tag >= command::kStepDelayUp;
        heldKeys.delayTap = (tag - command::kStepDelayDown) % kTaps;
        stepDelay(heldKeys.delayTap, heldKeys.delayUp, 1, buttons);
        heldKeys.delay.press(clock.now());
    } else {
        heldKeys.delay.release();
    }
    updateGraphTimes();
}

void Tessel8Editor::repeatHeldKeys(uint32_t now) {
    for (const int32_t tag : {kTagNoteUp, kTagNoteDown}) {
        if (heldKeys.note.held && isDown(panel->find(tag))) {
            if (heldKeys.note.repeat(now, kNoteFirstMs, kNoteNextMs)) {
                stepNote(tag);
                updateStatus(tag);
            }
            refreshDelays();
        }
    }
    const uint32_t heldFor = now - heldKeys.tempoPress;
    for (const int32_t tag : {kTagTempoUp, kTagTempoDown}) {
        if (heldKeys.tempo.held && isDown(panel->find(tag))) {
            const uint32_t next = heldFor > kTempoFastAfterMs ? kTempoFastMs : kTempoNextMs;
            if (heldKeys.tempo.repeat(now, kTempoFirstMs, next)) {
                stepTempo(tag, heldFor > kTempoWideAfterMs ? kTempoWideStep : kTempoStep);
                updateStatus(tag);
            }
            refreshDelays();
        }
    }
    if (heldKeys.delay.held) {
        const int32_t tap = heldKeys.delayTap;
        effectLink.restartTapFade(parameterIndex(Family::DelayT, tap));
        const bool isFirst = heldKeys.delay.first;
        if (heldKeys.delay.repeat(now, kDelayFirstMs, kDelayNextMs)) {
            const bool free = applied(Family::TimeMode) == 0.0f;
            stepDelay(tap, heldKeys.delayUp, !isFirst && free ? kStepsOfARepeat : 1,
                      frame->getCurrentMouseButtons());
            updateStatus((heldKeys.delayUp ? command::kStepDelayUp : command::kStepDelayDown) +
                         tap);
        }
        updateGraphTimes();
    }
}

}  // namespace tessel8
