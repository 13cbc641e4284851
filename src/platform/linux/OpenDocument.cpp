#include "platform/OpenDocument.h"

#include <sys/wait.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/Clock.h"
#include "platform/linux/Programs.h"

namespace tessel8 {

namespace {

constexpr uint32_t kPatience = 200;  // milliseconds

/// What the opener's exit status means. It gives 3 or 4, by desktop, where no application is known.
OpenResult meaning(const std::string& status) {
    if (status == "0\n") {
        return OpenResult::Opened;
    }
    return status == "3\n" || status == "4\n" ? OpenResult::NoApplication : OpenResult::Failed;
}

}  // namespace

OpenResult openDocument(const std::string& path) {
    std::error_code failed;
    const std::string opener = x11::findProgram("xdg-open");
    const std::string file = std::filesystem::absolute(path, failed).string();
    x11::Pipe pipe;
    if (opener.empty() || !std::filesystem::exists(file, failed) || pipe.writeEnd < 0) {
        return OpenResult::Failed;
    }
    // The opener may run as long as the application does. A shell that ends at once leaves it to
    // the system, so that it needs no one of ours to wait for it.
    const char* kScript = "(\"$1\" \"$2\" >/dev/null 2>&1; echo $?) &";
    const auto shell =
        x11::startProgram({"/bin/sh", {"-c", kScript, "sh", opener, file}}, pipe.writeEnd, true);
    pipe.closeWriteEnd();
    if (!shell) {
        return OpenResult::Failed;
    }
    while (waitpid(*shell, nullptr, 0) < 0 && errno == EINTR) {
    }
    std::string status;
    for (const uint32_t start = millisecondTick(); millisecondTick() - start < kPatience;) {
        pipe.drainInto(status);
        if (!status.empty()) {
            return meaning(status);
        }
        sleepMilliseconds(5);
    }
    return OpenResult::Opened;
}

}  // namespace tessel8
