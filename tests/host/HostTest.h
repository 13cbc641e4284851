#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "HostRun.h"
#include "Sound.h"

namespace tessel8::host::test {

/// Each test has a folder of its own. It is the home of the effect's settings too, so that
/// neither the tester's settings nor an earlier test can change a result.
class HostTest : public testing::Test {
  protected:
    HostTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tessel8-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        setenv("XDG_CONFIG_HOME", (folder_ / ".config").c_str(), 1);
        setenv("HOME", folder_.c_str(), 1);
    }
    ~HostTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::filesystem::path file(const std::string& name) const { return folder_ / name; }

    /// Names of the files in the test's folder; the settings of the effect don't count.
    std::set<std::string> filesInFolder() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            if (entry.path().filename() != ".config") {
                names.insert(entry.path().filename());
            }
        }
        return names;
    }

    std::filesystem::path folder_;
};

inline std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// A run that ended well, with one line for the user and no complaints.
inline testing::AssertionResult succeeded(const HostRun& run) {
    if (run.exitCode != 0) {
        return testing::AssertionFailure() << "exit code " << run.exitCode << ", " << run.err;
    }
    if (!run.err.empty()) {
        return testing::AssertionFailure() << "complains: " << run.err;
    }
    return testing::AssertionSuccess();
}

/// A run that ended with one clear line that holds `phrase`.
inline testing::AssertionResult refused(const HostRun& run, const std::string& phrase) {
    const std::string text = "exit code " + std::to_string(run.exitCode) + ", stdout \"" + run.out +
                             "\", stderr \"" + run.err + "\"";
    if (run.exitCode != 2 || !run.out.empty()) {
        return testing::AssertionFailure() << text;
    }
    if (run.err.rfind("tessel8: ", 0) != 0 || run.err.find('\n') != run.err.size() - 1) {
        return testing::AssertionFailure() << "not one line of the program's: " << text;
    }
    if (run.err.find(phrase) == std::string::npos) {
        return testing::AssertionFailure() << "\"" << phrase << "\" is missing: " << text;
    }
    return testing::AssertionSuccess();
}

}  // namespace tessel8::host::test
