// The column heads above the tap rows: a click sets a whole column back.

#include "editor/Tessel8Editor.h"
#include "parameters/ControlTags.h"
#include "widgets/RoundKnobs.h"

namespace tessel8 {

namespace {

enum class Reset : uint8_t { Off, FirstTapOn, KnobDefault, NextInList, Delay };

struct Column {
    Family family;
    Reset reset;
};

// By tag; the drive's column also sets its place back.
constexpr Column kColumns[] = {
    {Family::ActTap, Reset::FirstTapOn},   {Family::AmtFBT, Reset::KnobDefault},
    {Family::FBPostT, Reset::Off},         {Family::GainT, Reset::KnobDefault},
    {Family::WidthT, Reset::NextInList},   {Family::PanTap, Reset::KnobDefault},
    {Family::DelayT, Reset::Delay},        {Family::ActFltT, Reset::Off},
    {Family::TypeFT, Reset::Off},          {Family::FreqFT, Reset::KnobDefault},
    {Family::ResoFT, Reset::KnobDefault},  {Family::GainFT, Reset::KnobDefault},
    {Family::PhaseFT, Reset::Off},         {Family::SourceF, Reset::KnobDefault},
    {Family::DepthFT, Reset::KnobDefault}, {Family::ActDrvT, Reset::Off},
    {Family::DriveT, Reset::KnobDefault},  {Family::ActRevT, Reset::Off},
    {Family::RevTap, Reset::KnobDefault},
};
static_assert(std::size(kColumns) == 19);

float resetValue(Reset reset, int32_t tap, CControl* control) {
    switch (reset) {
        case Reset::FirstTapOn:
            return tap == 0 ? 1.0f : 0.0f;
        case Reset::KnobDefault:
            return control ? control->getDefaultValue() : 0.0f;
        case Reset::NextInList: {
            auto* const knob = dynamic_cast<CAnimKnob4*>(control);
            return knob ? knob->nextDefault() : 0.0f;
        }
        default:
            return 0.0f;
    }
}

}  // namespace

void Tessel8Editor::resetColumn(int32_t tag) {
    const Column& column = kColumns[size_t(tag - kTagFirstColumnHead)];
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        const int32_t index = parameterIndex(column.family, tap);
        effectLink.setParameter(index, resetValue(column.reset, tap, panel->find(index)));
        if (column.reset == Reset::Delay) {
            effectLink.restartTapFade(index);
        }
        if (column.family == Family::ActDrvT) {
            effectLink.setParameter(parameterIndex(Family::PreDrvT, tap), 0.0f);
        }
    }
    takeOverChanges();
    if (column.reset == Reset::Delay) {
        refreshDelays();
    }
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        panel->invalidateDirty(parameterIndex(column.family, tap));
    }
}

}  // namespace tessel8
