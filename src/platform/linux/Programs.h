#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace tessel8::x11 {

/// A program's file and what it is called with.
struct Command {
    std::string program;
    std::vector<std::string> arguments;
};

/// The file of an installed program; empty if there is none.
std::string findProgram(const std::string& name);

/// Starts a program with the write end of a pipe as its standard output, and nothing else of this
/// process: no open file, no blocked signal, and no libraries that a host brings for itself.
/// In a session of its own it outlives the terminal. Empty if it can't be started.
std::optional<pid_t> startProgram(const Command& command, int output, bool ownSession);

/// The read and the write end, closed in programs that others start; -1 both on failure. Reading
/// doesn't wait.
struct Pipe {
    Pipe();
    ~Pipe();
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void closeWriteEnd();
    /// Adds what has come to `text`.
    void drainInto(std::string& text) const;

    int readEnd = -1, writeEnd = -1;
};

/// A program that runs beside us and ends with this object at the latest.
class ChildProgram {
  public:
    explicit ChildProgram(const Command& command);
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// Takes in what it has written; true once it has ended or could not be started.
    bool hasEnded();
    const std::string& output() const { return text; }
    /// The exit status; -1 if it was killed or not started. Where the host has taken the status
    /// away, 0 if anything was written and 1 if not.
    int exitStatus() const { return status; }

  private:
    Pipe pipe;
    std::optional<pid_t> process;  ///< while it runs or waits to be reaped
    std::string text;
    int status = -1;
};

}  // namespace tessel8::x11
