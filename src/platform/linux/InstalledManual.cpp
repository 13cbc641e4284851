#include "platform/InstalledManual.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace tessel8 {

namespace {

namespace fs = std::filesystem;

/// Any address in here tells which file the linker has loaded.
constexpr char kOwnAddress = 0;

}  // namespace

std::string installedManual() {
    Dl_info module{};
    if (dladdr(&kOwnAddress, &module) == 0 || module.dli_fname == nullptr) {
        return {};
    }
    // A link to the plug-in counts as the plug-in itself.
    std::error_code failed;
    const fs::path plugin = fs::canonical(module.dli_fname, failed);
    const fs::path manual = (plugin.parent_path() / TESSEL8_MANUAL_PATH).lexically_normal();
    return !failed && fs::is_regular_file(manual, failed) ? manual.string() : std::string();
}

}  // namespace tessel8
