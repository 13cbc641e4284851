#pragma once

// The host's 215 parameters once more, written down apart from the effect's own table: saved
// projects and MIDI maps know a parameter by its index alone, so that nothing here may ever move.

#include <cstdint>
#include <string>

namespace tessel8::expected {

struct Row {
    int32_t first, count;
    const char *name, *label;
    float initial;
    float of03;  ///< what becomes of 0.3 in the neutral program
};

constexpr float Same = 0.3f, On = 1.0f;

// clang-format off
inline constexpr Row kRows[] = {
    {0, 1, "POWER", "", 1.0f, On}, {1, 1, "Input", "dB", 0.5f, Same},
    {2, 1, "Output", "dB", 0.5f, Same}, {3, 1, "Mix", "%", 0.5f, Same},
    {4, 1, "TimeMode", "", 0.5f, 0.5f}, {5, 1, "Tempo", "BPM", 0.28125f, Same},
    {6, 1, "Note", "", 0.5625f, Same}, {7, 1, "ZoomDel", "", 18.0f, Same},
    {8, 1, "-----", "", 0.0f, Same}, {9, 1, "NumMod", "", 0.0f, 0.25f},
    {10, 1, "DenomMod", "", 0.0f, 4 / 12.0f}, {11, 1, "FreqMod", "Hz", 0.125f, Same},
    {12, 1, "PhaseMod", "Deg", 0.0f, Same}, {13, 1, "SourceEF", "", 0.0f, 3 / 9.0f},
    {14, 1, "SpeedEF", "ms", 0.125f, Same}, {15, 1, "SyncMod", "", 0.0f, 0.0f},
    {16, 1, "WaveMod", "", 0.0f, Same}, {17, 1, "ActMod", "", 0.0f, On},
    {18, 1, "ModeRev", "", 0.0f, Same}, {19, 1, "TypeRev", "", 0.0f, Same},
    {20, 1, "DampRev", "%", 0.125f, Same}, {21, 1, "AmtRev", "%", 0.5f, Same},
    {22, 1, "ActRev", "", 0.0f, On}, {23, 1, "Tap_Pad", "", 0.0f, Same},
    {24, 8, "DelayT", "ms", 0.0f, Same}, {32, 8, "AmtFBT", "%", 0.0f, Same},
    {40, 8, "FBPostT", "", 0.0f, 0.0f}, {48, 8, "GainT", "dB", 0.5f, Same},
    {56, 8, "WidthT", "%", 0.875f, Same}, {64, 8, "PanTap", "%", 0.5f, Same},
    {72, 8, "TypeFT", "", 0.0f, Same}, {80, 8, "FreqFT", "Hz", 0.5f, Same},
    {88, 8, "ResoFT", "%", 0.125f, Same}, {96, 8, "GainFT", "dB", 0.5f, Same},
    {104, 8, "SourceF", "%", 0.5f, Same}, {112, 8, "DepthFT", "%", 0.5f, Same},
    {120, 8, "PhaseFT", "", 0.0f, Same}, {128, 8, "ActFltT", "", 0.0f, On},
    {136, 8, "PreDrvT", "", 0.0f, On}, {144, 8, "DriveT", "%", 0.5f, Same},
    {152, 8, "ActDrvT", "", 0.0f, On}, {160, 8, "RevTap", "%", 0.5f, Same},
    {168, 8, "ActRevT", "", 0.0f, On}, {176, 8, "ActTap", "", 0.0f, On},
    {184, 8, "LinkTap", "", 0.0f, On}, {192, 1, "ModeFB", "", 0.0f, 1.0f},
    {193, 8, "TAPtoFB", "", 0.0f, On}, {201, 1, "SelectFB", "", 1.0f, Same},
    {202, 1, "GainFB", "%", 0.0f, Same}, {203, 1, "PanFB_R", "%", 1.0f, Same},
    {204, 1, "PanFB_L", "%", 0.0f, Same}, {205, 1, "LinkPanFB", "", 0.0f, Same},
    {206, 1, "TypeFFB", "", 0.0f, Same}, {207, 1, "FreqFFB", "Hz", 0.5f, Same},
    {208, 1, "ResoFFB", "%", 0.125f, Same}, {209, 1, "SourceFB", "%", 0.5f, Same},
    {210, 1, "DepthFB", "%", 0.5f, Same}, {211, 1, "ActFltFB", "", 0.0f, On},
    {212, 1, "DriveFB", "%", 0.5f, Same}, {213, 1, "ActDrvFB", "", 0.0f, On},
    {214, 1, "ActiveFB", "", 0.0f, On},
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
