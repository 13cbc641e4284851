#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessel8 {

struct FileDialogSettings;

/// The path with the extension if its name has none. `extension` is without the dot.
std::string withExtension(const std::string& path, const std::string& extension);

/// Looks for a file to load or a place to save one: a folder's entries, and what a name that is
/// chosen or typed leads to. Folders that can't be read look empty.
class FileBrowser {
  public:
    struct Entry {
        std::string name;
        bool isFolder;

        /// As it is shown and typed: a folder's name ends in a slash.
        std::string text() const { return isFolder ? name + "/" : name; }
    };
    enum class Outcome : uint8_t {
        Nothing,   ///< nothing was typed
        Entered,   ///< another folder is shown
        Chosen,    ///< see `chosen`
        NotThere,  ///< no such file, or no folder to save it in
        Exists     ///< a file to be replaced: the same name once more chooses it
    };

    explicit FileBrowser(const FileDialogSettings& settings);

    const std::string& folder() const { return current; }
    /// The way up first, then folders, then files of the type, each by name without case.
    const std::vector<Entry>& entries() const { return listed; }
    /// Goes where a text leads: a path, or a name within the folder; "~/" is the home folder.
    Outcome open(const std::string& text);
    const std::string& chosen() const { return result; }

  private:
    void enter(const std::string& path);
    Outcome choose(const std::string& path);

    bool saves;
    std::string extension, current, result, toReplace;
    std::vector<Entry> listed;
};

}  // namespace tessel8
