#pragma once

#include <string>

namespace tessel8 {

/// Full path of the manual (PDF) that was installed along with this plug-in; empty if there is
/// none, as in a build folder or in a user's ~/.vst.
std::string installedManual();

}  // namespace tessel8
