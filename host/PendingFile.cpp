#include "PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "UserError.h"

namespace tessel8::host {

namespace {

namespace fs = std::filesystem;

constexpr int kNameAttempts = 100;

}  // namespace

void PendingFile::fail(int error) const {
    throw UserError("cannot write " + name_ + ": " + std::strerror(error));
}

PendingFile::PendingFile(const fs::path& target) : name_(target.string()), target_(target) {
    // A rename would put the file in the link's place and leave what it points to unchanged.
    std::error_code error;
    if (const fs::path real = fs::canonical(target, error); !error) {
        target_ = real;
    }
    struct stat existing {};
    const bool exists = stat(target_.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode)) {
        fail(EISDIR);
    }
    // A device or pipe would be replaced by the rename, and lost to everybody.
    if (exists && !S_ISREG(existing.st_mode)) {
        throw UserError("cannot write " + name_ + ": not a regular file");
    }
    if (exists && access(target_.c_str(), W_OK) != 0) {
        fail(errno);
    }
    create();
    if (exists && fchmod(descriptor_, existing.st_mode & 07777) != 0) {
        const int reason = errno;
        unlink(pending_.c_str());
        close(descriptor_);
        fail(reason);
    }
}

void PendingFile::create() {
    // Short, whatever the length of the target's name; the number sets two runs apart.
    const std::string stem = ".tessel8-" + std::to_string(getpid()) + "-";
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        pending_ = target_.parent_path() / (stem + std::to_string(attempt) + ".part");
        descriptor_ = open(pending_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor_ >= 0) {
            return;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    fail(errno);
}

PendingFile::~PendingFile() {
    if (!pending_.empty()) {
        unlink(pending_.c_str());
    }
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void PendingFile::commit() {
    // Some file systems report a full disk only here.
    if (fsync(descriptor_) != 0 || close(std::exchange(descriptor_, -1)) != 0 ||
        rename(pending_.c_str(), target_.c_str()) != 0) {
        fail(errno);
    }
    pending_.clear();
}

}  // namespace tessel8::host
