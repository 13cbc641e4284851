#pragma once

#include <cstdint>

namespace tessel8 {

/// Flushes denormals for the guard's lifetime and gives the caller's floating-point mode back
/// afterwards. Decaying echoes end in denormals, which cost a hundred times a normal number.
class DenormalGuard {
  public:
#if defined(__SSE__)
    /// Flush to zero, denormals are zero, underflow masked.
    static constexpr uint32_t kFlush = 0x8000 | 0x0040 | 0x0800;

    DenormalGuard() : saved_(__builtin_ia32_stmxcsr()) {
        __builtin_ia32_ldmxcsr(uint32_t(saved_) | kFlush);
    }
    ~DenormalGuard() {
        __builtin_ia32_ldmxcsr(uint32_t(saved_));
    }
#elif defined(__aarch64__)
    static constexpr uint64_t kFlush = uint64_t(1) << 24;

    DenormalGuard() {
        asm volatile("mrs %0, fpcr" : "=r"(saved_));
        asm volatile("msr fpcr, %0" : : "r"(saved_ | kFlush));
    }
    ~DenormalGuard() {
        asm volatile("msr fpcr, %0" : : "r"(saved_));
    }
#endif
    DenormalGuard(const DenormalGuard&) = delete;
    DenormalGuard& operator=(const DenormalGuard&) = delete;

  private:
    uint64_t saved_ = 0;
};

}  // namespace tessel8
