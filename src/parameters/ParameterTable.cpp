#include "parameters/ParameterTable.h"

#include <array>
#include <cstddef>

#include "engine/Blocks.h"

namespace tessel8 {

namespace {

using enum Form;

// clang-format off
constexpr std::array<ParameterFamily, size_t(Family::Count)> kFamilies{{
    // family              first count name        label  form        initial
    {Family::Power,           0, 1, "POWER",       "",    Switch,     1.0f},
    {Family::Input,           1, 1, "Input",       "dB",  Continuous, 0.5f},
    {Family::Output,          2, 1, "Output",      "dB",  Continuous, 0.5f},
    {Family::Mix,             3, 1, "Mix",         "%",   Continuous, 0.5f},
    {Family::TimeMode,        4, 1, "TimeMode",    "",    Steps,      0.5f},
    {Family::Tempo,           5, 1, "Tempo",       "BPM", Continuous, 0.28125f},
    {Family::Note,            6, 1, "Note",        "",    Steps,      0.5625f},
    {Family::ZoomDel,         7, 1, "ZoomDel",     "",    Raw,        18.0f},
    {Family::NoteModeLfo,     8, 1, "-----",       "",    Flag,       0.0f},
    {Family::NumMod,          9, 1, "NumMod",      "",    Steps,      0.0f},
    {Family::DenomMod,       10, 1, "DenomMod",    "",    Steps,      0.0f},
    {Family::FreqMod,        11, 1, "FreqMod",     "Hz",  Continuous, 0.125f},
    {Family::PhaseMod,       12, 1, "PhaseMod",    "Deg", Continuous, 0.0f},
    {Family::SourceEF,       13, 1, "SourceEF",    "",    Steps,      0.0f},
    {Family::SpeedEF,        14, 1, "SpeedEF",     "ms",  Continuous, 0.125f},
    {Family::SyncMod,        15, 1, "SyncMod",     "",    Flag,       0.0f},
    {Family::WaveMod,        16, 1, "WaveMod",     "",    Steps,      0.0f},
    {Family::ActMod,         17, 1, "ActMod",      "",    Switch,     0.0f},
    {Family::ModeRev,        18, 1, "ModeRev",     "",    Flag,       0.0f},
    {Family::TypeRev,        19, 1, "TypeRev",     "",    Flag,       0.0f},
    {Family::DampRev,        20, 1, "DampRev",     "%",   Continuous, 0.125f},
    {Family::AmtRev,         21, 1, "AmtRev",      "%",   Continuous, 0.5f},
    {Family::ActRev,         22, 1, "ActRev",      "",    Switch,     0.0f},
    {Family::TapPad,         23, 1, "Tap_Pad",     "",    Flag,       0.0f},
    {Family::DelayT,         24, 8, "DelayT",      "ms",  Continuous, 0.0f},
    {Family::AmtFBT,         32, 8, "AmtFBT",      "%",   Continuous, 0.0f},
    {Family::FBPostT,        40, 8, "FBPostT",     "",    Switch,     0.0f},
    {Family::GainT,          48, 8, "GainT",       "dB",  Continuous, 0.5f},
    {Family::WidthT,         56, 8, "WidthT",      "%",   Continuous, 0.875f},
    {Family::PanTap,         64, 8, "PanTap",      "%",   Continuous, 0.5f},
    {Family::TypeFT,         72, 8, "TypeFT",      "",    Steps,      0.0f},
    {Family::FreqFT,         80, 8, "FreqFT",      "Hz",  Continuous, 0.5f},
    {Family::ResoFT,         88, 8, "ResoFT",      "%",   Continuous, 0.125f},
    {Family::GainFT,         96, 8, "GainFT",      "dB",  Continuous, 0.5f},
    {Family::SourceF,       104, 8, "SourceF",     "%",   Continuous, 0.5f},
    {Family::DepthFT,       112, 8, "DepthFT",     "%",   Continuous, 0.5f},
    {Family::PhaseFT,       120, 8, "PhaseFT",     "",    Flag,       0.0f},
    {Family::ActFltT,       128, 8, "ActFltT",     "",    Switch,     0.0f},
    {Family::PreDrvT,       136, 8, "PreDrvT",     "",    Switch,     0.0f},
    {Family::DriveT,        144, 8, "DriveT",      "%",   Continuous, 0.5f},
    {Family::ActDrvT,       152, 8, "ActDrvT",     "",    Switch,     0.0f},
    {Family::RevTap,        160, 8, "RevTap",      "%",   Continuous, 0.5f},
    {Family::ActRevT,       168, 8, "ActRevT",     "",    Switch,     0.0f},
    {Family::ActTap,        176, 8, "ActTap",      "",    Switch,     0.0f},  // tap 1: on
    {Family::LinkTap,       184, 8, "LinkTap",     "",    Switch,     0.0f},
    {Family::ModeFB,        192, 1, "ModeFB",      "",    Raw,        0.0f},
    {Family::TAPtoFB,       193, 8, "TAPtoFB",     "",    Switch,     0.0f},
    {Family::SelectFB,      201, 1, "SelectFB",    "",    Continuous, 1.0f},
    {Family::GainFB,        202, 1, "GainFB",      "%",   Continuous, 0.0f},
    {Family::PanFBR,        203, 1, "PanFB_R",     "%",   Continuous, 1.0f},
    {Family::PanFBL,        204, 1, "PanFB_L",     "%",   Continuous, 0.0f},
    {Family::LinkPanFB,     205, 1, "LinkPanFB",   "",    Flag,       0.0f},
    {Family::TypeFFB,       206, 1, "TypeFFB",     "",    Steps,      0.0f},
    {Family::FreqFFB,       207, 1, "FreqFFB",     "Hz",  Continuous, 0.5f},
    {Family::ResoFFB,       208, 1, "ResoFFB",     "%",   Continuous, 0.125f},
    {Family::SourceFB,      209, 1, "SourceFB",    "%",   Continuous, 0.5f},
    {Family::DepthFB,       210, 1, "DepthFB",     "%",   Continuous, 0.5f},
    {Family::ActFltFB,      211, 1, "ActFltFB",    "",    Switch,     0.0f},
    {Family::DriveFB,       212, 1, "DriveFB",     "%",   Continuous, 0.5f},
    {Family::ActDrvFB,      213, 1, "ActDrvFB",    "",    Switch,     0.0f},
    {Family::ActiveFB,      214, 1, "ActiveFB",    "",    Switch,     0.0f},
}};
// clang-format on

/// Two rows of the table are not quite regular, and projects rely on both.
constexpr int32_t kTapThatStartsOn = 176;
constexpr int32_t kNameWithSmallB = 42;

constexpr bool rowsAreInOrder() {
    int32_t next = 0;
    for (size_t row = 0; row < kFamilies.size(); ++row) {
        if (size_t(kFamilies[row].family) != row || kFamilies[row].first != next) {
            return false;
        }
        next += kFamilies[row].count;
    }
    return next == kParameterCount;
}
static_assert(rowsAreInOrder());

constexpr auto kRowOfIndex = [] {
    std::array<uint8_t, kParameterCount> rows{};
    for (size_t row = 0; row < kFamilies.size(); ++row) {
        for (int32_t i = 0; i < kFamilies[row].count; ++i) {
            const int32_t index = kFamilies[row].first + i;
            rows[size_t(index)] = uint8_t(row);
        }
    }
    return rows;
}();

using NameText = std::array<char, 12>;
constexpr auto kNames = [] {
    std::array<NameText, kParameterCount> names{};
    for (size_t index = 0; index < names.size(); ++index) {
        const ParameterFamily& row = kFamilies[kRowOfIndex[index]];
        size_t length = 0;
        for (; row.name[length]; ++length) {
            names[index][length] = row.name[length];
        }
        if (row.count == kTaps) {
            names[index][length] = char('1' + int32_t(index) - row.first);
        }
    }
    names[kNameWithSmallB][1] = 'b';
    return names;
}();

bool isParameter(int32_t index) {
    return index >= 0 && index < kParameterCount;
}

}  // namespace

const ParameterFamily& familyRow(Family family) {
    return kFamilies[size_t(family)];
}

const ParameterFamily& familyOf(int32_t index) {
    return kFamilies[kRowOfIndex[size_t(index)]];
}

int32_t parameterIndex(Family family, int32_t tap) {
    return kFamilies[size_t(family)].first + tap;
}

const char* parameterName(int32_t index) {
    return isParameter(index) ? kNames[size_t(index)].data() : "";
}

const char* parameterLabel(int32_t index) {
    return isParameter(index) ? familyOf(index).label : "";
}

float parameterDefault(int32_t index) {
    return index == kTapThatStartsOn ? 1.0f : familyOf(index).initial;
}

}  // namespace tessel8
