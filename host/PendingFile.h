#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace tessel8::host {

/// A file that gets its name only when it is complete. Until `commit` everything goes to a
/// hidden file in the same folder, which the destructor removes; a file that already has the
/// name stays whole until then, and may be read all the while.
class PendingFile {
  public:
    /// Throws UserError where a file of this name cannot be made.
    explicit PendingFile(const std::filesystem::path& target);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    int descriptor() const { return descriptor_; }
    const std::string& name() const { return name_; }

    /// Brings everything to the disk and gives the file its name.
    void commit();

  private:
    void create();
    [[noreturn]] void fail(int error) const;

    std::string name_;               // as the user wrote it, for messages
    std::filesystem::path target_;   // behind symbolic links
    std::filesystem::path pending_;  // empty once the file has its name
    int descriptor_ = -1;
};

}  // namespace tessel8::host
