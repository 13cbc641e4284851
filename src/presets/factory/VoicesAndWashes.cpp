#include "presets/factory/FactoryProgram.h"
#include "presets/factory/Units.h"

namespace tessel8::factory {

namespace {

using enum Family;

constexpr FactoryProgram kRows[] = {
    // TODO idea
    {"3-Way Call QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Alien X Tom QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Anybody in There QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Bouncing of the Walls QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Follow Me QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Skydiver QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Head Hunters QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Night Cricket QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Noink! Noink! QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Pop goes the Weasel QF", {{TimeMode, kSync}}},
    // TODO idea
    {"ReBound QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Repeat After Me QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Ring My Bell QF", {{TimeMode, kSync}}},
    // TODO idea
    {"Voice Doubler QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Voice Doubler2 QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Filtroid1 QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Filtroid2 QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Smooth Reverb1 QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Smooth Reverb2 QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Simple Delay QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Simple Filtered Del QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Simple Ping Pong QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Smooth Filtered Del QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"Smooth Filtered Del2QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"The Edge Panner QDE", {{TimeMode, kSync}}},
    // TODO idea
    {"The Edge Panner 2 QDE", {{TimeMode, kSync}}},
};
static_assert(std::size(kRows) == 26);

}  // namespace

const std::span<const FactoryProgram> kVoicesAndWashes{kRows};

}  // namespace tessel8::factory
