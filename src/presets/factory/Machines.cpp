#include "presets/factory/FactoryProgram.h"
#include "presets/factory/Units.h"

namespace tessel8::factory {

namespace {

using enum Family;

constexpr FactoryProgram kRows[] = {
    // TODO idea
    {"Narrowly", {{TimeMode, kSync}}},
    // TODO idea
    {"Perturbation", {{TimeMode, kSync}}},
    // TODO idea
    {"Pipe", {{TimeMode, kSync}}},
    // TODO idea
    {"Planer", {{TimeMode, kSync}}},
    // TODO idea
    {"Planer2", {{TimeMode, kSync}}},
    // TODO idea
    {"Planer3", {{TimeMode, kSync}}},
    // TODO idea
    {"Planer4", {{TimeMode, kSync}}},
    // TODO idea
    {"Power repeat", {{TimeMode, kSync}}},
    // TODO idea
    {"RadioGaGa", {{TimeMode, kSync}}},
    // TODO idea
    {"Remainder", {{TimeMode, kSync}}},
    // TODO idea
    {"Rigoletto", {{TimeMode, kSync}}},
    // TODO idea
    {"Robotix", {{TimeMode, kSync}}},
    // TODO idea
    {"Show your dream", {{TimeMode, kSync}}},
    // TODO idea
    {"South Pole", {{TimeMode, kSync}}},
    // TODO idea
    {"Spacecraft", {{TimeMode, kSync}}},
    // TODO idea
    {"Spy", {{TimeMode, kSync}}},
    // TODO idea
    {"Steel cathedral", {{TimeMode, kSync}}},
    // TODO idea
    {"Step by step", {{TimeMode, kSync}}},
    // TODO idea
    {"SUB delay", {{TimeMode, kSync}}},
    // TODO idea
    {"Swimming pool", {{TimeMode, kSync}}},
    // TODO idea
    {"Tape error", {{TimeMode, kSync}}},
    // TODO idea
    {"Waterfall of joy", {{TimeMode, kSync}}},
    // TODO idea
    {"long long time ago...", {{TimeMode, kSync}}},
    // TODO idea
    {"Heaven on earth QA", {{TimeMode, kSync}}},
    // TODO idea
    {"Repeat it back QA", {{TimeMode, kSync}}},
    // TODO idea
    {"Sweepy QA", {{TimeMode, kSync}}},
    // TODO idea
    {"Sweet QA", {{TimeMode, kSync}}},
    // TODO idea
    {"Waw QA", {{TimeMode, kSync}}},
};
static_assert(std::size(kRows) == 28);

}  // namespace

const std::span<const FactoryProgram> kMachines{kRows};

}  // namespace tessel8::factory
