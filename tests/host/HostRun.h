#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tessel8::host::test {

/// What a run of the program left behind.
struct HostRun {
    int exitCode = -1;  // 128 + number for a run that a signal ended
    std::string out;
    std::string err;
    std::chrono::duration<double> time{};
};

/// The world that the program runs in.
struct Surroundings {
    std::map<std::string, std::string> environment{};
    std::filesystem::path folder{};      // empty: that of the test
    std::filesystem::path executable{};  // empty: the built one
    long mostFileBytes = -1;             // limit on the size of a file that it writes
    bool errorsOnTerminal = false;       // stderr is a pseudo terminal
    int signal = 0;                      // sent once the file `signalWhen` is there
    std::filesystem::path signalWhen{};
};

HostRun runHost(const std::vector<std::string>& arguments, const Surroundings& surroundings = {});

/// The command `render`, with the effect under test.
HostRun render(const std::filesystem::path& input, const std::filesystem::path& output,
               const std::vector<std::string>& options = {});

}  // namespace tessel8::host::test
