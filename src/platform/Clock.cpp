#include "platform/Clock.h"

#include <chrono>
#include <thread>

namespace tessel8 {

namespace {

using Monotonic = std::chrono::steady_clock;

const Monotonic::time_point loaded = Monotonic::now();

}  // namespace

uint32_t millisecondTick() {
    const auto passed = Monotonic::now() - loaded;
    return uint32_t(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
}

void sleepMilliseconds(uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace tessel8
