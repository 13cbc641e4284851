#include "editor/StatusTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <span>

#include "editor/EditParameters.h"
#include "parameters/ControlTags.h"
#include "parameters/Conversions.h"
#include "parameters/DelayRanges.h"
#include "parameters/FilterLaws.h"
#include "parameters/ModulationLaws.h"
#include "parameters/NoteTable.h"
#include "parameters/ParameterTable.h"
#include "parameters/TapLaws.h"

namespace tessel8 {

namespace {

struct Subject;
using Writer = void (*)(Subject&);
using Words = std::span<const char* const>;

/// How the lines of a family are made. In families of the taps the formats begin with the tap's
/// number, the value's arguments follow.
struct Row {
    Writer write = nullptr;
    const char* big = nullptr;    ///< format, or a fixed text
    const char* small = nullptr;  ///< format; null where the writer chooses
    Words words = {};             ///< what goes into the format, by step
};

/// A control whose lines are being written.
struct Subject {
    EffectLink& effect;
    const Row& row;
    int8_t tap;  ///< 0 to 7, -1 outside the families of the taps
    float v;     ///< applied value
    int32_t zoomIndex, editParameter;
    StatusText text = {};

    float read(Family family, int32_t t = 0) const {
        return effect.appliedValue(parameterIndex(family, t));
    }

    template <size_t N, typename... Args>
    void print(char (&line)[N], const char* format, Args... args) const {
        if (tap >= 0) {
            std::snprintf(line, N, format, tap + 1, args...);
        } else {
            std::snprintf(line, N, format, args...);
        }
    }

    /// A format that takes the tap's number at most.
    template <size_t N>
    void say(char (&line)[N], const char* format) const {
        if (tap >= 0) {
            std::snprintf(line, N, format, tap + 1);
        } else {
            std::snprintf(line, N, "%s", format);
        }
    }

