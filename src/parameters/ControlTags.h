#pragma once

#include <cstdint>

namespace tessel8 {

// A control's tag is its identity on the panel: 0 to 214 are the parameters themselves, above them
// stand keys, bars and displays. What a tag stands for is known here alone; dispatch, status
// lines and MIDI learn ask here.

constexpr int32_t kTagTapPad = 216;
constexpr int32_t kTagFirstBar = 218, kTagLastBar = 305;
constexpr int32_t kTagRangeDown = 306, kTagRangeUp = 307;
constexpr int32_t kTagNoteDown = 308, kTagNoteUp = 309;
constexpr int32_t kTagTempoUp = 310, kTagTempoDown = 311;
constexpr int32_t kTagMeterMode = 328;
constexpr int32_t kTagEditParameterBack = 329;
constexpr int32_t kTagEditParameterForward = 330;
constexpr int32_t kTagEditParameterStrip = 331;
constexpr int32_t kTagMidiLearn = 332;
constexpr int32_t kTagMidiReset = 333;
constexpr int32_t kTagMidiLoad = 334;
constexpr int32_t kTagMidiSave = 335;
constexpr int32_t kTagGraphMode = 336;
constexpr int32_t kTagPanic = 337;
constexpr int32_t kTagFirstColumnHead = 338, kTagLastColumnHead = 356;
constexpr int32_t kTagLogo = 357;
constexpr int32_t kTagBigText = 419, kTagSmallText = 420;
constexpr int32_t kTagUpperMeter = 423, kTagLowerMeter = 424;
constexpr int32_t kTagMidiLamp = 425;
constexpr int32_t kTagNone = -1;  ///< no control under the mouse

/// The parameter that a control drives: bars and step keys have those of their tap, the note keys
/// of the LFO its frequency. A tag that stands for no parameter stays as it is.
int32_t parameterOfTag(int32_t tag);

/// The parameter that the status lines tell of: as above, but the note keys of the LFO have lines
/// of their own and the range keys have those of the range.
int32_t shownParameterOfTag(int32_t tag);

/// Whether a MIDI controller can be put on the control; column heads (338 to 356) pass, though
/// nothing can be assigned to them.
bool canBeLearnt(int32_t tag);

}  // namespace tessel8
