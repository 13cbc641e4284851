#include "platform/WholeFile.h"

#include <sys/stat.h>

#include <climits>
#include <cstdlib>

#include "platform/linux/Files.h"

namespace tessel8 {

namespace {

constexpr mode_t kNewFile = 0666;  // less what the user's mask takes away

}  // namespace

std::optional<std::vector<uint8_t>> readWholeFile(const std::string& path, size_t most) {
    const auto opened = files::openToRead(AT_FDCWD, path.c_str());
    if (!opened || opened->size > most) {
        return std::nullopt;
    }
    std::vector<uint8_t> bytes(opened->size);
    if (!files::readAll(opened->file, bytes)) {
        return std::nullopt;
    }
    return bytes;
}

bool writeWholeFile(const std::string& path, std::span<const uint8_t> bytes) {
    // Behind symbolic links: a rename would put the file in the link's place.
    std::string target = path;
    char real[PATH_MAX];
    if (realpath(path.c_str(), real)) {
        target = real;
    }
    struct stat existing {};
    const bool exists = stat(target.c_str(), &existing) == 0;
    // A device would be lost to everybody, and a file that may not be written is not to change.
    if (exists && (!S_ISREG(existing.st_mode) || access(target.c_str(), W_OK) != 0)) {
        return false;
    }
    const size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    const files::Descriptor opened = files::openFolder(AT_FDCWD, folder.c_str());
    const files::Mode mode =
        exists ? files::Mode{existing.st_mode & 07777, true} : files::Mode{kNewFile};
    return opened && files::replaceFile(opened.get(), target.c_str() + (slash + 1), bytes, mode);
}

}  // namespace tessel8
