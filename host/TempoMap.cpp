#include "TempoMap.h"

#include <algorithm>

namespace tessel8::host {

namespace {

constexpr double kSecondsPerMinute = 60;

/// The last stretch that begins at `place` or before; the first one where `place` lies before all.
const TempoMap::Stretch& lastUpTo(const std::vector<TempoMap::Stretch>& stretches, double place,
                                  double TempoMap::Stretch::*begin) {
    const auto next = std::upper_bound(
        stretches.begin() + 1, stretches.end(), place,
        [begin](double value, const TempoMap::Stretch& stretch) { return value < stretch.*begin; });
    return *(next - 1);
}

}  // namespace

void TempoMap::change(double quarters, double bpm) {
    stretches_.push_back({quarters, secondsAt(quarters), bpm});
}

const TempoMap::Stretch& TempoMap::atSeconds(double seconds) const {
    return lastUpTo(stretches_, seconds, &Stretch::seconds);
}

double TempoMap::secondsAt(double quarters) const {
    const Stretch& stretch = lastUpTo(stretches_, quarters, &Stretch::quarters);
    return stretch.seconds + (quarters - stretch.quarters) * kSecondsPerMinute / stretch.bpm;
}

}  // namespace tessel8::host
