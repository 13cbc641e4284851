#include "presets/factory/FactoryProgram.h"
#include "presets/factory/Units.h"

namespace tessel8::factory {

namespace {

using enum Family;

constexpr FactoryProgram kRows[] = {
    // TODO idea
    {"Dot Ice QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Break Filter Delay QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Cave Tapper QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Colored Groove QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Shattering Room QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Cold & Hectic QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Nice Groove QB", {{TimeMode, kSync}}},
    // TODO idea
    {"PhaseChorus QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Quarter Filter QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Right Lefter QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Filter Up QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Driven Heigths QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Far Away QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Could Be Orlane QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Rolling Echo QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Long + Nervous QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Modulating Groove QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Tapper QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Tonal Room QB", {{TimeMode, kSync}}},
    // TODO idea
    {"Breathing Delay QB", {{TimeMode, kSync}}},
};
static_assert(std::size(kRows) == 20);

}  // namespace

const std::span<const FactoryProgram> kGrooves{kRows};

}  // namespace tessel8::factory
