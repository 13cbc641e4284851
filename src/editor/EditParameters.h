#pragma once

#include <array>
#include <cstdint>

#include "parameters/ParameterTable.h"

namespace tessel8 {

/// A family that the row of bars and the graph's level axis can show.
struct EditParameter {
    Family family;
    const char* text;     ///< what the panel's big line calls it
    int32_t graphFrame;   ///< level scale behind the graph, 1 to 3
    bool graphFromFloor;  ///< stems start at the foot of the graph, not in its middle
};

/// In the order in which the keys walk through them.
inline constexpr std::array<EditParameter, 11> kEditParameters{{
    {Family::GainT, "    TAP GAIN", 2, false},
    {Family::WidthT, "   TAP WIDTH", 3, false},
    {Family::PanTap, "     TAP BAL", 2, false},
    {Family::FreqFT, "    FLT FREQ", 1, true},
    {Family::ResoFT, "    FLT RESO", 1, true},
    {Family::GainFT, "    FLT GAIN", 2, false},
    {Family::SourceF, "  MOD SOURCE", 2, false},
    {Family::DepthFT, "   MOD DEPTH", 2, false},
    {Family::DriveT, "   TAP DRIVE", 1, true},
    {Family::RevTap, "  TAP REVERB", 1, true},
    {Family::AmtFBT, "  TAP FB AMT", 1, true},
}};

}  // namespace tessel8
