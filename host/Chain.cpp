#include "Chain.h"

#include <algorithm>
#include <ctime>

namespace tessel8::host {

namespace {

/// Time that the processor has spent on this program, so that a busy machine does not make the
/// effect look slow.
double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

}  // namespace

Chain::Chain(Plugin& plugin, Transport& transport, int sampleRate, int blockFrames)
    : in(size_t(blockFrames)),
      out(size_t(blockFrames)),
      plugin_(plugin),
      transport_(transport),
      sampleRate_(sampleRate) {
    transport_.start(sampleRate);
    plugin_.prepare(float(sampleRate), blockFrames);
}

void Chain::startWith(const std::vector<Setting>& settings) {
    for (const Setting& setting : settings) {
        plugin_.setParameter(setting.index, setting.value);
    }
    // Behind the settings: a delay that is changed while the effect runs fades in.
    plugin_.start();
    // Empty, so that what the effect puts off until a block is done before the first sample.
    plugin_.process(in.channels.data(), out.channels.data(), 0);
}

void Chain::process(size_t frames) {
    const double before = processorSeconds();
    plugin_.process(in.channels.data(), out.channels.data(), int32_t(frames));
    processorSeconds_ += processorSeconds() - before;
    processedFrames_ += int64_t(frames);
    transport_.advance(int64_t(frames));
}

double Chain::timesRealTime() const {
    // A file of a few frames can take less than the clock's step.
    constexpr double kClockStep = 1e-9;
    return double(processedFrames_) / sampleRate_ / std::max(processorSeconds_, kClockStep);
}

}  // namespace tessel8::host
