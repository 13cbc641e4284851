#include "toolkit/TickClock.h"

#include "platform/Clock.h"

namespace tessel8 {

namespace {

class SystemClock : public TickClock {
  public:
    uint32_t now() const override { return millisecondTick(); }
    void sleep(uint32_t milliseconds) override { sleepMilliseconds(milliseconds); }
};

}  // namespace

TickClock& TickClock::system() {
    static SystemClock clock;
    return clock;
}

}  // namespace tessel8