    void sayWord(int32_t step) {
        if (step >= 0 && step < int32_t(row.words.size())) {
            print(text.bigLine, row.big, row.words[size_t(step)]);
        }
    }
};

// Laws of the printed numbers. Products are in 32-bit floats like the engine's: a knob at 29/100
// shows 29 and not 28.

double gainDb(float v) {
    return std::clamp(20.0 * std::log10(double(gainLaw(v))), -100.0, 100.0);
}
double percent(float v) {
    return double(100.0f * v);
}
double depthPercent(float v) {
    return std::clamp(double(200.0f * (v - 0.5f)), -100.0, 100.0);
}
double filterGainDb(float v) {
    return double(36.0f * v - 18.0f);
}
double phaseDegrees(float v) {
    return double(180.0f * (v - 0.5f));
}
double lfoHz(float v) {
    return double(lfoFrequencyLaw(v));
}
double followerMs(float v) {
    return 1000.0 * followerTimeLaw(v);
}

// Writers of the value lines.

void fixedText(Subject& s) {
    s.say(s.text.bigLine, s.row.big);
}

template <auto law>
void number(Subject& s) {
    s.print(s.text.bigLine, s.row.big, law(s.v));
}

/// A crossfade, in percent of both sides.
void share(Subject& s) {
    s.print(s.text.bigLine, s.row.big, truncated(100.0f - 100.0f * s.v), truncated(100.0f * s.v));
}

/// Both sides are whole in the middle, and the far one falls as the control moves out.
void balance(Subject& s) {
    const float share = std::floor(201.0f * s.v);
    const bool left = s.v <= 0.5f;
    s.print(s.text.bigLine, s.row.big, left ? 100 : truncated(201.0f - share),
            left ? truncated(share) : 100);
}

void onOff(Subject& s) {
    s.sayWord(s.v != 0.0f);
}

void step(Subject& s) {
    s.sayWord(nearestStep(s.v, int32_t(s.row.words.size())));
}

/// The words are whole lines with the tap's number in them.
void wholeLine(Subject& s) {
    s.say(s.text.bigLine, s.row.words[s.v != 0.0f]);
}

constexpr const char* kTimeModes[] = {"TIME", "NOTE", "SYNC"};
constexpr const char* kTimeModeNames[] = {"Delay Setup Mode :      miliseconds",
                                          "Delay Setup Mode :             Note",
                                          "Delay Setup Mode: Note + Tempo Sync"};

void timeMode(Subject& s) {
    const int32_t mode = s.v == 0.0f ? 0 : s.v > 0.9f ? 2 : 1;
    s.sayWord(mode);
    s.say(s.text.smallLine, kTimeModeNames[mode]);
}

/// The words are the names, by what the tap pad sets. Rounded up: a tempo is never shown short.
void tempo(Subject& s) {
    const float bpm = std::ceil((320.0f * s.read(Family::Tempo) + 30.0f) * 100.0f) / 100.0f;
    s.print(s.text.bigLine, s.row.big, double(bpm));
    s.say(s.text.smallLine, s.row.words[s.read(Family::TapPad) != 0.0f]);
}

void note(Subject& s) {
    s.print(s.text.bigLine, s.row.big, panelNoteRow(s.v).panelText);
}

void delayRange(Subject& s) {
    if (s.zoomIndex >= 0 && s.zoomIndex < int32_t(kDelayRanges.size())) {
        s.say(s.text.bigLine, kDelayRanges[size_t(s.zoomIndex)].panelText);
    }
}

/// The note holds only as long as the frequency is the one that it gave.
void lfoNote(Subject& s) {
    const float frequency = s.read(Family::FreqMod);
    if (frequency != s.effect.appliedValue(reading::kNoteFreqMod)) {
        s.say(s.text.bigLine, "NOTE Disable");
    } else {
        const size_t numerator = lfoNumeratorIndex(s.read(Family::NumMod));
        const size_t denominator = lfoDenominatorIndex(s.read(Family::DenomMod));
        s.print(s.text.bigLine, s.row.big, int32_t(kLfoNumerators[numerator]),
                int32_t(kLfoDenominators[denominator]));
    }
    s.print(s.text.smallLine, "LFO Freq %5.2f Hz in Note Mode", lfoHz(frequency));
}

void delay(Subject& s) {
    const auto whole = [&s](int32_t first) {
        return truncated(s.effect.appliedValue(first + s.tap));
    };
    if (s.read(Family::TimeMode) == 0.0f) {
        s.print(s.text.bigLine, "DEL%d: %4d ms", whole(reading::kDelayMs));
        s.say(s.text.smallLine, "Tap %d Delay Time:                ms");
    } else {
        s.print(s.text.bigLine, "DEL%d:%4d:%s", whole(reading::kDelaySteps),
                panelNoteRow(s.read(Family::Note)).panelText);
        s.say(s.text.smallLine, "Tap %d Delay Time: Value        Note");
    }
}

void width(Subject& s) {
    const float side = shownWidth(s.effect.appliedValue(reading::kSideLevel + s.tap));
    if (side == 0.0f) {
        s.say(s.text.bigLine, "TAP%d:    MONO");
    } else if (side == -100.0f) {
        s.say(s.text.bigLine, "TAP%d: -STEREO");
    } else if (side == 100.0f) {
        s.say(s.text.bigLine, "TAP%d: +STEREO");
    } else {
        s.print(s.text.bigLine, s.row.big, double(side));
    }
}

void feedbackMode(Subject& s) {
    s.text.raw = true;
    s.say(s.text.bigLine, s.v == 0.0f   ? "    M U L T I E C H O"
                          : s.v >= 2.0f ? "          M U L T I F B"
                                        : "        M U L T I T A B");
}

void feedbackTap(Subject& s) {
    s.text.raw = true;
    if (s.v != 0.0f) {
        s.print(s.text.bigLine, s.row.big, truncated(8.0f * s.v));
    } else {
        s.say(s.text.bigLine, "T A P   -   t o   F B");
    }
}

void editedFamily(Subject& s) {
    if (s.editParameter >= 0 && s.editParameter < int32_t(kEditParameters.size())) {
        s.say(s.text.bigLine, kEditParameters[size_t(s.editParameter)].text);
    }
}

constexpr const char* kOffOn[] = {"OFF", "ON"};
constexpr const char* kReverbPlaces[] = {"TAP", "OUT"};
constexpr const char* kReverbTypes[] = {"SPRING", "PLATE"};
constexpr const char* kPadModes[] = {"TAP", "TEMPO"};
constexpr const char* kPrePost[] = {"PRE", "POST"};
constexpr const char* kPhases[] = {"POS", "NEG"};
constexpr const char* kSaturatorPlaces[] = {"POST FILTER%d", " PRE FILTER%d"};
constexpr const char* kWaves[] = {"SIN", "SQR", "TRI", "SAW", "RND"};
constexpr const char* kFeedbackFilters[] = {"SVLPF",  "SVBPF",  "SVHPF",
                                            "BiQLPF", "BiQBPF", "BiQHPF"};
constexpr const char* kFollowerSources[] = {"MASTER IN", "IN TAP 1",  "IN TAP 2", "IN TAP 3",
                                            "IN TAP 4",  "IN TAP 5",  "IN TAP 6", "IN TAP 7",
                                            "IN TAP 8",  "MASTER OUT"};
constexpr const char* kMeterModes[] = {"INPUT", "OUTPUT", "COMPARE"};
constexpr const char* kTempoNames[] = {"Current Tempo from Host Application", "Current Tempo"};
constexpr const char* kPadNames[] = {"Tap Pad Mode: Set Taps Delay Time",
                                     "Tap Pad Mode: Set Tempo"};

// One row a family, in the order of `Family`.
// clang-format off
constexpr std::array<Row, size_t(Family::Count)> kRows{{
    {onOff, "Plugin:%6s", "Tessel8 Power", kOffOn},
    {number<gainDb>, "IN:  %+6.1f dB", "Master Input Gain"},
    {number<gainDb>, "OUT: %+6.1f dB", "Master Output Gain"},
    {share, "MIX: %3d%%:%3d%%", "Master Mix :        Dry         Wet"},
    {timeMode, "TIME:%8s", nullptr, kTimeModes},
    {tempo, "    %5.1f BPM", nullptr, kTempoNames},
    {note, "NOTE:    %s", "Delay Time Quantize Type"},
    {delayRange, nullptr, "Delay Range"},
    {},  // the LFO's note mode has no control of its own
    {lfoNote, "Num:%d/Denom:%2d"},
    {lfoNote, "Num:%d/Denom:%2d"},
    {number<lfoHz>, "LFO:  %5.2f Hz", "LFO Frequency"},
    {number<phaseDegrees>, "LFO:   %+5.1f ?", "LFO Phase"},
    {step, "EF:%10s", "EF Signal Source", kFollowerSources},
    {number<followerMs>, "EF:  %6.1f ms", "EF Attack/Release Time"},
    {onOff, "SYNC LFO: %3s", "LFO Song Position Synchronization", kOffOn},
    {step, "LFO WAVE: %s", "LFO Waveform", kWaves},
    {onOff, "LFO/EF:%6s", "On/Off LFO & Envelope Follower Mod", kOffOn},
    {onOff, "MODE:%8s", "Reverb Main Mode", kReverbPlaces},
    {onOff, "TYPE:%8s", "Reverb Main Type", kReverbTypes},
    {number<percent>, "DAMP:  %5.1f %%", "Reverb Main Damp"},
    {share, "AMT: %3d%%:%3d%%", "Reverb Main Amt :   Dry         Wet"},
    {onOff, "REVERB:%6s", "Reverb Main On/Off", kOffOn},
    {onOff, "PAD:%9s", "Tap Pad Mode", kPadModes},
    {delay},
    {number<percent>, "TAP%d: %6.2f %%", "Tap %d Amount Feedback"},
    {onOff, "TAP%d:%8s", "Tap %d Pre/Post Tap Feedback", kPrePost},
    {number<gainDb>, "OUT: %+6.1f dB", "Tap %d Input Gain"},
    {width, "TAP%d: %+6.1f %%", "Tap %d Stereo Width"},
    {balance, "TAP%d:%3d%%:%3d%%", "Tap %d Balance :    Left       Right"},
    {step, "TAP%d:%8s", "Tap %d Filter Type", kTapFilterNames},
    {number<shownFrequency>, "TAP%d: %5d Hz", "Tap %d Filter Frequency"},
    {number<percent>, "TAP%d: %6.2f %%", "Tap %d Filter Resonance"},
    {number<filterGainDb>, "TAP%d: %+5.1f dB", "Tap %d Filter Gain"},
    {share, "TAP%d:%3d%%:%3d%%", "Tap %d Mod Source :  LFO          EF"},
    {number<depthPercent>, "TAP%d: %+6.1f %%", "Tap %d Modulation Depth"},
    {onOff, "PHASE%d:%6s", "Tap %d LFO Phase", kPhases},
    {onOff, "TAP%d: FLT %3s", "Tap %d Filter On/Off", kOffOn},
    {wholeLine, nullptr, "Tap %d Saturation Insert", kSaturatorPlaces},
    {number<percent>, "TAP%d: %6.2f %%", "Tap %d Saturation Drive"},
    {onOff, "TAP%d: DRV %3s", "Tap %d Saturation On/Off", kOffOn},
    {share, "TAP%d:%3d%%:%3d%%", "Tap %d Reverb Mix :  Dry         Wet"},
    {onOff, "TAP%d: REV %3s", "Tap %d Reverb On/Off", kOffOn},
    {onOff, "TAP%d:%8s", "Tap %d On/Off", kOffOn},
    {onOff, "LINK %d:%6s", "Tap %d Parameter Link", kOffOn},
    {feedbackMode, nullptr, "Feedback Mode"},
    {onOff, "TAP%d:->FB:%4s", "Send Tap %d to Feedback", kOffOn},
    {feedbackTap, "T A P   %d   t o   F B", "Feedback Tap Select"},
    {number<percent>, "FB:   %6.2f %%", "Feedback Gain"},
    {share, "PanR:%3d%%:%3d%%", "FB Right Pan :     Left       Right"},
    {share, "PanL:%3d%%:%3d%%", "FB Left Pan :      Left       Right"},
    {onOff, "LINK PAN: %3s", "Feedback Pan Link", kOffOn},
    {step, "FB:%10s", "Feedback Filter Type", kFeedbackFilters},
    {number<shownFrequency>, "FB:   %5d Hz", "Feedback Filter Frequency"},
    {number<percent>, "FB:   %6.2f %%", "Feedback Filter Resonance"},
    {share, "FB:  %3d%%:%3d%%", "Feedback Mod Source :LFO         EF"},
    {number<depthPercent>, "FB:   %+6.1f %%", "Feedback Modulation Depth"},
    {onOff, "FB: FLT%6s", "Feedback Filter On/Off", kOffOn},
    {number<percent>, "FB:   %6.2f %%", "Feedback Saturation Drive"},
    {onOff, "FB: DRV%6s", "Feedback Saturation On/Off", kOffOn},
    {onOff, "FB:%10s", "Feedback On/Off", kOffOn},
}};

struct PanelRow {
    int32_t tag;
    Row row;
};

constexpr PanelRow kPanelRows[] = {
    {kTagTapPad, {tempo, "    %5.1f BPM", nullptr, kPadNames}},
    {kTagMeterMode, {step, "METER:%7s", "Meter Mode", kMeterModes}},
    {kTagEditParameterBack, {editedFamily, nullptr, "Select Edit Parameter"}},
    {kTagEditParameterForward, {editedFamily, nullptr, "Select Edit Parameter"}},
    {kTagEditParameterStrip, {editedFamily, nullptr, "Select Edit Parameter"}},
    {kTagMidiLearn, {fixedText, "MIDI LEARN", "MIDI CC  easy learn"}},
    {kTagMidiReset, {fixedText, "MIDI RESET", "MIDI CC  setings reset"}},
    {kTagMidiLoad, {fixedText, "MIDI LOAD", "MIDI CC  setings load"}},
    {kTagMidiSave, {fixedText, "MIDI SAVE", "MIDI CC  setings save"}},
    {kTagGraphMode, {fixedText, "GRAPH", "Graph Mode Display Switch"}},
    {kTagPanic, {fixedText, "<<<PANIC>>>", "Feedback overload PANIC !!!"}},
};
// clang-format on

const Row* rowOf(int32_t index) {
    if (index >= 0 && index < kParameterCount) {
        return &kRows[size_t(familyOf(index).family)];
    }
    const auto* found = std::find_if(std::begin(kPanelRows), std::end(kPanelRows),
                                     [index](const PanelRow& r) { return r.tag == index; });
    return found == std::end(kPanelRows) ? nullptr : &found->row;
}

int8_t tapOf(int32_t index) {
    if (index >= kParameterCount || familyOf(index).count == 1) {
        return -1;
    }
    return int8_t(index - familyOf(index).first);
}

/// Cuts the small line to its cells or fills them up, so that an unchanged text repaints nothing.
void finish(StatusText& text) {
    char* const line = text.smallLine;
    const size_t length = std::min(std::strlen(line), size_t(StatusText::kSmallCells));
    std::fill(line + length, line + StatusText::kSmallCells, ' ');
    line[StatusText::kSmallCells] = 0;
    text.shown = true;
}

}  // namespace

StatusText statusText(EffectLink& effect, int32_t tag, int32_t zoomIndex, int32_t editParameter) {
    const int32_t index = shownParameterOfTag(tag);
    const Row* const row = rowOf(index);
    if (!row || !row->write) {
        return {};
    }
    Subject subject{effect,    *row,         tapOf(index), effect.appliedValue(index),
                    zoomIndex, editParameter};
    row->write(subject);
    if (row->small) {
        subject.say(subject.text.smallLine, row->small);
    }
    finish(subject.text);
    return subject.text;
}

StatusText midiAssignmentText(EffectLink& effect, int32_t tag) {
    constexpr int32_t kControllers = 128;
    StatusText text;
    const auto write = [&text](const char* big, int32_t controller, const char* small) {
        std::snprintf(text.bigLine, sizeof text.bigLine, big, controller);
        std::snprintf(text.smallLine, sizeof text.smallLine, "%s", small);
        finish(text);
    };
    if (!canBeLearnt(tag)) {
        write("MIDI Disable", 0, "MIDI Impossible for This Control");
        return text;
    }
    const int32_t controller = effect.controllerForParameter(parameterOfTag(tag));
    if (controller >= kControllers) {
        write("NotConnected", controller, "MIDI ControlChange not Assigned");
    } else {
        write("MIDI CC# %3d", controller, "MIDI ControlChange is Assigned");
    }
    return text;
}

}  // namespace tessel8
