#include "presets/factory/FactoryProgram.h"
#include "presets/factory/Units.h"

namespace tessel8::factory {

namespace {

using enum Family;

constexpr FactoryProgram kRows[] = {
    // TODO idea
    {"4th Note Ekoz QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Around Your Head QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Slow Whisper QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Steamy Voices QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Stereo Tap Dly QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Tap Tempo Reverb QC", {{TimeMode, kSync}}},
    // TODO idea
    {"TapDly + Reverse QC", {{TimeMode, kSync}}},
    // TODO idea
    {"TikiTiki QC", {{TimeMode, kSync}}},
    // TODO idea
    {"8th Echo QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Triplet Tap QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Delay + Stereo Spread QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Early Echoes QC", {{TimeMode, kSync}}},
    // TODO idea
    {"LLLL-RRRR QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Rich Solo QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Bell Phasor QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Liquid Wave QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Tiny Chorus QC", {{TimeMode, kSync}}},
    // TODO idea
    {"ResoFlanger QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Blum Blum QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Boomerang QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Canned Fish QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Drowning Diver QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Leaky Pipe QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Plasma QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Wet Tail QC", {{TimeMode, kSync}}},
    // TODO idea
    {"Jew's Harp QC", {{TimeMode, kSync}}},
};
static_assert(std::size(kRows) == 26);

}  // namespace

const std::span<const FactoryProgram> kEchoes{kRows};

}  // namespace tessel8::factory
