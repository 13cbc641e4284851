#include "parameters/ControlTags.h"

#include <algorithm>
#include <iterator>

namespace tessel8 {

namespace {

struct TagRange {
    int32_t first, last;

    bool holds(int32_t tag) const { return tag >= first && tag <= last; }
};

/// Tags that stand for parameters: tag + shift, or one parameter for all of them.
struct Mapping {
    TagRange tags;
    int32_t shift;
    int32_t single = -1;

    int32_t parameterOf(int32_t tag) const { return single >= 0 ? single : tag + shift; }
};

constexpr Mapping kMappings[] = {
    {{9, 11}, 0, 11},    // note keys and digits of the LFO: its frequency
    {{218, 225}, -170},  // bars of the gain
    {{226, 233}, -194},  // bars of the feedback amount
    {{234, 249}, -178},  // bars of width and balance
    {{250, 289}, -170},  // bars of frequency, resonance, gain, source and depth
    {{290, 297}, -146},  // bars of the drive
    {{298, 305}, -138},  // bars of the reverb send
    {{308, 309}, 0, 6},  // note keys
    {{310, 311}, 0, 5},  // tempo keys
    {{312, 319}, -288},  // delay one step down
    {{320, 327}, -296},  // delay one step up
};

constexpr TagRange kNotLearnt[] = {
    {kTagNone, kTagNone}, {7, 7},     {120, 127}, {184, 191}, {193, 200},
    {205, 205},           {306, 307}, {328, 337}, {357, 357},
};

}  // namespace

int32_t parameterOfTag(int32_t tag) {
    const auto row = std::find_if(std::begin(kMappings), std::end(kMappings),
                                  [tag](const Mapping& m) { return m.tags.holds(tag); });
    return row == std::end(kMappings) ? tag : row->parameterOf(tag);
}

bool canBeLearnt(int32_t tag) {
    return std::none_of(std::begin(kNotLearnt), std::end(kNotLearnt),
                        [tag](const TagRange& range) { return range.holds(tag); });
}

}  // namespace tessel8
