#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessel8 {

/// A quantise type of the delay grid. `Note` reaches row k (from 1) at k / 16.
struct NoteRow {
    double threshold;       ///< the first row whose threshold is not below the value is taken
    int32_t divisor;        ///< steps per whole note
    const char* hostText;   ///< what the host is shown
    const char* panelText;  ///< what the panel's lines show
};

// The thresholds are the steps rounded up, so that k / 16 itself lands in row k. A triplet row
// has 1.5 times the divisor of the straight row above it, except the second: 1.5 is no whole
// number and stays 1.
inline constexpr std::array<NoteRow, 16> kNotes{{
    {0.063, 1, "1", "   1"},
    {0.126, 1, "1T", "  T.1"},
    {0.188, 2, "2", "   2"},
    {0.251, 3, "2T", "  T.2"},
    {0.313, 4, "4", "   4"},
    {0.376, 6, "4T", "  T.4"},
    {0.438, 8, "8", "   8"},
    {0.501, 12, "8T", "  T.8"},
    {0.563, 16, "16", "  16"},
    {0.626, 24, "16T", " T.16"},
    {0.688, 32, "32", "  32"},
    {0.751, 48, "32T", " T.32"},
    {0.813, 64, "64", "  64"},
    {0.876, 96, "64T", " T.64"},
    {0.938, 128, "128", " 128"},
    {0.0, 192, "128T", "T.128"},  // all above
}};

/// The row that the engine takes and the host is shown.
inline const NoteRow& noteRow(float value) {
    for (size_t row = 0; row + 1 < kNotes.size(); ++row) {
        if (double(value) <= kNotes[row].threshold) {
            return kNotes[row];
        }
    }
    return kNotes.back();
}

/// The row that the panel shows: its thresholds are the steps k / 16 themselves, so that a value a
/// hair above a step already shows the next row.
inline const NoteRow& panelNoteRow(float value) {
    size_t row = 0;
    while (row + 1 < kNotes.size() && !(value <= float(row + 1) / float(kNotes.size()))) {
        ++row;
    }
    return kNotes[row];
}

}  // namespace tessel8
