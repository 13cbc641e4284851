// What each control does, by its tag.

#include <algorithm>

#include "editor/Tessel8Editor.h"
#include "parameters/ControlTags.h"
#include "toolkit/CControl.h"

namespace tessel8 {

namespace {

constexpr float kNumeratorStep = 0.25f, kDenominatorStep = 0.083333336f;

bool isBetween(int32_t tag, int32_t first, int32_t last) {
    return tag >= first && tag <= last;
}

int32_t tapOf(int32_t index) {
    return index - familyOf(index).first;
}

}  // namespace

void Tessel8Editor::valueChanged(CControl* control) {
    CPresetSystemEditor::valueChanged(control);
    const int32_t tag = control->getTag();
    if (!panel || tag > kTagLastColumnHead) {
        return;
    }
    const uint32_t buttons = frame->getCurrentMouseButtons();
    if (isTakenByLearn(tag)) {
        updateIndex(tag);
        if (tag == kTagGraphMode) {
            control->setValue(graphMode);
        }
    } else if (isBetween(tag, kTagTempoUp, kTagTempoDown) &&
               applied(Family::TimeMode) >= kHostLeads) {
        return;
    } else {
        act(control, tag, control->getValue(), buttons);
    }
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        Panel::invalidateDirty(panel->slider(tap));
    }
    updateStatus(tag);
}

bool Tessel8Editor::isTakenByLearn(int32_t tag) {
    const uint32_t press = panelFrame()->currentPress();
    if (learnPress != 0 && press == learnPress) {
        return true;  // the gesture goes on that learn has taken
    }
    if (!isLearning()) {
        return false;
    }
    learnPress = press;
    effectLink.learnController(tag);
    takeOverChanges();
    return true;
}

void Tessel8Editor::act(CControl* control, int32_t tag, float value, uint32_t buttons) {
    if (isBetween(tag, kTagFirstBar, kTagLastBar)) {
        const int32_t index = parameterOfTag(tag);
        setAutomated(index, value);
        editParameter = editParameterOf(index);
        swapEditBars(editParameter, graphMode);
        updateGraphTaps();
        panel->invalidateDirty(index);
    } else if (tag >= kTagFirstColumnHead) {
        resetColumn(tag);
    } else if (tag >= kParameterCount) {
        actOnKey(tag, value, buttons);
    } else if (isBetween(tag, parameterIndex(Family::DelayT),
                         parameterIndex(Family::LinkTap) - 1)) {
        if (familyOf(tag).family == Family::ActTap) {
            touchTapSwitch(control, tapOf(tag), value, buttons);
        } else {
            actOnTapParameter(tag, value, buttons);
        }
    } else {
        actOnMaster(control, tag, value, buttons);
    }
}

void Tessel8Editor::actOnTapParameter(int32_t index, float value, uint32_t buttons) {
    const int32_t first = familyOf(index).first;
    switch (linkRuleOf(index)) {
        case LinkRule::Delay:
            moveDelay(tapOf(index), value, buttons);
            return;
        case LinkRule::Continuous: {
            const int32_t shown = editParameterOf(index);
            editParameter = shown >= 0 ? shown : editParameter;
            changeContinuous(effectLink, index, value, buttons);
            takeOverChanges();
            if (shown >= 0) {
                swapEditBars(editParameter, graphMode);
                updateGraphTaps();
            }
            break;
        }
        case LinkRule::Switch:
            changeSwitch(effectLink, index, value, buttons);
            takeOverChanges();
            break;
        default:
            setAutomated(index, value);
    }
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->invalidateDirty(first + tap);
    }
}

void Tessel8Editor::moveDelay(int32_t tap, float value, uint32_t buttons) {
    dragDelay(effectLink, tap, value, sliderScale.step, buttons);
    takeOverChanges();
    refreshDelays();
}

void Tessel8Editor::actOnMaster(CControl* control, int32_t tag, float value, uint32_t buttons) {
    switch (familyOf(tag).family) {
        case Family::TimeMode:
            setAutomated(tag, value);
            refreshDelays();
            break;
        case Family::Tempo:
            if (applied(Family::TimeMode) < kHostLeads) {
                setAutomated(tag, value);
            }
            refreshDelays();
            updateIndex(tag);
            break;
        case Family::Note:
            setAutomated(tag, value);
            updateGraphTimes();
            updateIndex(tag);
            break;
        case Family::ZoomDel: {
            const bool free = applied(Family::TimeMode) == 0.0f;
            setUnheard(tag, free ? float(kWholeTimeRange)
                                 : applied(reading::kWholeNotesInRing) + kFirstNoteRange);
            break;
        }
        case Family::NumMod:
            if (value != 0.0f) {
                stepLfoNote(tag, kNumeratorStep, buttons);
            }
            break;
        case Family::DenomMod:
            if (value != 0.0f) {
                stepLfoNote(tag, kDenominatorStep, buttons);
            }
            break;
        case Family::TapPad:
            setAutomated(tag, value);
            tapPad.endRun();
            updateTapPadPicture();
            break;
        case Family::ModeFB:
        case Family::TAPtoFB:
            setAutomated(tag, value);
            updateGraphSwitches();
            break;
        case Family::PanFBL:
        case Family::PanFBR:
            changeFeedbackPan(effectLink, tag, value);
            takeOverChanges();
            break;
        default:
            setAutomated(tag, value);
    }
    Panel::invalidateDirty(control);
}

