#include "Chain.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace tessel8::host {

namespace {

/// Longer than any smoothing of gains takes to come within 0.001 %.
constexpr double kPrerollSeconds = 0.25;

/// Time that the processor has spent on this program, so that a busy machine does not make the
/// effect look slow.
double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

}  // namespace

Chain::Chain(Plugin& plugin, Transport& transport, MidiPlayer midi, int sampleRate, int blockFrames)
    : in(size_t(blockFrames)),
      out(size_t(blockFrames)),
      plugin_(plugin),
      transport_(transport),
      midi_(std::move(midi)),
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
    // The song has not begun: a little silence first, in which gains that glide find their place,
    // as they have in a host that was open before.
    std::fill(in.left.begin(), in.left.end(), 0.0F);
    std::fill(in.right.begin(), in.right.end(), 0.0F);
    const int32_t preroll = int32_t(kPrerollSeconds * sampleRate_);
    for (int32_t left = preroll; left > 0; left -= int32_t(blockFrames())) {
        plugin_.process(in.channels.data(), out.channels.data(),
                        std::min(left, int32_t(blockFrames())));
    }
    transport_.play();
}

void Chain::process(size_t frames) {
    const double before = processorSeconds();
    midi_.play(plugin_, frames);
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
