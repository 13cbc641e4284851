#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessel8 {

/// The user's settings, common to all instances and processes: named values of three kinds, each a
/// file of its own, so that two writers at once leave whole values. Nothing is kept in memory: each
/// call looks at the store anew. Without a home folder, or where it cannot be written, nothing is
/// found and nothing written, in silence. A value that cannot be read counts as absent.
///
/// Asks for memory only for values of bytes and texts that are there. Names are plain words.
class SettingsFolder {
  public:
    /// The main folder, or one inside it; the name has to outlive this object.
    explicit SettingsFolder(const char* subfolder = "") : inner(subfolder) {}

    enum class Made : uint8_t { Now, Before, Failed };
    /// Makes the folder unless it is there, and tells which.
    Made make() const;
    bool exists() const;
    /// Removes what writers left behind that were killed a while ago.
    void clean() const;

    std::optional<std::vector<uint8_t>> readBytes(const char* name) const;
    std::optional<std::string> readText(const char* name) const;
    /// In 32 bits, with or without a sign.
    std::optional<int64_t> readInteger(const char* name) const;

    // These make the folder if it is missing, and leave a value alone that is the same already.
    // False where the value could not be brought to the disk; then the old one stands.
    bool writeBytes(const char* name, std::span<const uint8_t> bytes) const;
    bool writeText(const char* name, std::string_view text) const;
    bool writeInteger(const char* name, int32_t number) const;
    void removeBytes(const char* name) const;

  private:
    const char* inner;
};

}  // namespace tessel8
