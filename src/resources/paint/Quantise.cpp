#include "resources/paint/Quantise.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace tessel8::paint {

namespace {

constexpr size_t kColours = 256;
constexpr size_t kExact = 64;   // of them kept as they are
constexpr int32_t kUnseen = 3;  // largest error of a channel, of 255

struct Counted {
    uint32_t colour;
    uint64_t count;
};

int32_t channel(uint32_t colour, int32_t index) {
    return int32_t(colour >> (8 * index) & 255);
}

/// The channel with the widest spread, and that spread.
std::pair<int32_t, int32_t> widest(std::span<const Counted> colours) {
    std::pair<int32_t, int32_t> best = {0, -1};
    for (int32_t index = 0; index < 3; ++index) {
        int32_t low = 255, high = 0;
        for (const Counted& counted : colours) {
            low = std::min(low, channel(counted.colour, index));
            high = std::max(high, channel(counted.colour, index));
        }
        if (high - low > best.second) {
            best = {index, high - low};
        }
    }
    return best;
}

/// The middle of a group: halfway between its extremes, so that the largest error is smallest.
uint32_t middleOf(std::span<const Counted> colours) {
    uint32_t middle = 0;
    for (int32_t index = 0; index < 3; ++index) {
        int32_t low = 255, high = 0;
        for (const Counted& counted : colours) {
            low = std::min(low, channel(counted.colour, index));
            high = std::max(high, channel(counted.colour, index));
        }
        middle |= uint32_t((low + high) / 2) << (8 * index);
    }
    return middle;
}

std::vector<Counted> coloursOf(const Picture& picture) {
    std::unordered_map<uint32_t, uint64_t> counts;
    for (const uint32_t pixel : picture.pixels) {
        ++counts[pixel];
    }
    std::vector<Counted> colours;
    colours.reserve(counts.size());
    for (const auto& [colour, count] : counts) {
        colours.push_back({colour, count});
    }
    std::sort(colours.begin(), colours.end(), [](const Counted& a, const Counted& b) {
        return a.count != b.count ? a.count > b.count : a.colour < b.colour;
    });
    return colours;
}

}  // namespace

std::optional<Palette> paletteOf(const Picture& picture) {
    std::vector<Counted> colours = coloursOf(picture);
    const size_t exact = colours.size() <= kColours ? colours.size() : kExact;
    Palette palette;
    for (size_t i = 0; i < exact; ++i) {
        palette.indexOf[colours[i].colour] = uint8_t(i);
        palette.colours.push_back(colours[i].colour);
    }
    if (exact == colours.size()) {
        return palette;
    }

    // The group of the widest spread is halved at its middle until the palette is full.
    std::vector<std::span<Counted>> groups = {std::span(colours).subspan(exact)};
    while (groups.size() < kColours - exact) {
        const auto group = std::max_element(
            groups.begin(), groups.end(),
            [](const auto& a, const auto& b) { return widest(a).second < widest(b).second; });
        const auto [index, spread] = widest(*group);
        if (spread == 0) {
            break;
        }
        int32_t low = 255;
        for (const Counted& counted : *group) {
            low = std::min(low, channel(counted.colour, index));
        }
        const int32_t limit = low + spread / 2;
        const auto half = std::partition(group->begin(), group->end(),
                                         [index = index, limit](const Counted& counted) {
                                             return channel(counted.colour, index) <= limit;
                                         });
        const size_t size = size_t(half - group->begin());
        const std::span<Counted> upper = group->subspan(size);
        *group = group->first(size);
        groups.push_back(upper);
    }
    for (const auto& group : groups) {
        const uint32_t middle = middleOf(group);
        if (widest(group).second > 2 * kUnseen) {
            return std::nullopt;
        }
        for (const Counted& counted : group) {
            palette.indexOf[counted.colour] = uint8_t(palette.colours.size());
        }
        palette.colours.push_back(middle);
    }
    return palette;
}

}  // namespace tessel8::paint
