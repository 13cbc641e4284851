// What the panel shows of the effect: one row of actions for every index that may have changed.

#include "editor/CDelayTimeVolume.h"
#include "editor/Tessel8Editor.h"
#include "parameters/ControlTags.h"

namespace tessel8 {

namespace {

constexpr int32_t kRangeReadout = 7, kRangeStrip = 157, kRulerStrip = 162;
constexpr int32_t kDigitStrip = 185;
constexpr int32_t kLampStrip = 178, kSourceStrip = 164;
constexpr int32_t kUpperLetterStrip = 165, kLowerLetterStrip = 166;
constexpr int32_t kTapPadStrip = 219;

bool isIn(int32_t index, Family family) {
    const int32_t i = index - parameterIndex(family);
    return i >= 0 && i < familyRow(family).count;
}

void setDirty(CControl* control) {
    if (control) {
        control->setDirty(true);
    }
}

}  // namespace

void Tessel8Editor::takeOverChanges() {
    if (!panel) {
        return;
    }
    changes.take([this](int32_t flag) {
        if (flag == EffectChanges::kTempoDigits) {
            showDigits(parameterIndex(Family::Tempo), tempoDigits(applied(Family::Tempo)));
        } else if (flag == EffectChanges::kLfoDigits) {
            updateIndex(parameterIndex(Family::FreqMod));
        } else {
            updateIndex(flag);
        }
    });
}

void Tessel8Editor::updateIndex(int32_t changed) {
    int32_t index =
        changed >= kTagFirstBar && changed <= kTagLastBar ? parameterOfTag(changed) : changed;
    index = index == kTagRangeDown || index == kTagRangeUp ? kRangeReadout : index;
    if (index == kTagMidiLamp) {
        if (CControl* const lamp = panel->find(kTagMidiLamp)) {
            lamp->setValue(1.0f);
        }
    } else if (index == command::kMidiLearn) {
        if (CControl* const button = panel->find(command::kMidiLearn)) {
            button->setValue(applied(index));
        }
    } else if (index == command::kMeterMode) {
        updateMeterMode();
    }
    if (index < 0 || index >= kParameterCount) {
        return;
    }
    if (index == parameterIndex(Family::ZoomDel)) {
        updateSliderScale();
        return;
    }
    if (isIn(index, Family::DelayT)) {
        updateSlider(index - parameterIndex(Family::DelayT));
        updateGraphTimes();
        return;
    }
    if (isIn(index, Family::TAPtoFB)) {
        for (int32_t tap = 0; tap < kTaps; ++tap) {
            panel->show(parameterIndex(Family::TAPtoFB, tap), applied(Family::TAPtoFB, tap));
        }
        updateGraphSwitches();
        return;
    }
    panel->show(index, applied(index));
    if (index == parameterIndex(Family::Tempo)) {
        updateSliders();
        showDigits(index, tempoDigits(applied(index)));
    } else if (index == parameterIndex(Family::Note)) {
        updateSliders();
        showDigits(index, noteGlyphs(applied(index)));
    } else if (index == parameterIndex(Family::FreqMod)) {
        showDigits(index, lfoDigits(applied(index)));
    } else if (isIn(index, Family::ActTap)) {
        setDirty(panel->slider(index - parameterIndex(Family::ActTap)));
        if (applied(index) != 0.0f) {
            solo.active = false;
        }
        updateGraphSwitches();
    } else if (index == parameterIndex(Family::ModeFB)) {
        updateGraphSwitches();
    } else if (editParameterOf(index) >= 0) {
        updateGraphTaps();
    }
}

void Tessel8Editor::showAll() {
    updateSliderScale();
    for (int32_t index = 0; index < kParameterCount; ++index) {
        updateIndex(index);
    }
    updateMeterMode();
    updateGraphTaps();
    updateIndex(command::kMidiLearn);
    if (CControl* const graphSwitch = panel->find(kTagGraphMode)) {
        graphSwitch->setValue(graphMode);
    }
    seenZoom = applied(Family::ZoomDel);
    seenTempo = refreshedTempo = applied(Family::Tempo);
    seenFreqMod = applied(Family::FreqMod);
}

void Tessel8Editor::updateSliderScale() {
    const float zoom = applied(Family::ZoomDel);
    const float shown = zoom / float(kWholeNoteRange);
    for (const int32_t strip : {kRangeStrip, kRulerStrip}) {
        if (CControl* const control = panel->find(kRangeReadout, strip)) {
            control->setValue(shown);
            control->setDirty(true);
        }
    }
    sliderScale =
        SliderScale::of(zoom, applied(reading::kRingFracUsed), applied(reading::kWholeNotesInRing));
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->tapView(tap)->setGridScale(sliderScale.zoom);
    }
    refreshDelays();
}

void Tessel8Editor::updateSlider(int32_t tap) {
    if (CControl* const slider = panel->slider(tap)) {
        slider->setValue(sliderScale.scale * applied(reading::kDelayFrac + tap));
    }
}

void Tessel8Editor::updateSliders() {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        updateSlider(tap);
    }
}

void Tessel8Editor::updateGraphTimes() {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->tapView(tap)->setTapTime(sliderScale.scale * applied(reading::kDelayFrac + tap));
    }
}

void Tessel8Editor::refreshDelays() {
    updateSliders();
    updateGraphTimes();
}

void Tessel8Editor::updateGraphSwitches() {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->tapView(tap)->setTapActive(applied(Family::ActTap, tap));
        panel->tapView(tap)->setTapToFeedback(applied(Family::TAPtoFB, tap));
    }
}

void Tessel8Editor::updateGraphTaps() {
    if (!panel) {
        return;
    }
    const EditParameter& shown = kEditParameters[size_t(editParameter)];
    panel->tapView(kTaps - 1)->setBackgroundFrame(shown.graphFrame);
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->tapView(tap)->setBaseline(shown.graphFromFloor);
        panel->tapView(tap)->setTapLevel(applied(shown.family, tap));
    }
}

void Tessel8Editor::updateMeterMode() {
    const float mode = applied(command::kMeterMode);
    const int32_t step = int32_t(mode * 2.0f);
    constexpr int32_t kOutput = 1, kCompare = 2;
    const auto set = [this](int32_t strip, int32_t nth, bool second) {
        if (CControl* const word = panel->find(kTagMeterMode, strip, nth)) {
            word->setValue(second ? 1.0f : 0.0f);
        }
    };
    if (CControl* const meterSwitch = panel->find(kTagMeterMode, 163)) {
        meterSwitch->setValue(mode);
    }
    meters.clearClips();
    set(kLampStrip, 0, false);
    set(kLampStrip, 1, false);
    set(kSourceStrip, 0, step == kOutput);                      // upper
    set(kSourceStrip, 1, step == kOutput || step == kCompare);  // lower
    set(kUpperLetterStrip, 0, step != kCompare);
    set(kLowerLetterStrip, 0, step != kCompare);
}

void Tessel8Editor::updateTapPadPicture() {
    if (CControl* const pad = panel->find(kTagTapPad)) {
        pad->setBackground(panel->picture(tapPad.isRunning() ? kTapPadLit : kTapPadStrip));
        pad->setDirty(true);
    }
}

void Tessel8Editor::showDigits(int32_t tag, const Digits& digits) {
    for (int32_t i = 0; i < int32_t(digits.size()); ++i) {
        if (CControl* const digit = panel->find(tag, kDigitStrip, i)) {
            digit->setValue(float(digits[size_t(i)]) / float(kGlyphImages));
        }
    }
}

}  // namespace tessel8
