#pragma once

// The host's 215 parameters once more, written down apart from the effect's own table: saved
// projects and MIDI maps know a parameter by its index alone, so that nothing here may ever move.

#include <cstdint>
#include <string>

namespace tessel8::expected {

/// How a value comes to be kept.
enum class Kept { AsItCame, AsSwitch, AsItsOwnLaw };

struct Row {
    int32_t first;
    int32_t count;
    const char* name;
    const char* label;
    Kept kept;
    float initial;
};

using enum Kept;

// clang-format off
inline constexpr Row kRows[] = {
    {0, 1, "POWER", "", AsSwitch, 1.0f},          {1, 1, "Input", "dB", AsItCame, 0.5f},
    {2, 1, "Output", "dB", AsItCame, 0.5f},       {3, 1, "Mix", "%", AsItCame, 0.5f},
    {4, 1, "TimeMode", "", AsItsOwnLaw, 0.5f},    {5, 1, "Tempo", "BPM", AsItCame, 0.28125f},
    {6, 1, "Note", "", AsItCame, 0.5625f},        {7, 1, "ZoomDel", "", AsItCame, 18.0f},
    {8, 1, "-----", "", AsItCame, 0.0f},          {9, 1, "NumMod", "", AsItsOwnLaw, 0.0f},
    {10, 1, "DenomMod", "", AsItsOwnLaw, 0.0f},   {11, 1, "FreqMod", "Hz", AsItCame, 0.125f},
    {12, 1, "PhaseMod", "Deg", AsItCame, 0.0f},   {13, 1, "SourceEF", "", AsItsOwnLaw, 0.0f},
    {14, 1, "SpeedEF", "ms", AsItCame, 0.125f},   {15, 1, "SyncMod", "", AsItsOwnLaw, 0.0f},
    {16, 1, "WaveMod", "", AsItCame, 0.0f},       {17, 1, "ActMod", "", AsSwitch, 0.0f},
    {18, 1, "ModeRev", "", AsItCame, 0.0f},       {19, 1, "TypeRev", "", AsItCame, 0.0f},
    {20, 1, "DampRev", "%", AsItCame, 0.125f},    {21, 1, "AmtRev", "%", AsItCame, 0.5f},
    {22, 1, "ActRev", "", AsSwitch, 0.0f},        {23, 1, "Tap_Pad", "", AsItCame, 0.0f},
    {24, 8, "DelayT", "ms", AsItCame, 0.0f},      {32, 8, "AmtFBT", "%", AsItCame, 0.0f},
    {40, 8, "FBPostT", "", AsItsOwnLaw, 0.0f},    {48, 8, "GainT", "dB", AsItCame, 0.5f},
    {56, 8, "WidthT", "%", AsItCame, 0.875f},     {64, 8, "PanTap", "%", AsItCame, 0.5f},
    {72, 8, "TypeFT", "", AsItCame, 0.0f},        {80, 8, "FreqFT", "Hz", AsItCame, 0.5f},
    {88, 8, "ResoFT", "%", AsItCame, 0.125f},     {96, 8, "GainFT", "dB", AsItCame, 0.5f},
    {104, 8, "SourceF", "%", AsItCame, 0.5f},     {112, 8, "DepthFT", "%", AsItCame, 0.5f},
    {120, 8, "PhaseFT", "", AsItCame, 0.0f},      {128, 8, "ActFltT", "", AsSwitch, 0.0f},
    {136, 8, "PreDrvT", "", AsSwitch, 0.0f},      {144, 8, "DriveT", "%", AsItCame, 0.5f},
    {152, 8, "ActDrvT", "", AsSwitch, 0.0f},      {160, 8, "RevTap", "%", AsItCame, 0.5f},
    {168, 8, "ActRevT", "", AsSwitch, 0.0f},      {176, 8, "ActTap", "", AsSwitch, 0.0f},
    {184, 8, "LinkTap", "", AsSwitch, 0.0f},      {192, 1, "ModeFB", "", AsItsOwnLaw, 0.0f},
    {193, 8, "TAPtoFB", "", AsSwitch, 0.0f},      {201, 1, "SelectFB", "", AsItCame, 1.0f},
    {202, 1, "GainFB", "%", AsItCame, 0.0f},      {203, 1, "PanFB_R", "%", AsItCame, 1.0f},
    {204, 1, "PanFB_L", "%", AsItCame, 0.0f},     {205, 1, "LinkPanFB", "", AsItCame, 0.0f},
    {206, 1, "TypeFFB", "", AsItCame, 0.0f},      {207, 1, "FreqFFB", "Hz", AsItCame, 0.5f},
    {208, 1, "ResoFFB", "%", AsItCame, 0.125f},   {209, 1, "SourceFB", "%", AsItCame, 0.5f},
    {210, 1, "DepthFB", "%", AsItCame, 0.5f},     {211, 1, "ActFltFB", "", AsSwitch, 0.0f},
    {212, 1, "DriveFB", "%", AsItCame, 0.5f},     {213, 1, "ActDrvFB", "", AsSwitch, 0.0f},
    {214, 1, "ActiveFB", "", AsSwitch, 0.0f},
};
// clang-format on

constexpr int32_t kCount = 215;

inline const Row& rowOf(int32_t index) {
    const Row* found = kRows;
    for (const Row& row : kRows) {
        found = index >= row.first ? &row : found;
    }
    return *found;
}

/// Two names and values leave the pattern: index 42 has a small b, and tap 1 starts on.
inline std::string nameOf(int32_t index) {
    const Row& row = rowOf(index);
    return index == 42      ? "FbPostT3"
           : row.count == 1 ? row.name
                            : row.name + std::to_string(1 + index - row.first);
}
inline float initialOf(int32_t index) {
    return index == 176 ? 1.0f : rowOf(index).initial;
}

}  // namespace tessel8::expected
