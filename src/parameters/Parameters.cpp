#include "parameters/Parameters.h"

#include "parameters/Conversions.h"

namespace tessel8 {

template <Family family>
void Parameters::keepValue(int tap, float v) {
    keep(family, v, tap);
}

template <Family family>
void Parameters::keepSwitch(int tap, float v) {
    keep(family, switched(v), tap);
}

// One action a family, in the order of `Family`.
const std::array<Parameters::Action, size_t(Family::Count)> Parameters::kActions{
    &Parameters::applyPower,
    &Parameters::applyMasterGain<Family::Input>,
    &Parameters::applyMasterGain<Family::Output>,
    &Parameters::applyMix,
    &Parameters::applyTimeMode,
    &Parameters::applyTempo,
    &Parameters::applyNote,
    &Parameters::keepValue<Family::ZoomDel>,
    &Parameters::applyNoteModeLfo,
    &Parameters::applyNumMod,
    &Parameters::applyDenomMod,
    &Parameters::applyFreqMod,
    &Parameters::applyPhaseMod,
    &Parameters::applySourceEF,
    &Parameters::applySpeedEF,
    &Parameters::applySyncMod,
    &Parameters::applyWaveMod,
    &Parameters::applyActMod,
    &Parameters::applyModeRev,
    &Parameters::applyTypeRev,
    &Parameters::applyDampRev,
    &Parameters::applyAmtRev,
    &Parameters::applyActRev,
    &Parameters::keepValue<Family::TapPad>,
    &Parameters::applyDelayT,
    &Parameters::applyAmtFBT,
    &Parameters::applyFBPostT,
    &Parameters::applyGainT,
    &Parameters::applyWidthT,
    &Parameters::applyPanTap,
    &Parameters::applyTypeFT,
    &Parameters::applyFreqFT,
    &Parameters::applyResoFT,
    &Parameters::applyGainFT,
    &Parameters::applyTapModulation<Family::SourceF>,
    &Parameters::applyTapModulation<Family::DepthFT>,
    &Parameters::applyPhaseFT,
    &Parameters::applyActFltT,
    &Parameters::applySaturator<Family::PreDrvT>,
    &Parameters::applyDriveT,
    &Parameters::applySaturator<Family::ActDrvT>,
    &Parameters::applyRevTap,
    &Parameters::applyActRevT,
    &Parameters::applyActTap,
    &Parameters::keepSwitch<Family::LinkTap>,
    &Parameters::applyModeFB,
    &Parameters::applyTAPtoFB,
    &Parameters::applySelectFB,
    &Parameters::applyGainFB,
    &Parameters::applyPanFB<Family::PanFBR>,
    &Parameters::applyPanFB<Family::PanFBL>,
    &Parameters::keepValue<Family::LinkPanFB>,
    &Parameters::applyTypeFFB,
    &Parameters::applyFreqFFB,
    &Parameters::applyResoFFB,
    &Parameters::applyFbModulation<Family::SourceFB>,
    &Parameters::applyFbModulation<Family::DepthFB>,
    &Parameters::applyActFltFB,
    &Parameters::applyDriveFB,
    &Parameters::applyActDrvFB,
    &Parameters::applyActiveFB,
};

Parameters::Parameters(Engine& target) : engine(target) {
    keep(Family::Tempo, 0.28125f);
    keep(Family::Note, 0.5625f);
    keep(Family::ZoomDel, float(kWholeNoteRange));
    keep(Family::SpeedEF, 0.3162277f);
    tapFltTypeIdx.fill(kNoType);
    recalculateForRate();
}

void Parameters::connect(ProgramSink* sink, HostClock* hostClock) {
    programs = sink;
    clock = hostClock;
}

void Parameters::connect(EditorLink* link) {
    editor = link;
}

void Parameters::tellEditor(int32_t index, float value) const {
    if (editor) {
        editor->setParameter(index, value);
    }
}

void Parameters::endMidiLearn() {
    midiLearnActive.store(0.0f, kRelaxed);
    midiLearnController.store(kNothingHeard, kRelaxed);
}

void Parameters::apply(int32_t index, float value) {
    markDirty();
    endMidiLearn();
    tellEditor(command::kMidiLearn, 0.0f);

    int32_t reported = index;
    if (index >= 0 && index < kParameterCount) {
        paramMirror[size_t(index)] = value;
        const ParameterFamily& row = familyOf(index);
        (this->*kActions[size_t(row.family)])(index - row.first, value);
        if (row.family == Family::Tempo && followsHost()) {
            // The host leads: the written tempo is neither forwarded nor stored.
            if (editor) {
                editor->showTempo(kept(Family::Tempo));
            }
            return;
        }
    } else if (index >= kParameterCount && index <= command::kLast) {
        runCommand(index, value, reported);
    }
    tellEditor(reported, value);
    if (programs && !programs->isLoadingProgram()) {
        programs->storeAllValues(appliedValues.data());
    }
}

void Parameters::runCommand(int32_t index, float v, int32_t& reported) {
    struct Alias {
        int32_t first;
        Family family;
    };
    static constexpr Alias kAliases[] = {
        {command::kFBPostT, Family::FBPostT},   {command::kSelectFB, Family::SelectFB},
        {command::kTAPtoFB, Family::TAPtoFB},   {command::kNoteModeLfo, Family::NoteModeLfo},
        {command::kNumMod, Family::NumMod},     {command::kDenomMod, Family::DenomMod},
        {command::kActiveFB, Family::ActiveFB},
    };
    for (const Alias& alias : kAliases) {
        const ParameterFamily& row = familyRow(alias.family);
        const int32_t tap = index - alias.first;
        if (tap >= 0 && tap < row.count) {
            reported = row.first + tap;
            (this->*kActions[size_t(alias.family)])(tap, v);
            return;
        }
    }
    if (index >= command::kStepDelayDown && index < command::kStepDelayUp) {
        stepDelay(index - command::kStepDelayDown, -1);
    } else if (index >= command::kStepDelayUp && index < command::kMeterMode) {
        stepDelay(index - command::kStepDelayUp, 1);
    } else if (index == command::kMeterMode) {
        meterModeValue = v;
        engine.clearMeters();
    } else if (index == command::kMidiLearn) {
        midiLearnActive.store(v, kRelaxed);
    }
}

float Parameters::applied(int32_t index) const {
    return index >= 0 && index < kParameterCount ? appliedValues[size_t(index)] : reading(index);
}

float Parameters::stored(int32_t index) const {
    return index >= 0 && index < kParameterCount ? paramMirror[size_t(index)] : reading(index);
}

float Parameters::reading(int32_t index) const {
    const auto tapOf = [=](int32_t first) { return size_t(index - first); };
    const auto within = [=](int32_t first) { return index >= first && index < first + kTaps; };
    if (within(reading::kDelayMs)) {
        return float(delayMs[tapOf(reading::kDelayMs)]);
    }
    if (within(reading::kDelaySteps)) {
        return float(delaySteps[tapOf(reading::kDelaySteps)]);
    }
    if (within(reading::kDelayFrac)) {
        return delayFrac[tapOf(reading::kDelayFrac)];
    }
    if (within(reading::kSideLevel)) {
        return widths[tapOf(reading::kSideLevel)].side;
    }
    switch (index) {
        case command::kMeterMode:
            return meterModeValue;
        case command::kMidiLearn:
            return midiLearnActive.load(kRelaxed);
        case reading::kNoteFreqMod:
            return lastFreqMod;
        case reading::kRingFracUsed:
            return grid.ringFracUsed;
        case reading::kWholeNotesInRing:
            return float(grid.wholeNotesInRing);
        case reading::kTempoBpm:
            return tempoBpm;
        case reading::kRingLen:
            return float(engine.ringLen);
        case reading::kSampleRate:
            return sampleRate;
        case reading::kMidiStamp:
            return float(lastMidiTick.load(kRelaxed));
        default:
            return 0.0f;
    }
}

void Parameters::mirrorAppliedValues() {
    paramDirty.store(false, std::memory_order_relaxed);
    paramMirror = appliedValues;
}

void Parameters::resetToDefaults() {
    tapFltTypeIdx.fill(kNoType);
    fbFltTypeIdx = kNoType;
    const auto applyFamily = [this](Family family, int32_t tap) {
        const int32_t index = parameterIndex(family, tap);
        apply(index, parameterDefault(index));
    };
    const int32_t firstTapFamily = parameterIndex(Family::DelayT);
    for (int32_t index = 0; index < firstTapFamily; ++index) {
        apply(index, parameterDefault(index));
    }
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        for (size_t row = 0; row < size_t(Family::Count); ++row) {
            if (familyRow(Family(row)).count == kTaps) {
                applyFamily(Family(row), tap);
            }
        }
    }
    // The mode comes before what it restricts, the type before the values whose law it chooses.
    for (const Family family :
         {Family::ActTap, Family::ModeFB, Family::SelectFB, Family::TypeFFB, Family::FreqFFB,
          Family::ResoFFB, Family::SourceFB, Family::DepthFB, Family::ActFltFB, Family::GainFB,
          Family::PanFBR, Family::PanFBL, Family::LinkPanFB, Family::DriveFB, Family::ActDrvFB,
          Family::ActiveFB}) {
        applyFamily(family, 0);
    }
}

void Parameters::recalculateForRate() {
    recalculateGrid();
    engine.lfo.step = finite(lfoHz * (2.0f * kPiFloat) / sampleRate);
    setFollowerSpeed();
    endMidiLearn();
}

void Parameters::beginBlock() {
    processSeen.store(true, std::memory_order_relaxed);
    followHostTempo();
    holdDelaysWithinGrid();
    followSongPosition();
}

}  // namespace tessel8
