#include "PluginLocation.h"

#include <cstdlib>
#include <vector>

#include "UserError.h"

namespace tessel8::host {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPluginName = "VantorTesselEcho.so";

/// Beside this executable, then where an installed system and where a user has plug-ins.
std::vector<fs::path> folders() {
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error).parent_path();
    std::vector<fs::path> found = {own, (own / TESSEL8_BIN_TO_VST).lexically_normal()};
    const char* const home = std::getenv("HOME");
    if (home != nullptr && fs::path(home).is_absolute()) {
        found.push_back(fs::path(home) / ".vst");
    }
    return found;
}

}  // namespace

fs::path pluginFile(const fs::path& chosen) {
    if (!chosen.empty()) {
        return chosen;
    }
    std::string tried;
    for (const fs::path& folder : folders()) {
        std::error_code error;
        fs::path candidate = folder / kPluginName;
        if (fs::is_regular_file(candidate, error)) {
            return candidate;
        }
        tried += (tried.empty() ? "" : " or ") + candidate.string();
    }
    throw UserError("cannot find " + tried + ": name the plug-in with --plugin FILE");
}

}  // namespace tessel8::host
