#pragma once

#include <utility>

namespace tessel8 {

/// Holds one reference to an object with a count (`CBaseObject`), or nothing.
template <typename T>
class Shared {
  public:
    Shared() = default;
    /// Counts itself in; whoever made the object keeps the reference that it began with.
    explicit Shared(T* object) : held(object) {
        if (held) {
            held->remember();
        }
    }
    Shared(const Shared& other) : Shared(other.held) {}
    Shared(Shared&& other) noexcept : held(std::exchange(other.held, nullptr)) {}
    template <typename Derived>
    Shared(const Shared<Derived>& other) : Shared(other.get()) {}  // NOLINT: as pointers convert
    Shared& operator=(Shared other) noexcept {
        std::swap(held, other.held);
        return *this;
    }
    // NOLINTBEGIN(clang-analyzer-cplusplus.*): the analyzer does not count references
    ~Shared() {
        if (held) {
            held->forget();
        }
    }

    /// Takes over the reference that the object was born with.
    static Shared adopt(T* object) {
        Shared result;
        result.held = object;
        return result;
    }

    void reset() { *this = Shared(); }
    T* get() const { return held; }
    T* operator->() const { return held; }
    T& operator*() const { return *held; }
    // NOLINTEND(clang-analyzer-cplusplus.*)
    explicit operator bool() const { return held != nullptr; }

  private:
    T* held = nullptr;
};

/// Makes an object whose only reference is the result.
template <typename T, typename... Arguments>
Shared<T> makeShared(Arguments&&... arguments) {
    return Shared<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace tessel8
