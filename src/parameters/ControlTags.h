#pragma once

#include <cstdint>

namespace tessel8 {

// A control's tag is its identity on the panel: 0 to 214 are the parameters themselves, above them
// stand keys, bars and displays. What a tag stands for is known here alone; dispatch, status
// lines and MIDI learn ask here.

constexpr int32_t kTagTapPad = 216;
constexpr int32_t kTagNone = -1;  ///< no control under the mouse

/// The parameter that a control drives: bars and step keys have those of their tap, the note keys
/// of the LFO its frequency. A tag that stands for no parameter stays as it is.
int32_t parameterOfTag(int32_t tag);

/// Whether a MIDI controller can be put on the control; column heads (338 to 356) pass, though
/// nothing can be assigned to them.
bool canBeLearnt(int32_t tag);

}  // namespace tessel8
