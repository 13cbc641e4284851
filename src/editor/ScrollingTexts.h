#pragma once

#include <array>
#include <cstdint>

#include "editor/EffectLink.h"

namespace tessel8 {

/// What runs through the display while no control has been touched: the product's name through the
/// big line, the credits through the small one. Both wrap around with no gap but their own trailing
/// blanks, and are paced by the clock: a slow idle makes the steps fewer, not shorter. Where each
/// text stands is one for the whole process, so that two open panels step the same texts on.
class ScrollingTexts {
  public:
    static constexpr int32_t kBannerCharacters = 12;
    static constexpr int32_t kCreditCharacters = 35;

    explicit ScrollingTexts(EffectLink& effect);

    /// Writes the credits anew, at most 1023 characters; done when the panel opens.
    void composeCredits(EffectLink& effect);

    /// The big line's next step, to be written raw: characters with blanks between them. Null
    /// unless more than 350 ms have passed since the last one. `tick` in milliseconds.
    const char* nextBanner(uint32_t tick);
    /// The small line's next step; null unless more than 200 ms have passed.
    const char* nextCredit(uint32_t tick);

  private:
    std::array<char, 64> bannerText{};
    std::array<char, 1024> creditText{};
    int32_t bannerLength = 0, creditLength = 0;
    uint32_t bannerStamp = 0, creditStamp = 0;
    std::array<char, 2 * kBannerCharacters + 1> bannerLine{};
    std::array<char, kCreditCharacters + 1> creditLine{};
};

}  // namespace tessel8
