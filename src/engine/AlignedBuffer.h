#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

namespace tessel8 {

/// A block of floats on a 64-byte boundary (one cache line), or nothing. Asking for memory never
/// throws: the owner tests the buffer and lives on without it.
class AlignedBuffer {
  public:
    AlignedBuffer() = default;
    AlignedBuffer(const AlignedBuffer&) = delete;
    AlignedBuffer& operator=(const AlignedBuffer&) = delete;
    AlignedBuffer(AlignedBuffer&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}
    AlignedBuffer& operator=(AlignedBuffer&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        return *this;
    }
    ~AlignedBuffer() { release(); }

    /// Replaces the block by one of `count` floats, all zero. False leaves the buffer empty.
    bool allocate(size_t count) {
        release();
        data_ = static_cast<float*>(
            ::operator new (count * sizeof(float), std::align_val_t{kAlignment}, std::nothrow));
        size_ = data_ ? count : 0;
        clear();
        return data_ != nullptr;
    }

    void release() {
        ::operator delete (data_, std::align_val_t{kAlignment});
        data_ = nullptr;
        size_ = 0;
    }

    void clear() {
        if (data_) {
            std::memset(data_, 0, size_ * sizeof(float));
        }
    }

    explicit operator bool() const { return data_ != nullptr; }
    float* data() { return data_; }
    const float* data() const { return data_; }
    size_t size() const { return size_; }
    float& operator[](size_t i) { return data_[i]; }
    float operator[](size_t i) const { return data_[i]; }

  private:
    static constexpr size_t kAlignment = 64;
    float* data_ = nullptr;
    size_t size_ = 0;
};

}  // namespace tessel8
