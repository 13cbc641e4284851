#pragma once

#include <string>

namespace tessel8::host {

/// Throws UserError unless the effect takes this rate in Hz, 44100 to 192000. `subject` names in
/// the message whose rate it is.
void checkSampleRate(int rate, const std::string& subject);

}  // namespace tessel8::host
