#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace tessel8::host::test {

using Path = std::filesystem::path;
using Strings = std::vector<std::string>;
using Samples = std::vector<float>;  // interleaved

struct Sound {
    int rate = 48000, channels = 2;
    Samples samples{};
    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    size_t frames() const { return samples.size() / size_t(channels); }
};

inline Sound silence(size_t frames, int channels = 2, int rate = 48000) {
    return {rate, channels, Samples(frames * size_t(channels))};
}

/// The same on every call; the channels differ.
inline Sound noise(size_t frames, int channels = 2, float peak = 0.5F) {
    Sound sound = silence(frames, channels);
    std::minstd_rand random(1);
    for (float& sample : sound.samples) {
        sample = peak * (float(random() % 65536) / 32768.0F - 1.0F);
    }
    return sound;
}

inline void writeSound(const Path& file, const Sound& sound) {
    SF_INFO info{0, sound.rate, sound.channels, sound.format, 0, 0};
    SNDFILE* const handle = sf_open(file.c_str(), SFM_WRITE, &info);
    ASSERT_NE(handle, nullptr) << file;
    sf_write_float(handle, sound.samples.data(), sf_count_t(sound.samples.size()));
    sf_close(handle);
}

inline Sound readSound(const Path& file) {
    SF_INFO info{};
    SNDFILE* const handle = sf_open(file.c_str(), SFM_READ, &info);
    EXPECT_NE(handle, nullptr) << file;
    Sound sound{info.samplerate, info.channels, {}, info.format};
    sound.samples.resize(size_t(info.frames) * size_t(info.channels));
    sf_read_float(handle, sound.samples.data(), sf_count_t(sound.samples.size()));
    sf_close(handle);
    return sound;
}

inline bool sameBits(const Samples& a, const Samples& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
}

inline std::string contentsOf(const Path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What a run of the program left behind; the exit code is 128 + number after a signal.
struct HostRun {
    int exitCode;
    std::string out, err;
};

/// A run that ended well and without complaints.
inline testing::AssertionResult succeeded(const HostRun& run) {
    return testing::AssertionResult(run.exitCode == 0 && run.err.empty())
           << "exit code " << run.exitCode << ", " << run.err;
}

/// A run that ended with exit code 2 and one clear line that holds `phrase`.
inline testing::AssertionResult refused(const HostRun& run, const std::string& phrase) {
    return testing::AssertionResult(run.exitCode == 2 && run.out.empty() &&
                                    run.err.starts_with("tessel8: ") &&
                                    run.err.find('\n') + 1 == run.err.size() &&
                                    run.err.find(phrase) != std::string::npos)
           << "exit code " << run.exitCode << ", stdout \"" << run.out << "\", stderr \"" << run.err
           << "\", wanted: " << phrase;
}

struct Surroundings {
    long mostFileBytes = -1;        // limit on the size of a file that the program writes
    int signal = 0;                 // sent to it
    std::string after = "process";  // once the probe has written this down
};

/// Each test has a folder of its own. It is the home of the effect's settings too, so that
/// neither the tester's settings nor an earlier test can change a result.
class HostTest : public testing::Test {
  protected:
    HostTest() {
        std::string pattern = std::filesystem::temp_directory_path() / "tessel8-XXXXXX";
        home_ = mkdtemp(pattern.data());
        std::filesystem::create_directory(folder_ = home_ / "files");
        setenv("XDG_CONFIG_HOME", (home_ / ".config").c_str(), 1);
        setenv("HOME", home_.c_str(), 1);
        setenv("TESSEL8_PROBE_LOG", log().c_str(), 1);
    }
    ~HostTest() override { std::filesystem::remove_all(home_); }

    Path file(const std::string& name) const { return folder_ / name; }
    Path log() const { return home_ / "log"; }

    /// From now on renders go through the probe, which does as ProbeEffect.cpp says.
    void useProbe(const char* kind) {
        plugin_ = TESSEL8_PROBE;
        setenv("TESSEL8_PROBE_KIND", kind, 1);
        std::filesystem::remove(log());
    }

    HostRun runHost(Strings arguments, const Surroundings& surroundings = {}) const {
        int out[2], err[2];
        EXPECT_EQ(pipe2(out, O_CLOEXEC) + pipe2(err, O_CLOEXEC), 0);
        arguments.insert(arguments.begin(), TESSEL8_HOST);
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        const pid_t host = fork();
        if (host == 0) {
            dup2(out[1], STDOUT_FILENO);
            dup2(err[1], STDERR_FILENO);
            if (surroundings.mostFileBytes >= 0) {
                const auto bytes = rlim_t(surroundings.mostFileBytes);
                const rlimit limit{bytes, bytes};
                setrlimit(RLIMIT_FSIZE, &limit);
            }
            execv(pointers[0], pointers.data());
            _exit(127);
        }
        close(out[1]);
        close(err[1]);
        if (surroundings.signal != 0) {
            const auto found = [&] { return contentsOf(log()).find(surroundings.after); };
            for (int i = 0; i < 20000 && found() == std::string::npos; ++i) {
                usleep(1000);
            }
            kill(host, surroundings.signal);
        }
        // Errors fit a pipe, so they may wait for the end of the rest.
        HostRun run{};
        for (const auto& [end, text] : {std::pair{out[0], &run.out}, {err[0], &run.err}}) {
            for (char c = 0; read(end, &c, 1) == 1;) {
                *text += c;
            }
            close(end);
        }
        int status = 0;
        waitpid(host, &status, 0);
        run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return run;
    }

    HostRun render(const Path& input, const Path& output, const Strings& options = {},
                   const Surroundings& surroundings = {}) const {
        Strings arguments = {"render", input, output, "--plugin", plugin_};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runHost(arguments, surroundings);
    }

    /// Writes the input, renders it without a complaint and reads the output.
    Sound rendered(const Sound& input, const Strings& options, const std::string& in = "in.wav",
                   const std::string& out = "out.wav") {
        writeSound(file(in), input);
        const HostRun run = render(file(in), file(out), options);
        EXPECT_TRUE(succeeded(run));
        summary_ = run.out;
        return readSound(file(out));
    }

    Path home_, folder_;
    std::string plugin_ = TESSEL8_PLUGIN;
    std::string summary_;  // of `rendered`
};

}  // namespace tessel8::host::test
