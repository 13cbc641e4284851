#pragma once

#include <csignal>
#include <ctime>

namespace tessel8 {

/// Keeps a signal that a system call of ours may raise off this thread while it exists; the call
/// then just fails. The signal's disposition, which belongs to the whole process, stays the host's.
class SignalGuard {
  public:
    explicit SignalGuard(int guarded) : signal(guarded) {
        sigemptyset(&signals);
        sigaddset(&signals, signal);
        sigset_t pending;
        sigemptyset(&pending);
        sigpending(&pending);
        someoneElses = sigismember(&pending, signal) == 1;
        if (!someoneElses) {
            pthread_sigmask(SIG_BLOCK, &signals, &before);
        }
    }
    ~SignalGuard() {
        if (someoneElses) {
            return;
        }
        const timespec now{};
        while (sigtimedwait(&signals, nullptr, &now) == signal) {
        }
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }
    SignalGuard(const SignalGuard&) = delete;
    SignalGuard& operator=(const SignalGuard&) = delete;

  private:
    int signal;
    sigset_t signals{}, before{};
    bool someoneElses = false;  ///< one waits already: it is blocked, and not ours to take
};

}  // namespace tessel8
