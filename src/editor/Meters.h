#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessel8 {

/// The two level meters with their clip lamps, by the clock: levels fall by the whole scale in a
/// second, a lamp stays lit for five. Meter 0 is the upper one.
class Meters {
  public:
    struct Levels {
        float upper, lower;
    };

    explicit Meters(uint32_t now) : lastPass(now), clipStamps{now, now} {}

    /// Takes the peaks since the last pass (linear, 1 is full scale). The scale runs over five
    /// natural units of the logarithm: 0 at 1/e^5, 1 at full scale.
    void pass(uint32_t now, const Levels& peaks);
    /// Puts lamps out whose time is over.
    void endClips(uint32_t now);
    void clearClips() { clips = {}; }

    float level(int32_t meter) const { return levels[size_t(meter)]; }
    bool isClipping(int32_t meter) const { return clips[size_t(meter)]; }

  private:
    std::array<float, 2> levels{};
    std::array<bool, 2> clips{};
    uint32_t lastPass;
    std::array<uint32_t, 2> clipStamps;
};

}  // namespace tessel8
