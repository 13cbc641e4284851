#pragma once

#include <functional>
#include <string>
#include <vector>

#include "parameters/Parameters.h"

namespace tessel8::bench {

/// A setting of the effect whose cost is worth knowing.
struct Scenario {
    std::string name;
    int taps;  ///< taps that sound
    std::function<void(Parameters&)> set;
};

const std::vector<Scenario>& scenarios();

}  // namespace tessel8::bench
