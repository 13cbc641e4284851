#include "HostRun.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace tessel8::host::test {

namespace {

struct Channel {
    int reader = -1;
    int writer = -1;
};

Channel makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    return {ends[0], ends[1]};
}

Channel makeTerminal() {
    Channel channel;
    if (openpty(&channel.reader, &channel.writer, nullptr, nullptr, nullptr) != 0) {
        throw std::runtime_error("no pseudo terminal");
    }
    return channel;
}

[[noreturn]] void becomeHost(std::vector<std::string> arguments, const Surroundings& surroundings,
                             const Channel& out, const Channel& err) {
    dup2(out.writer, STDOUT_FILENO);
    dup2(err.writer, STDERR_FILENO);
    if (!surroundings.folder.empty() && chdir(surroundings.folder.c_str()) != 0) {
        _exit(126);
    }
    if (surroundings.mostFileBytes >= 0) {
        const auto bytes = rlim_t(surroundings.mostFileBytes);
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    for (const auto& [name, value] : surroundings.environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    const std::string program =
        surroundings.executable.empty() ? TESSEL8_HOST : surroundings.executable.string();
    arguments.insert(arguments.begin(), program);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    execv(program.c_str(), pointers.data());
    _exit(127);
}

/// Takes what is there; false once the other side has closed.
bool drain(int descriptor, std::string& text) {
    std::array<char, 4096> buffer{};
    const ssize_t got = read(descriptor, buffer.data(), buffer.size());
    if (got > 0) {
        text.append(buffer.data(), size_t(got));
    }
    return got > 0 || (got < 0 && errno == EINTR);
}

/// Collects both streams until they end, and sends the signal when its time has come.
void follow(pid_t host, int out, int err, const Surroundings& surroundings, HostRun& run) {
    constexpr int kLookMilliseconds = 5;
    bool signalSent = surroundings.signal == 0;
    bool outOpen = true;
    bool errOpen = true;
    while (outOpen || errOpen) {
        std::array<pollfd, 2> streams = {
            {{outOpen ? out : -1, POLLIN, 0}, {errOpen ? err : -1, POLLIN, 0}}};
        poll(streams.data(), streams.size(), signalSent ? -1 : kLookMilliseconds);
        if (!signalSent && std::filesystem::exists(surroundings.signalWhen)) {
            kill(host, surroundings.signal);
            signalSent = true;
        }
        if (streams[0].revents != 0) {
            outOpen = drain(out, run.out);
        }
        if (streams[1].revents != 0) {
            errOpen = drain(err, run.err);
        }
    }
}

}  // namespace

HostRun runHost(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    const Channel out = makePipe();
    const Channel err = surroundings.errorsOnTerminal ? makeTerminal() : makePipe();
    const auto begin = std::chrono::steady_clock::now();
    const pid_t host = fork();
    if (host == 0) {
        becomeHost(arguments, surroundings, out, err);
    }
    close(out.writer);
    close(err.writer);

    HostRun run;
    follow(host, out.reader, err.reader, surroundings, run);
    close(out.reader);
    close(err.reader);
    int status = 0;
    waitpid(host, &status, 0);
    run.time = std::chrono::steady_clock::now() - begin;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return run;
}

HostRun render(const std::filesystem::path& input, const std::filesystem::path& output,
               const std::vector<std::string>& options) {
    std::vector<std::string> arguments = {"render", input, output, "--plugin", TESSEL8_PLUGIN};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runHost(arguments);
}

}  // namespace tessel8::host::test
