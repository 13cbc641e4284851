#include "Interruption.h"

#include <iterator>

namespace tessel8::host {

namespace {

// A signal handler has no other way to pass anything on.
volatile std::sig_atomic_t notedSignal = 0;

extern "C" void noteSignal(int signal) {
    notedSignal = signal;
}

}  // namespace

Interruption::Interruption() {
    notedSignal = 0;
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART | int(SA_RESETHAND);
    for (size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &action, &before_[i]);
        // Started in the background or under nohup: stays deaf to it.
        if (before_[i].sa_handler == SIG_IGN) {
            sigaction(kSignals[i], &before_[i], nullptr);
        }
    }
}

Interruption::~Interruption() {
    for (size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &before_[i], nullptr);
    }
}

void Interruption::check() {
    if (notedSignal != 0) {
        throw Interrupted{int(notedSignal)};
    }
}

void reportFileSizeLimitAsError() {
    std::signal(SIGXFSZ, SIG_IGN);
}

void reportLostDisplayAsError() {
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace tessel8::host
