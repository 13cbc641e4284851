#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessel8 {

// The flat index space of everything the effect can be told or asked: 0 to 214 are the host's
// parameters, 215 to 378 commands and aliases, 379 to 425 values that can only be read. A
// parameter's index is for ever: it stands in every project that a musician has saved.

constexpr int32_t kParameterCount = 215;

/// A run of parameters with one law: eight for the families of the taps, else one.
enum class Family : uint8_t {
    Power,
    Input,
    Output,
    Mix,
    TimeMode,
    Tempo,
    Note,
    ZoomDel,
    NoteModeLfo,
    NumMod,
    DenomMod,
    FreqMod,
    PhaseMod,
    SourceEF,
    SpeedEF,
    SyncMod,
    WaveMod,
    ActMod,
    ModeRev,
    TypeRev,
    DampRev,
    AmtRev,
    ActRev,
    TapPad,
    DelayT,
    AmtFBT,
    FBPostT,
    GainT,
    WidthT,
    PanTap,
    TypeFT,
    FreqFT,
    ResoFT,
    GainFT,
    SourceF,
    DepthFT,
    PhaseFT,
    ActFltT,
    PreDrvT,
    DriveT,
    ActDrvT,
    RevTap,
    ActRevT,
    ActTap,
    LinkTap,
    ModeFB,
    TAPtoFB,
    SelectFB,
    GainFB,
    PanFBR,
    PanFBL,
    LinkPanFB,
    TypeFFB,
    FreqFFB,
    ResoFFB,
    SourceFB,
    DepthFB,
    ActFltFB,
    DriveFB,
    ActDrvFB,
    ActiveFB,
    Count
};

/// How a value is kept on applying.
enum class Form : uint8_t {
    Continuous,  ///< any float, meant 0 to 1, kept unchanged
    Switch,      ///< 0 is off, anything else is kept as 1
    Flag,        ///< kept unchanged, tested as zero or not zero
    Steps,       ///< a float from which a step number is worked out
    Raw          ///< not normalised: the value is the number itself
};

struct ParameterFamily {
    Family family;
    int32_t first;  ///< index of the first parameter
    int32_t count;  ///< 1, or 8 in tap order
    const char* name;
    const char* label;
    Form form;
    float initial;  ///< value in the neutral program
};

