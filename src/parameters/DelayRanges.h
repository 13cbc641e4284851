#pragma once

#include <array>
#include <cstdint>

namespace tessel8 {

/// What a delay slider at its top stands for, by the step of `ZoomDel`: a fraction of the delay
/// memory in Time mode (steps 0 to 5) and at step 18, beats and bars between.
struct DelayRange {
    const char* text;       ///< what the host is shown
    const char* panelText;  ///< what the panel's big line shows
    float fraction;         ///< of the delay memory; for steps 6 to 17 in bars
    bool inBars;
};

inline constexpr std::array<DelayRange, 19> kDelayRanges{{
    {"100 ms", "TIME:  100 ms", 0.0125f, false}, {"500 ms", "TIME:  500 ms", 0.0625f, false},
    {"1000 ms", "TIME: 1000 ms", 0.125f, false}, {"2000 ms", "TIME: 2000 ms", 0.25f, false},
    {"4000 ms", "TIME: 4000 ms", 0.5f, false},   {"8000 ms", "TIME: 8000 ms", 1.0f, false},
    {"1 beat", "NOTE:  1 Beat", 0.25f, true},    {"1 bar", "NOTE:   1 Bar", 1.0f, true},
    {"2 bars", "NOTE:  2 Bars", 2.0f, true},     {"3 bars", "NOTE:  3 Bars", 3.0f, true},
    {"4 bars", "NOTE:  4 Bars", 4.0f, true},     {"5 bars", "NOTE:  5 Bars", 5.0f, true},
    {"6 bars", "NOTE:  6 Bars", 6.0f, true},     {"7 bars", "NOTE:  7 Bars", 7.0f, true},
    {"8 bars", "NOTE:  8 Bars", 8.0f, true},     {"9 bars", "NOTE:  9 Bars", 9.0f, true},
    {"10 bars", "NOTE: 10 Bars", 10.0f, true},   {"11 bars", "NOTE: 11 Bars", 11.0f, true},
    {"8000 ms", "TIME: 8000 ms", 1.0f, false},
}};

constexpr int32_t kFirstNoteRange = 6;   ///< "1 beat"
constexpr int32_t kWholeTimeRange = 5;   ///< all of the memory in Time mode
constexpr int32_t kWholeNoteRange = 18;  ///< all of the memory on the grid

}  // namespace tessel8