void Tessel8Editor::stepLfoNote(int32_t index, float step, uint32_t buttons) {
    setUnheard(parameterIndex(Family::NoteModeLfo), 1.0f);
    float value = applied(index) + (buttons == kDefaultGesture ? -step : step);
    value = value > 1.0f ? 0.0f : value < 0.0f ? 1.0f : value;
    setAutomated(index, value);
}

void Tessel8Editor::actOnKey(int32_t tag, float value, uint32_t buttons) {
    if (isBetween(tag, kTagNoteDown, kTagNoteUp)) {
        pressNoteKey(tag, value);
    } else if (isBetween(tag, kTagTempoUp, kTagTempoDown)) {
        pressTempoKey(tag, value);
    } else if (isBetween(tag, command::kStepDelayDown, command::kStepDelayUp + kTaps - 1)) {
        pressDelayKey(tag, value, buttons);
    } else if (tag == kTagTapPad) {
        if (tapPad.press(value, clock.now())) {
            takeOverChanges();
            refreshDelays();
        }
        updateTapPadPicture();
    } else if (tag == command::kMeterMode) {
        setAutomated(tag, value);
    } else if (tag == command::kMidiLearn) {
        setUnheard(tag, value);
    } else if (tag == kTagGraphMode) {
        setGraphMode(value);
        updateGraphTimes();
    } else if (value != 0.0f) {
        switch (tag) {
            case kTagRangeDown:
                moveZoom(-1);
                break;
            case kTagRangeUp:
                moveZoom(1);
                break;
            case kTagEditParameterBack:
                moveEditParameter(-1);
                break;
            case kTagEditParameterForward:
                moveEditParameter(1);
                break;
            case kTagMidiReset:
                effectLink.clearControllerMap();
                break;
            case kTagMidiLoad:
                loadMidiSettings();
                break;
            case kTagMidiSave:
                saveMidiSettings();
                break;
            case kTagPanic:
                panic();
                break;
            default:
                break;
        }
    }
}

void Tessel8Editor::moveZoom(int32_t direction) {
    const int32_t zoom = int32_t(std::clamp(applied(Family::ZoomDel), 0.0f, 255.0f));
    const int32_t longest =
        int32_t(applied(reading::kWholeNotesInRing)) + kFirstNoteRange;  // in whole bars
    int32_t next;
    if (applied(Family::TimeMode) == 0.0f) {
        next = direction < 0 ? std::max(zoom - 1, 0) : std::min(zoom + 1, kWholeTimeRange);
    } else if (direction < 0) {
        next = std::max(zoom < kWholeNoteRange ? zoom - 1 : longest, kFirstNoteRange);
    } else {
        next = zoom + 1 >= longest + 1 ? kWholeNoteRange : zoom + 1;
    }
    setUnheard(parameterIndex(Family::ZoomDel), float(next));
}

void Tessel8Editor::moveEditParameter(int32_t direction) {
    editParameter = (editParameter + direction + kEditParameterCount) % kEditParameterCount;
    updateGraphTaps();
}

void Tessel8Editor::touchTapSwitch(CControl* control, int32_t tap, float value, uint32_t buttons) {
    const int32_t index = parameterIndex(Family::ActTap, tap);
    if (buttons == mouse::kRight) {
        if (applied(index) != 0.0f) {
            const bool begins = !solo.active;
            for (int32_t t = 0; begins && t < kTaps; ++t) {
                solo.saved[size_t(t)] = applied(Family::ActTap, t);
            }
            for (int32_t t = 0; t < kTaps; ++t) {
                if (!begins || t != tap) {
                    effectLink.setParameter(parameterIndex(Family::ActTap, t),
                                            begins ? 0.0f : solo.saved[size_t(t)]);
                }
            }
            takeOverChanges();
            solo.active = begins;
        }
        panel->show(index, applied(index));
    } else {
        solo.active = false;
        setAutomated(index, value);
    }
    updateGraphSwitches();
    Panel::invalidateDirty(control);
    for (int32_t t = 0; t < kTaps; ++t) {
        panel->invalidateDirty(parameterIndex(Family::ActTap, t));
    }
}

void Tessel8Editor::panic() {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        for (const Family family : {Family::TAPtoFB, Family::AmtFBT, Family::FBPostT}) {
            effectLink.setParameter(parameterIndex(family, tap), 0.0f);
        }
    }
    effectLink.setParameter(parameterIndex(Family::GainFB), 0.0f);
    effectLink.setParameter(parameterIndex(Family::ActiveFB), 0.0f);
    effectLink.requestPanic(true);
    takeOverChanges();
}

}  // namespace tessel8
