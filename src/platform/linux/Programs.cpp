#include "platform/linux/Programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <utility>

namespace tessel8::x11 {

namespace {

constexpr const char* kUsualFolders = "/usr/local/bin:/usr/bin:/bin";

/// Our environment without the libraries that a host puts before the system's.
std::vector<char*> environmentForOthers() {
    std::vector<char*> result;
    for (char** entry = environ; entry && *entry; ++entry) {
        const std::string_view text(*entry);
        if (text.rfind("LD_LIBRARY_PATH=", 0) != 0 && text.rfind("LD_PRELOAD=", 0) != 0) {
            result.push_back(*entry);
        }
    }
    result.push_back(nullptr);
    return result;
}

}  // namespace

std::string findProgram(const std::string& name) {
    const char* path = std::getenv("PATH");
    for (const char* list : {path ? path : "", kUsualFolders}) {
        std::istringstream folders(list);
        for (std::string file; std::getline(folders, file, ':');) {
            file.append("/").append(name);
            if (access(file.c_str(), X_OK) == 0) {
                return file;
            }
        }
    }
    return {};
}

std::optional<pid_t> startProgram(const Command& command, int output, bool ownSession) {
    std::vector<char*> arguments{const_cast<char*>(command.program.c_str())};
    for (const std::string& argument : command.arguments) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, short(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                (ownSession ? POSIX_SPAWN_SETSID : 0)));
    pid_t process = 0;
    const int failed = posix_spawn(&process, command.program.c_str(), &files, &attributes,
                                   arguments.data(), environmentForOthers().data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return failed ? std::nullopt : std::optional(process);
}

Pipe::Pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) == 0) {
        readEnd = ends[0];
        writeEnd = ends[1];
        fcntl(readEnd, F_SETFL, O_NONBLOCK);
    }
}

Pipe::~Pipe() {
    closeWriteEnd();
    if (readEnd >= 0) {
        close(readEnd);
    }
}

void Pipe::closeWriteEnd() {
    if (const int end = std::exchange(writeEnd, -1); end >= 0) {
        close(end);
    }
}

void Pipe::drainInto(std::string& text) const {
    std::array<char, 1024> bytes{};
    for (ssize_t count = 0; (count = read(readEnd, bytes.data(), bytes.size())) > 0;) {
        text.append(bytes.data(), size_t(count));
    }
}

ChildProgram::ChildProgram(const Command& command) {
    process = pipe.writeEnd >= 0 ? startProgram(command, pipe.writeEnd, false) : std::nullopt;
    pipe.closeWriteEnd();
}

ChildProgram::~ChildProgram() {
    if (!hasEnded()) {
        kill(*process, SIGKILL);
        while (waitpid(*process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

bool ChildProgram::hasEnded() {
    if (!process) {
        return true;
    }
    int raw = 0;
    const pid_t reaped = waitpid(*process, &raw, WNOHANG);
    const bool takenAway = reaped < 0 && errno == ECHILD;
    pipe.drainInto(text);
    if (reaped == *process) {
        status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    } else if (takenAway) {
        status = text.empty() ? 1 : 0;
    } else {
        return false;
    }
    process.reset();
    return true;
}

}  // namespace tessel8::x11
