#pragma once

#include <functional>
#include <string>
#include <vector>

#include "parameters/Parameters.h"

namespace tessel8::test {

/// A sound of the effect by name. Together the settings touch every branch of the sample loops.
struct Setting {
    std::string name;
    std::function<void(Parameters&)> apply;
};

const std::vector<Setting>& soundSettings();

/// The programs of the factory bank that differ from the neutral one.
std::vector<Setting> factorySettings();

}  // namespace tessel8::test
