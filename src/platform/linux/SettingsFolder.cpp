#include "platform/SettingsFolder.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/linux/Files.h"

namespace tessel8 {

namespace {

using files::Descriptor;
using Bytes = std::span<const uint8_t>;

constexpr char kProductFolder[] = "Vantor-audio/Vantor Tessel Echo";
constexpr mode_t kFolderMode = 0700, kValueMode = 0600;  // the user's alone
constexpr size_t kMostBytes = size_t(16) << 20;
constexpr size_t kMostText = 4096;
constexpr size_t kMostDigits = 16;

using Path = std::array<char, PATH_MAX>;
using FileName = std::array<char, 128>;

/// A value's file. Names are ours, so they fit.
FileName fileOf(const char* name, const char* kind) {
    FileName file;
    std::snprintf(file.data(), file.size(), "%s.%s", name, kind);
    return file;
}

/// Writes the folder's path. Answers where in it the part begins that may be made, which a home is
/// not; 0 without a home folder, or where the path is too long for the system.
size_t findFolder(const char* inner, Path& path) {
    const char* const settings = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    int length = -1;
    size_t given = 0;
    if (settings && settings[0] == '/') {  // others are to be ignored, by the desktops' rule
        given = size_t(std::strrchr(settings, '/') - settings) + 1;
        length =
            std::snprintf(path.data(), path.size(), "%s/%s/%s", settings, kProductFolder, inner);
    } else if (home && home[0] == '/') {
        given = std::strlen(home) + 1;
        length = std::snprintf(path.data(), path.size(), "%s/.config/%s/%s", home, kProductFolder,
                               inner);
    }
    if (length < 0 || size_t(length) >= path.size()) {
        return 0;
    }
    if (path[size_t(length) - 1] == '/') {
        path[size_t(length) - 1] = 0;
    }
    return given;
}

Descriptor openFolder(const char* inner) {
    Path path;
    return findFolder(inner, path) != 0 ? files::openFolder(AT_FDCWD, path.data()) : Descriptor();
}

/// Fills `buffer` from a small value and gives its size; nothing if it does not fit.
std::optional<size_t> readSmall(const Descriptor& folder, const char* file,
                                std::span<uint8_t> buffer) {
    const auto opened = folder ? files::openToRead(folder.get(), file) : std::nullopt;
    if (!opened || opened->size > buffer.size() ||
        !files::readAll(opened->file, buffer.first(opened->size))) {
        return std::nullopt;
    }
    return opened->size;
}

bool isSame(const Descriptor& folder, const char* file, Bytes bytes) {
    const auto opened = files::openToRead(folder.get(), file);
    if (!opened || opened->size != bytes.size()) {
        return false;
    }
    std::array<uint8_t, 4096> piece;
    while (!bytes.empty()) {
        const auto part = std::span(piece).first(std::min(piece.size(), bytes.size()));
        if (!files::readAll(opened->file, part) ||
            !std::equal(part.begin(), part.end(), bytes.begin())) {
            return false;
        }
        bytes = bytes.subspan(part.size());
    }
    return true;
}

bool write(const SettingsFolder& settings, const char* inner, const FileName& file, Bytes bytes) {
    if (settings.make() == SettingsFolder::Made::Failed) {
        return false;
    }
    const Descriptor folder = openFolder(inner);
    return folder && (isSame(folder, file.data(), bytes) ||
                      files::replaceFile(folder.get(), file.data(), bytes, {kValueMode}));
}

}  // namespace

SettingsFolder::Made SettingsFolder::make() const {
    Path path;
    const size_t given = findFolder(inner, path);
    if (given == 0) {
        return Made::Failed;
    }
    if (files::openFolder(AT_FDCWD, path.data())) {
        return Made::Before;
    }
    for (char* slash = std::strchr(path.data() + given, '/'); slash;
         slash = std::strchr(slash + 1, '/')) {
        *slash = 0;
        mkdir(path.data(), kFolderMode);
        *slash = '/';
    }
    if (mkdir(path.data(), kFolderMode) == 0) {
        return Made::Now;
    }
    return exists() ? Made::Before : Made::Failed;  // another process may have been faster
}

bool SettingsFolder::exists() const {
    return bool(openFolder(inner));
}

void SettingsFolder::clean() const {
    if (const Descriptor folder = openFolder(inner); folder) {
        files::removeAbandoned(folder);
    }
}

std::optional<std::vector<uint8_t>> SettingsFolder::readBytes(const char* name) const {
    const Descriptor folder = openFolder(inner);
    const auto opened =
        folder ? files::openToRead(folder.get(), fileOf(name, "bin").data()) : std::nullopt;
    if (!opened || opened->size > kMostBytes) {
        return std::nullopt;
    }
    std::vector<uint8_t> bytes(opened->size);
    if (!files::readAll(opened->file, bytes)) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<std::string> SettingsFolder::readText(const char* name) const {
    std::array<uint8_t, kMostText> buffer;
    const auto size = readSmall(openFolder(inner), fileOf(name, "str").data(), buffer);
    if (!size) {
        return std::nullopt;
    }
    std::string text(reinterpret_cast<const char*>(buffer.data()), *size);
    if (text.ends_with('\n')) {  // as users' own editors leave it
        text.pop_back();
    }
    return text.find('\0') == std::string::npos ? std::optional(text) : std::nullopt;
}

std::optional<int64_t> SettingsFolder::readInteger(const char* name) const {
    std::array<uint8_t, kMostDigits> buffer;
    const auto size = readSmall(openFolder(inner), fileOf(name, "int").data(), buffer);
    if (!size) {
        return std::nullopt;
    }
    const char* const text = reinterpret_cast<const char*>(buffer.data());
    const char* const end = text + *size;
    int64_t number = 0;
    const auto [rest, error] = std::from_chars(text, end, number);
    const bool isWhole =
        error == std::errc() && (rest == end || (rest + 1 == end && *rest == '\n'));
    return isWhole && number >= INT32_MIN && number <= UINT32_MAX ? std::optional(number)
                                                                  : std::nullopt;
}

bool SettingsFolder::writeBytes(const char* name, Bytes bytes) const {
    return write(*this, inner, fileOf(name, "bin"), bytes);
}

bool SettingsFolder::writeText(const char* name, std::string_view text) const {
    return write(*this, inner, fileOf(name, "str"),
                 {reinterpret_cast<const uint8_t*>(text.data()), text.size()});
}

bool SettingsFolder::writeInteger(const char* name, int32_t number) const {
    std::array<char, kMostDigits> text;
    const int length = std::snprintf(text.data(), text.size(), "%d\n", number);
    return write(*this, inner, fileOf(name, "int"),
                 {reinterpret_cast<const uint8_t*>(text.data()), size_t(length)});
}

void SettingsFolder::removeBytes(const char* name) const {
    if (const Descriptor folder = openFolder(inner); folder) {
        unlinkat(folder.get(), fileOf(name, "bin").data(), 0);
    }
}

}  // namespace tessel8
