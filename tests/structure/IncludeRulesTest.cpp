// The layers of the sources, read from their include lines: arrows go downwards only, so that the
// engine runs without a host and the parameters without a panel.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, int> kFloors = {{"platform", 1},  {"engine", 1},  {"vst", 1},
                                            {"resources", 0}, {"toolkit", 2}, {"parameters", 2},
                                            {"widgets", 3},   {"midi", 3},    {"presets", 4},
                                            {"editor", 5},    {"shell", 6}};

struct Include {
    std::string name;
    bool inQuotes;
};

std::vector<Include> includesOf(std::istream& source) {
    std::vector<Include> includes;
    for (std::string line; std::getline(source, line);) {
        std::istringstream words(line);
        std::string word, rest;
        words >> word;
        if (word == "#") {  // "# include" is one as well
            words >> rest;
            word += rest;
        }
        if (word.rfind("#include", 0) != 0) {
            continue;
        }
        const size_t open = line.find_first_of("\"<");
        const size_t close = open == std::string::npos ? open : line.find_first_of("\">", open + 1);
        if (close != std::string::npos) {
            includes.push_back({line.substr(open + 1, close - open - 1), line[open] == '"'});
        }
    }
    return includes;
}

/// All source files below a folder of the project with their includes, by their path within it.
std::map<std::string, std::vector<Include>> filesBelow(const char* folder) {
    const std::set<std::string> kEndings = {".h", ".hpp", ".cpp", ".c", ".inc"};
    const fs::path root = fs::path(TESSEL8_ROOT) / folder;
    std::map<std::string, std::vector<Include>> files;
    if (fs::exists(root)) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            if (entry.is_regular_file() && kEndings.count(entry.path().extension().string())) {
                std::ifstream source(entry.path());
                files[entry.path().lexically_relative(root).generic_string()] = includesOf(source);
            }
        }
    }
    return files;
}

std::string firstFolder(const std::string& path) {
    const size_t slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

/// The included file's path within src: from there, or beside the includer.
std::string resolved(const std::map<std::string, std::vector<Include>>& files,
                     const std::string& includer, const std::string& name) {
    const fs::path beside = fs::path(includer).parent_path() / name;
    const std::string sibling = beside.lexically_normal().generic_string();
    return !files.count(name) && files.count(sibling) ? sibling : name;
}

bool belongsToTheSystem(const std::string& header) {
    static const std::set<std::string> kFolders = {"xcb", "X11", "xkbcommon", "sys", "linux"};
    static const std::set<std::string> kHeaders = {
        "unistd.h", "windows.h", "windowsx.h", "gdiplus.h", "fcntl.h", "dlfcn.h",  "poll.h",
        "pwd.h",    "spawn.h",   "pthread.h",  "signal.h",  "csignal", "dirent.h", "shlobj.h"};
    return kFolders.count(firstFolder(header)) || kHeaders.count(header);
}

}  // namespace

TEST(IncludeRules, ReadIncludeLinesAsTheCompilerDoes) {
    std::istringstream source(
        "#include <vector>\n  #  include \"engine/Engine.h\"  // the signal\n"
        "// #include <windows.h>\n#include\"a.h\"\nint include;\n");
    const auto includes = includesOf(source);
    ASSERT_EQ(includes.size(), 3u);
    EXPECT_EQ(includes[0].name, "vector");
    EXPECT_FALSE(includes[0].inQuotes);
    EXPECT_EQ(includes[1].name, "engine/Engine.h");
    EXPECT_TRUE(includes[1].inQuotes);
    EXPECT_EQ(includes[2].name, "a.h");
}

TEST(IncludeRules, EveryFolderStandsOnAFloor) {
    const auto files = filesBelow("src");
    EXPECT_GT(files.size(), 40u) << "sources expected below " << TESSEL8_ROOT;
    for (const auto& [file, includes] : files) {
        EXPECT_TRUE(kFloors.count(firstFolder(file))) << file;
    }
}

TEST(IncludeRules, AFolderKnowsItselfAndLowerFloorsOnly) {
    const auto files = filesBelow("src");
    for (const auto& [file, includes] : files) {
        const std::string from = firstFolder(file);
        for (const Include& include : includes) {
            const std::string to = firstFolder(resolved(files, file, include.name));
            if (!include.inQuotes || !kFloors.count(from) || (to == from)) {
                continue;
            }
            ASSERT_TRUE(kFloors.count(to)) << file << " includes " << include.name;
            EXPECT_LT(kFloors.at(to), kFloors.at(from)) << file << " includes " << include.name;
        }
    }
}

TEST(IncludeRules, NoFileIncludesItselfByAnyWay) {
    const auto files = filesBelow("src");
    std::map<std::string, int> state;  // 1 on the way, 2 done
    const auto visit = [&](const auto& self, const std::string& file, std::string way) -> void {
        way += " -> " + file;
        ASSERT_NE(state[file], 1) << "a circle:" << way;
        if (state[file] == 2) {
            return;
        }
        state[file] = 1;
        for (const Include& include : files.at(file)) {
            const std::string next = resolved(files, file, include.name);
            if (include.inQuotes && files.count(next)) {
                self(self, next, way);
            }
        }
        state[file] = 2;
    };
    for (const auto& [file, includes] : files) {
        visit(visit, file, "");
    }
}

TEST(IncludeRules, TheOperatingSystemIsKnownToThePlatformAlone) {
    for (const auto& [file, includes] : filesBelow("src")) {
        for (const Include& include : includes) {
            EXPECT_TRUE(firstFolder(file) == "platform" || !belongsToTheSystem(include.name))
                << file << " includes " << include.name;
        }
    }
}

TEST(IncludeRules, TheCommandLineHostKnowsThePluginByItsInterfaceAlone) {
    // Beside the interface: the form of programs in files, which must not be written down twice.
    const std::set<std::string> kCommon = {"vst/Vst24.h", "presets/Chunk.h", "presets/Image.h"};
    const auto files = filesBelow("host");
    const auto sources = filesBelow("src");
    if (files.empty()) {
        GTEST_SKIP() << "there is no host in this tree";
    }
    for (const auto& [file, includes] : files) {
        for (const Include& include : includes) {
            if (!include.inQuotes || files.count(resolved(files, file, include.name))) {
                continue;
            }
            EXPECT_TRUE(kCommon.count(include.name)) << file << " includes " << include.name;
        }
    }
    for (const Include& include : sources.at("vst/Vst24.h")) {
        EXPECT_FALSE(include.inQuotes) << "vst/Vst24.h includes " << include.name;
    }
}
