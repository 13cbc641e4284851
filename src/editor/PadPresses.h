#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace tessel8 {

/// Presses of the tap pad that come from a MIDI controller, with the time at which they came: the
/// panel hears of them only at its next idle pass. Any thread writes; the panel reads. If more
/// come than there is room for, the oldest are lost.
class PadPresses {
  public:
    void push(bool down, uint32_t tick) {
        const uint32_t slot = written.fetch_add(1, std::memory_order_relaxed) % kRoom;
        slots[slot].store(kFull | uint64_t(down) << 32 | tick, std::memory_order_release);
    }
    /// Calls `action(down, tick)` for every press in the order in which they came.
    template <typename Action>
    void take(Action action) {
        for (;; read = (read + 1) % kRoom) {
            const uint64_t press = slots[read].exchange(0, std::memory_order_acquire);
            if (press == 0) {
                return;
            }
            action((press >> 32 & 1) != 0, uint32_t(press));
        }
    }

  private:
    static constexpr uint32_t kRoom = 16;
    static constexpr uint64_t kFull = uint64_t(1) << 33;

    std::array<std::atomic<uint64_t>, kRoom> slots{};
    std::atomic<uint32_t> written{0};
    uint32_t read = 0;
};

}  // namespace tessel8
