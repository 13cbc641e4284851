#pragma once

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

/// The row of a family.
const ParameterFamily& familyRow(Family family);
/// The row that an index from 0 to 214 belongs to.
const ParameterFamily& familyOf(int32_t index);

/// Index of a family's parameter, `tap` from 0 to 7.
int32_t parameterIndex(Family family, int32_t tap = 0);

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
