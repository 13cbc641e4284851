#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "ProgramChoice.h"

namespace tessel8::host {

struct LiveOptions {
    std::filesystem::path plugin;  ///< empty: the effect's own file
    ProgramChoice choice;
    std::string name = "tessel8";   ///< of the JACK client
    std::optional<double> tempo;    ///< BPM where JACK's song has none; empty: none is told
    bool connect = true;            ///< with the hardware's audio ports
    bool panel = true;              ///< as far as there is a display
    std::optional<double> seconds;  ///< empty: until a signal or until the window is closed
};

/// Runs the effect as a JACK client, with its panel. A signal to end is a good end.
void playLive(const LiveOptions& options);

}  // namespace tessel8::host
