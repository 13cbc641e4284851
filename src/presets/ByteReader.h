#pragma once

#include <cstdint>
#include <cstring>
#include <span>

namespace tessel8 {

/// Reverses the four bytes at `pointer` in place.
inline void swapBytes32(void* pointer) {
    uint32_t word;
    std::memcpy(&word, pointer, sizeof word);
    word = __builtin_bswap32(word);
    std::memcpy(pointer, &word, sizeof word);
}

/// Reads forwards through bytes that may be cut off or lie about themselves. A read beyond the end
/// gives zeros and leaves the reader failed for good, so a caller may test once at the end.
class ByteReader {
  public:
    /// `swap`: the numbers were written in the other byte order.
    ByteReader(std::span<const uint8_t> data, bool swap) : rest(data), swapped(swap) {}

    bool failed() const { return hasFailed; }
    size_t remaining() const { return rest.size(); }

    uint32_t word() {
        uint32_t value = 0;
        copy(&value, sizeof value);
        return swapped ? __builtin_bswap32(value) : value;
    }
    int32_t integer() { return int32_t(word()); }
    float number() {
        const uint32_t bits = word();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    /// Raw bytes, never swapped.
    void copy(void* to, size_t count) {
        const std::span<const uint8_t> from = take(count);
        if (from.empty()) {
            std::memset(to, 0, count);
        } else {
            std::memcpy(to, from.data(), count);
        }
    }
    /// The next `count` bytes as a reader of their own, empty and failed if there are not as many.
    ByteReader part(size_t count) {
        const bool whole = count <= rest.size();
        ByteReader inner(take(count), swapped);
        inner.hasFailed = !whole;
        return inner;
    }
    void skip(size_t count) { take(count); }

  private:
    std::span<const uint8_t> take(size_t count) {
        if (count > rest.size()) {
            hasFailed = true;
            rest = {};
            return {};
        }
        const std::span<const uint8_t> taken = rest.first(count);
        rest = rest.subspan(count);
        return taken;
    }

    std::span<const uint8_t> rest;
    bool swapped;
    bool hasFailed = false;
};

/// Writes forwards in this machine's byte order into a buffer that is large enough.
class ByteWriter {
  public:
    explicit ByteWriter(uint8_t* buffer) : at(buffer) {}

    void word(uint32_t value) { copy(&value, sizeof value); }
    void number(float value) { copy(&value, sizeof value); }
    void copy(const void* from, size_t count) {
        std::memcpy(at, from, count);
        at += count;
    }
    void zeros(size_t count) {
        std::memset(at, 0, count);
        at += count;
    }

  private:
    uint8_t* at;
};

}  // namespace tessel8
