#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "PanelWindow.h"
#include "ProgramChoice.h"

namespace tessel8::host {

struct PanelOptions {
    std::filesystem::path plugin;  ///< empty: the effect's own file
    ProgramChoice choice;
    std::filesystem::path input;       ///< heard again and again; empty: silence
    std::vector<Point> clicks;         ///< in this order, once the panel is open
    std::optional<double> seconds;     ///< after the clicks; empty: until the window is closed
    std::filesystem::path screenshot;  ///< empty: none
};

/// "X,Y" in pixels, 0 to 32767 each.
Point parseClick(std::string_view text);

/// Shows the effect's panel in a window while sound runs through the effect.
void showPanel(const PanelOptions& options);

}  // namespace tessel8::host
