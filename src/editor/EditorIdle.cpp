// What the panel does by itself, in the host's idle time, by the clock.

#include <algorithm>

#include "editor/StatusTexts.h"
#include "editor/Tessel8Editor.h"
#include "parameters/ControlTags.h"
#include "widgets/CBigText_2.h"
#include "widgets/CSmallText_2.h"

namespace tessel8 {

namespace {

constexpr uint32_t kMidiHoldMs = 2000;  // after a MIDI change the display keeps its text
constexpr uint32_t kMidiLampMs = 100;

}  // namespace

void Tessel8Editor::idle() {
    takeOverChanges();
    storeMidiChanges();
    CPresetSystemEditor::idle();
    if (!panel || !isOpen()) {
        return;
    }
    const uint32_t now = clock.now();
    padPresses.take([this](bool down, uint32_t tick) {
        if (tapPad.press(down ? 1.0f : 0.0f, tick)) {
            takeOverChanges();
            refreshDelays();
        }
        updateTapPadPicture();
    });
    showHoverText(now);
    if (tapPad.endRunInTime(now)) {
        updateTapPadPicture();
    }
    refreshSyncedTaps();
    repeatHeldKeys(now);
    moveMeters(now);
    pollValues();
    putOutMidiLamp(now);
}

void Tessel8Editor::showHoverText(uint32_t now) {
    if (now - lastMidiChange.load() <= kMidiHoldMs) {
        return;
    }
    const bool learning = isLearning();
    // With nothing under the pointer the credits go on, and any other text stays.
    const int32_t hover = hoverTag < 0 && hoverShown == kTagLogo ? kTagLogo : hoverTag;
    if (hover > -2 && hover <= kTagLogo && hover != hoverLast) {
        if (learning) {
            showMidiAssignment(hover);
        } else {
            updateStatus(hover);
        }
        hoverShown = hover;
    }
    hoverLast = hover;
    if (!learning) {
        updateStatus(hoverShown);
    }
}

void Tessel8Editor::updateStatus(int32_t tag) {
    if (!panel || tag < 0) {
        return;
    }
    auto* const big = panel->get<CBigText_2>(kTagBigText);
    auto* const small = panel->get<CSmallText_2>(kTagSmallText);
    if (tag == kTagLogo) {
        if (const char* const line = scrollingTexts.nextBanner(clock.now())) {
            big->setRawText(line);
        }
        if (const char* const line = scrollingTexts.nextCredit(clock.now())) {
            small->setText(line);
        }
    } else if (const StatusText text = statusText(effectLink, tag, sliderScale.zoom, editParameter);
               text.shown) {
        if (text.raw) {
            big->setRawText(text.bigLine);
        } else {
            big->setText(text.bigLine);
        }
        small->setText(text.smallLine);
        showBesideStatus(tag);
    }
    if (CControl* const name = panel->find(kTagEditParameterStrip)) {
        name->setValue(float(editParameter) / float(kEditParameterCount - 1));
    }
    showEditStrip(editParameter);
}

void Tessel8Editor::showBesideStatus(int32_t tag) {
    switch (tag) {
        case parameterIndex(Family::TimeMode):
            panel->show(tag, applied(tag));
            break;
        case parameterIndex(Family::Tempo):
        case command::kTapPad:
            showDigits(parameterIndex(Family::Tempo), tempoDigits(applied(Family::Tempo)));
            break;
        case parameterIndex(Family::Note):
            showDigits(tag, noteGlyphs(applied(tag)));
            break;
        case parameterIndex(Family::NumMod):
        case parameterIndex(Family::DenomMod):
        case parameterIndex(Family::FreqMod):
            showDigits(parameterIndex(Family::FreqMod), lfoDigits(applied(Family::FreqMod)));
            break;
        default:
            if (tag >= kTagEditParameterBack && tag <= kTagEditParameterStrip) {
                swapEditBars(editParameter, graphMode);
            }
    }
}

void Tessel8Editor::showMidiAssignment(int32_t tag) {
    if (panel) {
        const StatusText text = midiAssignmentText(effectLink, tag);
        panel->get<CBigText_2>(kTagBigText)->setText(text.bigLine);
        panel->get<CSmallText_2>(kTagSmallText)->setText(text.smallLine);
    }
}

void Tessel8Editor::refreshSyncedTaps() {
    const float tempo = applied(Family::Tempo);
    if (applied(Family::TimeMode) > kHostLeads && tempo != refreshedTempo) {
        refreshedTempo = tempo;
        refreshDelays();
        updateIndex(parameterIndex(Family::Tempo));
    }
}

void Tessel8Editor::moveMeters(uint32_t now) {
    constexpr int32_t kLampStrip = 178, kLowerLamp = 0, kUpperLamp = 1;
    Meters::Levels in{}, out{}, shown{};
    const float mode = applied(command::kMeterMode);
    const bool showsInput = mode == 0.0f, showsOutput = mode == 0.5f;
    if (!showsOutput) {
        effectLink.takeInputPeaks(&in.upper, &in.lower);
        shown = in;
    }
    if (!showsInput) {
        effectLink.takeOutputPeaks(&out.upper, &out.lower);
        shown = out;
    }
    if (!showsInput && !showsOutput) {
        shown = {std::max(in.upper, in.lower), std::max(out.upper, out.lower)};
    }
    meters.endClips(now);
    meters.pass(now, shown);
    const auto set = [](CControl* control, float value) {
        if (control) {
            control->setValue(value);
        }
    };
    set(panel->find(kTagUpperMeter), meters.level(0));
    set(panel->find(kTagLowerMeter), meters.level(1));
    set(panel->find(kTagMeterMode, kLampStrip, kUpperLamp), meters.isClipping(0) ? 1.0f : 0.0f);
    set(panel->find(kTagMeterMode, kLampStrip, kLowerLamp), meters.isClipping(1) ? 1.0f : 0.0f);
}

void Tessel8Editor::pollValues() {
    const auto poll = [this](Family family, float& seen) {
        const float value = applied(family);
        if (value != seen) {
            seen = value;
            updateIndex(parameterIndex(family));
        }
    };
    poll(Family::ZoomDel, seenZoom);
    poll(Family::Tempo, seenTempo);
    poll(Family::FreqMod, seenFreqMod);
}

void Tessel8Editor::putOutMidiLamp(uint32_t now) {
    CControl* const lamp = panel->find(kTagMidiLamp);
    if (lamp && float(now) - applied(reading::kMidiStamp) > float(kMidiLampMs)) {
        lamp->setValue(0.0f);
    }
}

}  // namespace tessel8
