#include "editor/ScrollingTexts.h"

#include <cstdio>
#include <cstring>

#include "toolkit/Relaxed.h"

namespace tessel8 {

namespace {

constexpr uint32_t kBannerPause = 350, kCreditPause = 200;  // milliseconds
constexpr size_t kVersionBytes = 64;                        // more than `getVersion` writes

// Shared by all instances, which some hosts open on threads of their own.
Relaxed<int32_t> bannerPosition = 0, creditPosition = 0;

/// Where the text stands now; the next step is one further.
int32_t advance(Relaxed<int32_t>& position, int32_t length) {
    const int32_t now = position < length ? int32_t(position) : 0;
    position = now + 1 < length ? now + 1 : 0;
    return now;
}

/// Takes `count` characters of the endless text from `from` on, `stride` places apart.
void copyEndless(const char* text, int32_t length, int32_t from, int32_t count, char* line,
                 int32_t stride) {
    for (int32_t i = 0; i < count; ++i) {
        line[i * stride] = length > 0 ? text[(from + i) % length] : ' ';
    }
}

}  // namespace

ScrollingTexts::ScrollingTexts(EffectLink& effect) {
    char version[kVersionBytes] = {};
    effect.getVersion(version);
    version[std::strcspn(version, " ")] = 0;  // without the build
    std::snprintf(bannerText.data(), bannerText.size(), "%s %s%8s", kProductName, version, "");
    bannerLength = int32_t(std::strlen(bannerText.data()));
}

void ScrollingTexts::composeCredits(EffectLink& effect) {
    char version[kVersionBytes] = {};
    effect.getVersion(version);
    std::snprintf(creditText.data(), creditText.size(),
                  "%s %s - eight taps, three feedback topologies - "
                  "made by the contributors of the Tessel8 project%20s",
                  kProductName, version, "");
    creditLength = int32_t(std::strlen(creditText.data()));
}

const char* ScrollingTexts::nextBanner(uint32_t tick) {
    if (tick - bannerStamp <= kBannerPause) {
        return nullptr;
    }
    bannerStamp = tick;
    bannerLine.fill(' ');
    copyEndless(bannerText.data(), bannerLength, advance(bannerPosition, bannerLength),
                kBannerCharacters, bannerLine.data(), 2);
    bannerLine[bannerLine.size() - 2] = bannerLine[bannerLine.size() - 1] = 0;
    return bannerLine.data();
}

const char* ScrollingTexts::nextCredit(uint32_t tick) {
    if (tick - creditStamp <= kCreditPause) {
        return nullptr;
    }
    creditStamp = tick;
    copyEndless(creditText.data(), creditLength, advance(creditPosition, creditLength),
                kCreditCharacters, creditLine.data(), 1);
    creditLine[kCreditCharacters] = 0;
    return creditLine.data();
}

}  // namespace tessel8
