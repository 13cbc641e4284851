#pragma once

#include <cstdint>

#include "engine/AlignedBuffer.h"

namespace tessel8 {

/// The delay lines of four taps for one channel, each `ringLen` samples in a circle.
///
/// A line lies in one piece, so that a stretch of frames is read and written as whole cache
/// lines. The lines stand apart by a little more than their length: lines a multiple of 4096
/// bytes apart would share cache sets and evict each other. The gap behind a line also lets a
/// reader take whole vectors past a line's end.
class DelayRing {
  public:
    static constexpr int kLines = 4;
    static constexpr int kGap = 80;

    bool allocate(int32_t ringLen) {
        stride_ = (ringLen + 15) / 16 * 16 + kGap;
        return cells_.allocate(size_t(stride_) * kLines);
    }
    void release() { cells_.release(); }
    void clear() { cells_.clear(); }
    explicit operator bool() const { return bool(cells_); }

    float* line(int lane) { return cells_.data() + size_t(stride_) * size_t(lane); }
    const float* line(int lane) const { return cells_.data() + size_t(stride_) * size_t(lane); }

  private:
    AlignedBuffer cells_;
    int32_t stride_ = 0;
};

}  // namespace tessel8
