#pragma once

#include <cstdint>

namespace tessel8 {

class EffectLink;

/// Delays or the tempo by tapping. By `Tap_Pad` a run of taps sets one tap's delay after the other,
/// each the time since the first tap, or the tempo as the mean of all taps so far. All times are
/// ticks in milliseconds.
class TapPad {
  public:
    explicit TapPad(EffectLink& link) : effect(link) {}

    /// The pad went down (value not 0) or up. True if delays have changed.
    bool press(float value, uint32_t now);
    /// Ends a run that has come to its end. True if it has ended now.
    bool endRunInTime(uint32_t now);
    void endRun();
    /// True while a run lasts: the pad is lit.
    bool isRunning() const { return tempoRun || delayRun; }

  private:
    bool setDelay(uint32_t now);
    bool setTempo(uint32_t now);

    EffectLink& effect;
    int32_t count = 0;
    bool latch = false;  ///< a press has come in: the next call is its end
    bool tempoRun = false, delayRun = false;
    uint32_t padStamp = 0;       ///< delays: the first tap; tempo: the last
    uint32_t firstTapStamp = 0;  ///< tempo: the first tap
};

}  // namespace tessel8
