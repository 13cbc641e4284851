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
    float initial;
    float of03;  ///< what becomes of 0.3 in the neutral program
};

// clang-format off
inline constexpr Row kRows[] = {
    {0, 1, 1}, {1, 0.5f, Same}, {2, 0.5f, Same}, {3, 0.5f, Same}, {4, 0.5f, 0.5f},
    {5, 0.28125f, Same}, {6, 0.5625f, Same}, {7, 18, Same}, {8, 0, Same}, {9, 0, 0.25f},
    {10, 0, 4 / 12.0f}, {11, 0.125f, Same}, {12, 0, Same}, {13, 0, 3 / 9.0f}, {14, 0.125f, Same},
    {15, 0, 0}, {16, 0, Same}, {17, 0, 1}, {18, 0, Same}, {19, 0, Same}, {20, 0.125f, Same},
    {21, 0.5f, Same}, {22, 0, 1}, {23, 0, Same}, {24, 0, Same}, {32, 0, Same}, {40, 0, 0},
    {48, 0.5f, Same}, {56, 0.875f, Same}, {64, 0.5f, Same}, {72, 0, Same}, {80, 0.5f, Same},
    {88, 0.125f, Same}, {96, 0.5f, Same}, {104, 0.5f, Same}, {112, 0.5f, Same}, {120, 0, Same},
    {128, 0, 1}, {136, 0, 1}, {144, 0.5f, Same}, {152, 0, 1}, {160, 0.5f, Same}, {168, 0, 1},
    {176, 0, 1}, {184, 0, 1}, {192, 0, 1}, {193, 0, 1}, {201, 1, Same}, {202, 0, Same},
    {203, 1, Same}, {204, 0, Same}, {205, 0, Same}, {206, 0, Same}, {207, 0.5f, Same},
    {208, 0.125f, Same}, {209, 0.5f, Same}, {210, 0.5f, Same}, {211, 0, 1}, {212, 0.5f, Same},
    {213, 0, 1}, {214, 0, 1},
};
// clang-format on

inline const Row& rowOf(int32_t index) {
    const Row* row = std::end(kRows) - 1;
    while (row->first > index) {
        --row;
    }
    return *row;
}
inline std::string nameOf(int32_t index) {
    return "index " + std::to_string(index);
}
/// Tap 1 starts on.
inline float initialOf(int32_t index) {
    return index == 176 ? 1.0f : rowOf(index).initial;
}

}  // namespace tessel8::expected
