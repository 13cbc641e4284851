#pragma once

#include <atomic>

namespace tessel8 {

/// A single word that another thread may write at any time and that stands in no order to others:
/// the host can set a parameter from its audio thread while the panel shows it.
template <typename T>
class Relaxed {
  public:
    Relaxed(T initial = T()) : word(initial) {}  // NOLINT: meant to be used as a T
    Relaxed(const Relaxed& other) : word(T(other)) {}
    Relaxed& operator=(const Relaxed& other) { return *this = T(other); }
    Relaxed& operator=(T value) {
        word.store(value, std::memory_order_relaxed);
        return *this;
    }
    ~Relaxed() = default;
    operator T() const { return word.load(std::memory_order_relaxed); }  // NOLINT

  private:
    static_assert(std::atomic<T>::is_always_lock_free);
    std::atomic<T> word;
};

}  // namespace tessel8
