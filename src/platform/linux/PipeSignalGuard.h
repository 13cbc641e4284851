#pragma once

#include <csignal>
#include <ctime>

namespace tessel8::x11 {

/// Keeps the signal for a broken pipe off this thread while it exists. The client library looks
/// whether the server is still there and then writes with a plain `writev`: a server that ends in
/// between would take the host along. The signal's disposition, which belongs to the whole
/// process, stays the host's.
class PipeSignalGuard {
  public:
    PipeSignalGuard() {
        sigemptyset(&pipeSignal);
        sigaddset(&pipeSignal, SIGPIPE);
        sigset_t pending;
        sigemptyset(&pending);
        sigpending(&pending);
        someoneElses = sigismember(&pending, SIGPIPE) == 1;
        if (!someoneElses) {
            pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
        }
    }
    ~PipeSignalGuard() {
        if (someoneElses) {
            return;
        }
        const timespec now{};
        while (sigtimedwait(&pipeSignal, nullptr, &now) == SIGPIPE) {
        }
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }
    PipeSignalGuard(const PipeSignalGuard&) = delete;
    PipeSignalGuard& operator=(const PipeSignalGuard&) = delete;

  private:
    sigset_t pipeSignal{}, before{};
    bool someoneElses = false;  ///< one waits already: it is blocked, and not ours to take
};

}  // namespace tessel8::x11
