#pragma once

// The host's 215 parameters once more, written down apart from the effect's own table: saved
// projects and MIDI maps know a parameter by its index alone, so that nothing here may ever move.

#include <cstdint>
#include <iterator>
#include <string>

namespace tessel8::expected {

constexpr int32_t kCount = 215;
constexpr float Same = 0.3f;

struct Row {
    int32_t first;
    const char *name, *label;
    float initial;
    float of03;  ///< what becomes of 0.3 in the neutral program
};

// clang-format off
inline constexpr Row kRows[] = {
    {0, "POWER", "", 1, 1}, {1, "Input", "dB", 0.5f, Same}, {2, "Output", "dB", 0.5f, Same},
    {3, "Mix", "%", 0.5f, Same}, {4, "TimeMode", "", 0.5f, 0.5f},
    {5, "Tempo", "BPM", 0.28125f, Same}, {6, "Note", "", 0.5625f, Same},
    {7, "ZoomDel", "", 18, Same}, {8, "-----", "", 0, Same}, {9, "NumMod", "", 0, 0.25f},
    {10, "DenomMod", "", 0, 4 / 12.0f}, {11, "FreqMod", "Hz", 0.125f, Same},
    {12, "PhaseMod", "Deg", 0, Same}, {13, "SourceEF", "", 0, 3 / 9.0f},
    {14, "SpeedEF", "ms", 0.125f, Same}, {15, "SyncMod", "", 0, 0}, {16, "WaveMod", "", 0, Same},
    {17, "ActMod", "", 0, 1}, {18, "ModeRev", "", 0, Same}, {19, "TypeRev", "", 0, Same},
    {20, "DampRev", "%", 0.125f, Same}, {21, "AmtRev", "%", 0.5f, Same}, {22, "ActRev", "", 0, 1},
    {23, "Tap_Pad", "", 0, Same}, {24, "DelayT", "ms", 0, Same}, {32, "AmtFBT", "%", 0, Same},
    {40, "FBPostT", "", 0, 0}, {48, "GainT", "dB", 0.5f, Same}, {56, "WidthT", "%", 0.875f, Same},
    {64, "PanTap", "%", 0.5f, Same}, {72, "TypeFT", "", 0, Same}, {80, "FreqFT", "Hz", 0.5f, Same},
    {88, "ResoFT", "%", 0.125f, Same}, {96, "GainFT", "dB", 0.5f, Same},
    {104, "SourceF", "%", 0.5f, Same}, {112, "DepthFT", "%", 0.5f, Same},
    {120, "PhaseFT", "", 0, Same}, {128, "ActFltT", "", 0, 1}, {136, "PreDrvT", "", 0, 1},
    {144, "DriveT", "%", 0.5f, Same}, {152, "ActDrvT", "", 0, 1}, {160, "RevTap", "%", 0.5f, Same},
    {168, "ActRevT", "", 0, 1}, {176, "ActTap", "", 0, 1}, {184, "LinkTap", "", 0, 1},
    {192, "ModeFB", "", 0, 1}, {193, "TAPtoFB", "", 0, 1}, {201, "SelectFB", "", 1, Same},
    {202, "GainFB", "%", 0, Same}, {203, "PanFB_R", "%", 1, Same}, {204, "PanFB_L", "%", 0, Same},
    {205, "LinkPanFB", "", 0, Same}, {206, "TypeFFB", "", 0, Same},
    {207, "FreqFFB", "Hz", 0.5f, Same}, {208, "ResoFFB", "%", 0.125f, Same},
    {209, "SourceFB", "%", 0.5f, Same}, {210, "DepthFB", "%", 0.5f, Same},
    {211, "ActFltFB", "", 0, 1}, {212, "DriveFB", "%", 0.5f, Same}, {213, "ActDrvFB", "", 0, 1},
    {214, "ActiveFB", "", 0, 1},
};
// clang-format on

inline const Row& rowOf(int32_t index) {
    const Row* row = std::end(kRows) - 1;
    while (row->first > index) {
        --row;
    }
    return *row;
}

/// Two names and values leave the pattern: index 42 has a small b, and tap 1 starts on.
inline std::string nameOf(int32_t index) {
    const Row& row = rowOf(index);
    const bool tap = (row.first >= 24 && row.first < 192) || row.first == 193;
    const std::string name = index == 42 ? "FbPostT" : row.name;
    return tap ? name + std::to_string(1 + index - row.first) : name;
}
inline float initialOf(int32_t index) {
    return index == 176 ? 1.0f : rowOf(index).initial;
}

}  // namespace tessel8::expected
