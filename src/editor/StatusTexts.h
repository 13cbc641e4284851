#pragma once

#include <cstdint>

#include "editor/EffectLink.h"

namespace tessel8 {

/// The two lines of the panel's display. Both end with a zero; what does not fit is cut.
struct StatusText {
    static constexpr int32_t kSmallCells = 35;

    bool shown = false;  ///< false: there is no text, and the display stays as it is
    bool raw = false;    ///< the big line is laid out cell, mark, cell; else as plain text
    char bigLine[32] = {};
    char smallLine[40] = {};  ///< padded to `kSmallCells` characters
};

/// What the display tells of the control with that tag: value and name. There is no text for a
/// negative tag, for what has no value (8, 215, 217, the column heads) and from the logo on, whose
/// texts scroll. `zoomIndex` is the editor's copy of `ZoomDel`, `editParameter` a row of
/// `kEditParameters`; a step outside its table leaves the big line blank.
StatusText statusText(EffectLink& effect, int32_t tag, int32_t zoomIndex, int32_t editParameter);

/// What the display tells in place of it while MIDI learn is on: the controller on the control.
StatusText midiAssignmentText(EffectLink& effect, int32_t tag);

}  // namespace tessel8
