#include "presets/factory/FactoryProgram.h"
#include "presets/factory/Units.h"

namespace tessel8::factory {

namespace {

using enum Family;

constexpr FactoryProgram kRows[] = {
    // TODO idea
    {"Abyss", {{TimeMode, kSync}}},
    // TODO idea
    {"Answer", {{TimeMode, kSync}}},
    // TODO idea
    {"Appears and disappears", {{TimeMode, kSync}}},
    // TODO idea
    {"Atlatis", {{TimeMode, kSync}}},
    // TODO idea
    {"Backward", {{TimeMode, kSync}}},
    // TODO idea
    {"Beater", {{TimeMode, kSync}}},
    // TODO idea
    {"Caverna Magica", {{TimeMode, kSync}}},
    // TODO idea
    {"Chinese pingpong", {{TimeMode, kSync}}},
    // TODO idea
    {"Connected", {{TimeMode, kSync}}},
    // TODO idea
    {"Curious pingpong", {{TimeMode, kSync}}},
    // TODO idea
    {"Dirty shot", {{TimeMode, kSync}}},
    // TODO idea
    {"Ferromagnesium", {{TimeMode, kSync}}},
    // TODO idea
    {"In my mind", {{TimeMode, kSync}}},
    // TODO idea
    {"Kangaroo", {{TimeMode, kSync}}},
    // TODO idea
    {"Lasery", {{TimeMode, kSync}}},
    // TODO idea
    {"Maddub", {{TimeMode, kSync}}},
    // TODO idea
    {"Malaga", {{TimeMode, kSync}}},
    // TODO idea
    {"Malaga2", {{TimeMode, kSync}}},
    // TODO idea
    {"Malaga3", {{TimeMode, kSync}}},
    // TODO idea
    {"Martian", {{TimeMode, kSync}}},
    // TODO idea
    {"Megabasser", {{TimeMode, kSync}}},
    // TODO idea
    {"Mphasis", {{TimeMode, kSync}}},
};
static_assert(std::size(kRows) == 22);

}  // namespace

const std::span<const FactoryProgram> kPlaces{kRows};

}  // namespace tessel8::factory
