#pragma once

#include <csignal>

namespace tessel8::host {

/// Thrown where the user has stopped the program, so that everything is tidied up on the way out.
struct Interrupted {
    int signal;
};

/// While it lives, Ctrl-C and a request to end are only noted; a second one ends the program at
/// once, in case the effect never comes back.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Throws Interrupted if there was a signal.
    static void check();

  private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
    struct sigaction before_[3]{};
};

/// Makes a limit on the file size an error of the write in place of the end of the program.
void reportFileSizeLimitAsError();

/// The same for writing to a display that has gone away.
void reportLostDisplayAsError();

}  // namespace tessel8::host
