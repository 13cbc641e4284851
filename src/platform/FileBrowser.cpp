#include "platform/FileBrowser.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/Window.h"

namespace tessel8 {

namespace {

namespace fs = std::filesystem;

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return text;
}

std::string home() {
    const char* path = std::getenv("HOME");
    return path && *path ? path : "/";
}

bool isFolder(const fs::path& path) {
    std::error_code failed;
    return fs::is_directory(path, failed);
}

bool exists(const fs::path& path) {
    std::error_code failed;
    return fs::exists(path, failed);
}

}  // namespace

std::string withExtension(const std::string& path, const std::string& extension) {
    std::string result = path;
    if (!extension.empty() && !fs::path(path).has_extension()) {
        result.append(".").append(extension);
    }
    return result;
}

FileBrowser::FileBrowser(const FileDialogSettings& settings)
    : saves(settings.kind == FileDialogKind::Save), extension(settings.extension) {
    enter(isFolder(settings.folder) ? settings.folder : home());
}

void FileBrowser::enter(const std::string& path) {
    std::error_code failed;
    const fs::path absolute = fs::absolute(path, failed).lexically_normal();
    // A trailing slash makes an empty last name.
    const bool needsTrim = !absolute.has_filename() && absolute.has_relative_path();
    current = (needsTrim ? absolute.parent_path() : absolute).string();

    listed.clear();
    const std::string wanted = lowered(withExtension("any", extension).substr(3));
    for (fs::directory_iterator at(current, failed), end; !failed && at != end;
         at.increment(failed)) {
        const std::string name = at->path().filename().string();
        const bool folder = isFolder(at->path());
        const bool fits =
            folder || extension.empty() || lowered(at->path().extension().string()) == wanted;
        if (name.front() != '.' && fits) {
            listed.push_back({name, folder});
        }
    }
    std::sort(listed.begin(), listed.end(), [](const Entry& a, const Entry& b) {
        return std::make_pair(!a.isFolder, lowered(a.name)) <
               std::make_pair(!b.isFolder, lowered(b.name));
    });
    if (fs::path(current).has_relative_path()) {
        listed.insert(listed.begin(), {"..", true});
    }
}

FileBrowser::Outcome FileBrowser::open(const std::string& text) {
    if (text.empty()) {
        return Outcome::Nothing;
    }
    const bool fromHome = text == "~" || text.rfind("~/", 0) == 0;
    const std::string path =
        (fromHome ? fs::path(home() + text.substr(1)) : fs::path(current) / text)
            .lexically_normal()
            .string();
    if (isFolder(path)) {
        enter(path);
        return Outcome::Entered;
    }
    return choose(path);
}

FileBrowser::Outcome FileBrowser::choose(const std::string& path) {
    const std::string named = withExtension(path, extension);
    if (!saves) {
        result = exists(path) ? path : named;
        return exists(result) ? Outcome::Chosen : Outcome::NotThere;
    }
    if (!fs::path(path).has_filename() || !isFolder(fs::path(path).parent_path())) {
        return Outcome::NotThere;
    }
    result = named;
    if (exists(named) && std::exchange(toReplace, named) != named) {
        return Outcome::Exists;
    }
    return Outcome::Chosen;
}

}  // namespace tessel8
