#pragma once

#include <array>
#include <atomic>
#include <bit>
#include <cstdint>

namespace tessel8 {

/// What the effect has told the editor since the panel last looked. The effect writes on any
/// thread, the audio thread included, and only flags; the panel takes them over in its own time.
class EffectChanges {
  public:
    // Beside the indices of the effect: displays that are to show a value anew.
    static constexpr int32_t kTempoDigits = 426;
    static constexpr int32_t kLfoDigits = 427;

    void mark(int32_t flag) {
        if (flag >= 0 && flag < kFlags) {
            words[size_t(flag) / 64].fetch_or(uint64_t(1) << flag % 64, std::memory_order_release);
        }
    }
    void clear() {
        for (auto& word : words) {
            word.store(0, std::memory_order_relaxed);
        }
    }
    /// Calls `action` with every flag that was set, in ascending order.
    template <typename Action>
    void take(Action action) {
        for (size_t i = 0; i < kWords; ++i) {
            if (words[i].load(std::memory_order_relaxed) == 0) {
                continue;
            }
            uint64_t word = words[i].exchange(0, std::memory_order_acquire);
            for (; word != 0; word &= word - 1) {
                action(int32_t(i * 64) + std::countr_zero(word));
            }
        }
    }

  private:
    static constexpr int32_t kFlags = 428;
    static constexpr size_t kWords = (kFlags + 63) / 64;

    std::array<std::atomic<uint64_t>, kWords> words{};
};

}  // namespace tessel8