/// The one table of the host's parameters, in the order of `Family` and of the indices.
// clang-format off
inline constexpr std::array<ParameterFamily, size_t(Family::Count)> kFamilies{{
    // family              first count name        label  form              initial
    {Family::Power,           0, 1, "POWER",       "",    Form::Switch,     1.0f},
    {Family::Input,           1, 1, "Input",       "dB",  Form::Continuous, 0.5f},
    {Family::Output,          2, 1, "Output",      "dB",  Form::Continuous, 0.5f},
    {Family::Mix,             3, 1, "Mix",         "%",   Form::Continuous, 0.5f},
    {Family::TimeMode,        4, 1, "TimeMode",    "",    Form::Steps,      0.5f},
    {Family::Tempo,           5, 1, "Tempo",       "BPM", Form::Continuous, 0.28125f},
    {Family::Note,            6, 1, "Note",        "",    Form::Steps,      0.5625f},
    {Family::ZoomDel,         7, 1, "ZoomDel",     "",    Form::Raw,        18.0f},
    {Family::NoteModeLfo,     8, 1, "-----",       "",    Form::Flag,       0.0f},
    {Family::NumMod,          9, 1, "NumMod",      "",    Form::Steps,      0.0f},
    {Family::DenomMod,       10, 1, "DenomMod",    "",    Form::Steps,      0.0f},
    {Family::FreqMod,        11, 1, "FreqMod",     "Hz",  Form::Continuous, 0.125f},
    {Family::PhaseMod,       12, 1, "PhaseMod",    "Deg", Form::Continuous, 0.0f},
    {Family::SourceEF,       13, 1, "SourceEF",    "",    Form::Steps,      0.0f},
    {Family::SpeedEF,        14, 1, "SpeedEF",     "ms",  Form::Continuous, 0.125f},
    {Family::SyncMod,        15, 1, "SyncMod",     "",    Form::Flag,       0.0f},
    {Family::WaveMod,        16, 1, "WaveMod",     "",    Form::Steps,      0.0f},
    {Family::ActMod,         17, 1, "ActMod",      "",    Form::Switch,     0.0f},
    {Family::ModeRev,        18, 1, "ModeRev",     "",    Form::Flag,       0.0f},
    {Family::TypeRev,        19, 1, "TypeRev",     "",    Form::Flag,       0.0f},
    {Family::DampRev,        20, 1, "DampRev",     "%",   Form::Continuous, 0.125f},
    {Family::AmtRev,         21, 1, "AmtRev",      "%",   Form::Continuous, 0.5f},
    {Family::ActRev,         22, 1, "ActRev",      "",    Form::Switch,     0.0f},
    {Family::TapPad,         23, 1, "Tap_Pad",     "",    Form::Flag,       0.0f},
    {Family::DelayT,         24, 8, "DelayT",      "ms",  Form::Continuous, 0.0f},
    {Family::AmtFBT,         32, 8, "AmtFBT",      "%",   Form::Continuous, 0.0f},
    {Family::FBPostT,        40, 8, "FBPostT",     "",    Form::Switch,     0.0f},
    {Family::GainT,          48, 8, "GainT",       "dB",  Form::Continuous, 0.5f},
    {Family::WidthT,         56, 8, "WidthT",      "%",   Form::Continuous, 0.875f},
    {Family::PanTap,         64, 8, "PanTap",      "%",   Form::Continuous, 0.5f},
    {Family::TypeFT,         72, 8, "TypeFT",      "",    Form::Steps,      0.0f},
    {Family::FreqFT,         80, 8, "FreqFT",      "Hz",  Form::Continuous, 0.5f},
    {Family::ResoFT,         88, 8, "ResoFT",      "%",   Form::Continuous, 0.125f},
    {Family::GainFT,         96, 8, "GainFT",      "dB",  Form::Continuous, 0.5f},
    {Family::SourceF,       104, 8, "SourceF",     "%",   Form::Continuous, 0.5f},
    {Family::DepthFT,       112, 8, "DepthFT",     "%",   Form::Continuous, 0.5f},
    {Family::PhaseFT,       120, 8, "PhaseFT",     "",    Form::Flag,       0.0f},
    {Family::ActFltT,       128, 8, "ActFltT",     "",    Form::Switch,     0.0f},
    {Family::PreDrvT,       136, 8, "PreDrvT",     "",    Form::Switch,     0.0f},
    {Family::DriveT,        144, 8, "DriveT",      "%",   Form::Continuous, 0.5f},
    {Family::ActDrvT,       152, 8, "ActDrvT",     "",    Form::Switch,     0.0f},
    {Family::RevTap,        160, 8, "RevTap",      "%",   Form::Continuous, 0.5f},
    {Family::ActRevT,       168, 8, "ActRevT",     "",    Form::Switch,     0.0f},
    {Family::ActTap,        176, 8, "ActTap",      "",    Form::Switch,     0.0f},  // tap 1: on
    {Family::LinkTap,       184, 8, "LinkTap",     "",    Form::Switch,     0.0f},
    {Family::ModeFB,        192, 1, "ModeFB",      "",    Form::Raw,        0.0f},
    {Family::TAPtoFB,       193, 8, "TAPtoFB",     "",    Form::Switch,     0.0f},
    {Family::SelectFB,      201, 1, "SelectFB",    "",    Form::Continuous, 1.0f},
    {Family::GainFB,        202, 1, "GainFB",      "%",   Form::Continuous, 0.0f},
    {Family::PanFBR,        203, 1, "PanFB_R",     "%",   Form::Continuous, 1.0f},
    {Family::PanFBL,        204, 1, "PanFB_L",     "%",   Form::Continuous, 0.0f},
    {Family::LinkPanFB,     205, 1, "LinkPanFB",   "",    Form::Flag,       0.0f},
    {Family::TypeFFB,       206, 1, "TypeFFB",     "",    Form::Steps,      0.0f},
    {Family::FreqFFB,       207, 1, "FreqFFB",     "Hz",  Form::Continuous, 0.5f},
    {Family::ResoFFB,       208, 1, "ResoFFB",     "%",   Form::Continuous, 0.125f},
    {Family::SourceFB,      209, 1, "SourceFB",    "%",   Form::Continuous, 0.5f},
    {Family::DepthFB,       210, 1, "DepthFB",     "%",   Form::Continuous, 0.5f},
    {Family::ActFltFB,      211, 1, "ActFltFB",    "",    Form::Switch,     0.0f},
    {Family::DriveFB,       212, 1, "DriveFB",     "%",   Form::Continuous, 0.5f},
    {Family::ActDrvFB,      213, 1, "ActDrvFB",    "",    Form::Switch,     0.0f},
    {Family::ActiveFB,      214, 1, "ActiveFB",    "",    Form::Switch,     0.0f},
}};
// clang-format on

/// The parameter whose neutral value differs from its family's: a new program sounds on tap 1.
constexpr int32_t kTapThatStartsOn = 176;

/// The row of a family.
constexpr const ParameterFamily& familyRow(Family family) {
    return kFamilies[size_t(family)];
}
/// The row that an index from 0 to 214 belongs to.
const ParameterFamily& familyOf(int32_t index);

/// Index of a family's parameter, `tap` from 0 to 7.
constexpr int32_t parameterIndex(Family family, int32_t tap = 0) {
    return familyRow(family).first + tap;
}

/// Name with its tap number, in static memory; empty outside 0 to 214.
const char* parameterName(int32_t index);
const char* parameterLabel(int32_t index);
/// Value in the neutral program.
float parameterDefault(int32_t index);

/// Indices that are commands, other ways to a parameter, or readings.
namespace command {
constexpr int32_t kTapPad = 216;
constexpr int32_t kStepDelayDown = 312;  ///< eight, in tap order
constexpr int32_t kStepDelayUp = 320;    ///< eight
constexpr int32_t kMeterMode = 328;
constexpr int32_t kMidiLearn = 332;
constexpr int32_t kFBPostT = 358;  ///< eight aliases
constexpr int32_t kSelectFB = 366;
constexpr int32_t kTAPtoFB = 367;  ///< eight aliases
constexpr int32_t kNoteModeLfo = 375;
constexpr int32_t kNumMod = 376;
constexpr int32_t kDenomMod = 377;
constexpr int32_t kActiveFB = 378;
constexpr int32_t kLast = 378;
}  // namespace command

namespace reading {
constexpr int32_t kNoteFreqMod = 379;
constexpr int32_t kRingFracUsed = 380;
constexpr int32_t kWholeNotesInRing = 381;
constexpr int32_t kTempoBpm = 382;
constexpr int32_t kDelayMs = 383;     ///< eight
constexpr int32_t kDelaySteps = 391;  ///< eight
constexpr int32_t kDelayFrac = 399;   ///< eight
constexpr int32_t kSideLevel = 407;   ///< eight
constexpr int32_t kRingLen = 421;
constexpr int32_t kSampleRate = 422;
constexpr int32_t kMidiStamp = 425;
}  // namespace reading

}  // namespace tessel8
