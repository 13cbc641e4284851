#pragma once

#include <bitset>
#include <cstdint>

#include "editor/EffectLink.h"
#include "engine/Blocks.h"

namespace tessel8 {

// A change made by hand on a linked tap moves the other linked taps; there is one group of them.
// The links live in the panel alone: a host, a program or a MIDI controller moves one parameter.
// `buttons` is the mouse word of the moment. Values are held within 0 and 1 on their way.

/// How a control carries its change to others.
enum class LinkRule : uint8_t { None, Continuous, Switch, Delay, FeedbackPan };

/// The rule of a parameter's main control; bars and links themselves carry nothing.
LinkRule linkRuleOf(int32_t parameter);

/// Taps whose delays were set, for the sliders that show them.
using TapSet = std::bitset<kTaps>;

/// Followers move by the same amount, each from where it stands; with left and Shift they take the
/// touched tap's value from before this change. Alt lets the group rest. `PhaseFT` differs: it is
/// cut off by left and Alt alone.
void changeContinuous(EffectLink& effect, int32_t parameter, float value, uint32_t buttons);

/// Followers take the value itself; exactly left and Alt lets the group rest.
void changeSwitch(EffectLink& effect, int32_t parameter, float value, uint32_t buttons);

/// A delay slider dragged to `sliderValue`, `sliderStep` being the part of the delay memory that a
/// full slider stands for. In Time mode followers scale and keep their rhythm, and one at 0 joins
/// the touched tap; on the note grid, or with left and Shift, they shift. Alt lets the group rest.
/// All moved taps fade in anew.
TapSet dragDelay(EffectLink& effect, int32_t tap, float sliderValue, float sliderStep,
                 uint32_t buttons);

/// A delay step key (its tag, 312 to 327) taken `steps` times at once. Followers as with a drag,
/// but the host is not told, and exactly left and Alt lets the group rest.
TapSet stepDelay(EffectLink& effect, int32_t tag, int32_t steps, uint32_t buttons);

/// `PanFB_L` or `PanFB_R`; while the two are linked the other moves by the same amount.
void changeFeedbackPan(EffectLink& effect, int32_t parameter, float value);

}  // namespace tessel8
