#include "platform/linux/Files.h"

#include <dirent.h>
#include <sys/stat.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>

#include "platform/linux/SignalGuard.h"

namespace tessel8::files {

namespace {

constexpr char kPrefix[] = ".tessel8-";  // of files that are not complete yet
constexpr int kNameAttempts = 100;
constexpr time_t kAbandonedAfter = 60;  // seconds, far longer than any write

bool writeAll(int file, std::span<const uint8_t> bytes) {
    const SignalGuard guard(SIGXFSZ);  // a limit on the size of files would end the host
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written > 0) {
            bytes = bytes.subspan(size_t(written));
        } else if (written == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

/// The short name of a file that nobody else writes: the number of the process sets processes
/// apart, a counter this one's threads.
using PendingName = std::array<char, 64>;

Descriptor createPending(int folder, mode_t mode, PendingName& name) {
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::snprintf(name.data(), name.size(), "%s%d-%u.part", kPrefix, int(getpid()),
                      counter.fetch_add(1));
        const int file = openat(folder, name.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST) {
            return Descriptor(file);
        }
    }
    return Descriptor();
}

}  // namespace

Descriptor openFolder(int folder, const char* path) {
    return Descriptor(openat(folder, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::optional<Readable> openToRead(int folder, const char* name) {
    // What is no file but a pipe must not make us wait for its other end.
    Descriptor file(openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    if (!file || fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return std::nullopt;
    }
    return Readable{std::move(file), size_t(facts.st_size)};
}

bool readAll(const Descriptor& file, std::span<uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t got = ::read(file.get(), bytes.data(), bytes.size());
        if (got > 0) {
            bytes = bytes.subspan(size_t(got));
        } else if (got == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool replaceFile(int folder, const char* name, std::span<const uint8_t> bytes, Mode mode) {
    PendingName pending;
    Descriptor file = createPending(folder, mode.bits, pending);
    if (!file) {
        return false;
    }
    // Some file systems report a full disk only when the file is flushed or closed.
    if ((!mode.exact || fchmod(file.get(), mode.bits) == 0) && writeAll(file.get(), bytes) &&
        fsync(file.get()) == 0 && file.close() &&
        renameat(folder, pending.data(), folder, name) == 0) {
        return true;
    }
    unlinkat(folder, pending.data(), 0);
    return false;
}

void removeAbandoned(const Descriptor& folder) {
    // The listing closes what it is given.
    const int copy = openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(copy >= 0 ? fdopendir(copy) : nullptr,
                                                      &closedir);
    if (!listing) {
        Descriptor(copy).close();
        return;
    }
    const time_t now = std::time(nullptr);
    while (const dirent* entry = readdir(listing.get())) {
        struct stat facts {};
        if (std::strncmp(entry->d_name, kPrefix, sizeof kPrefix - 1) == 0 &&
            fstatat(folder.get(), entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
            now - facts.st_mtime > kAbandonedAfter) {
            unlinkat(folder.get(), entry->d_name, 0);
        }
    }
}

}  // namespace tessel8::files
