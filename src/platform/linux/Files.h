#pragma once

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace tessel8::files {

/// An open file or folder, or none.
class Descriptor {
  public:
    explicit Descriptor(int opened = -1) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    explicit operator bool() const { return number >= 0; }
    int get() const { return number; }
    /// False where the system reports that not everything was written.
    bool close() { return number < 0 || ::close(std::exchange(number, -1)) == 0; }

  private:
    int number;
};

/// Opens a folder; `path` counts from `folder`.
Descriptor openFolder(int folder, const char* path);

/// A regular file that is open for reading, and its size in bytes.
struct Readable {
    Descriptor file;
    size_t size;
};
std::optional<Readable> openToRead(int folder, const char* name);
/// Fills `bytes`; false if the file ends before.
bool readAll(const Descriptor& file, std::span<uint8_t> bytes);

/// The permissions of a written file.
struct Mode {
    mode_t bits;
    bool exact = false;  ///< also what the user's mask takes away from new files
};
/// Writes a file beside the one it is to replace, brings it to the disk and renames it.
bool replaceFile(int folder, const char* name, std::span<const uint8_t> bytes, Mode mode);

/// Removes the files in a folder that a `replaceFile` which was killed has left.
void removeAbandoned(const Descriptor& folder);

}  // namespace tessel8::files
