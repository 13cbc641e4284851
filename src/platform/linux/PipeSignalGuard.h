#pragma once

#include "platform/linux/SignalGuard.h"

namespace tessel8::x11 {

/// Keeps the signal for a broken pipe off this thread while it exists. The client library looks
/// whether the server is still there and then writes with a plain `writev`: a server that ends in
/// between would take the host along.
class PipeSignalGuard : public SignalGuard {
  public:
    PipeSignalGuard() : SignalGuard(SIGPIPE) {}
};

}  // namespace tessel8::x11
