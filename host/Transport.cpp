#include "Transport.h"

#include <utility>

namespace tessel8::host {

namespace {

constexpr double kSecondsPerMinute = 60;
constexpr int32_t kMusicalTimeValid = kVstTempoValid | kVstPpqPosValid;

}  // namespace

Transport::Transport(std::optional<TempoMap> tempo) : tempo_(std::move(tempo)) {
    time_.sampleRate = 44100;  // until `start`; an effect may ask while it is being made
    if (tempo_) {
        time_.flags = kMusicalTimeValid;
        tellMusicalTime();
    }
}

void Transport::start(double sampleRate) {
    time_.sampleRate = sampleRate;
    time_.samplePos = 0;
    tellMusicalTime();
}

void Transport::play() {
    time_.flags |= kVstTransportPlaying;
}

void Transport::advance(int64_t frames) {
    time_.samplePos += double(frames);
    tellMusicalTime();
}

void Transport::follow(const SongPosition& position) {
    time_.samplePos = position.frame;
    if (position.musical) {
        time_.tempo = position.musical->bpm;
        time_.ppqPos = position.musical->quarters;
    } else {
        tellMusicalTime();
    }
    // In one piece, since a panel may ask meanwhile.
    time_.flags = (position.rolling ? kVstTransportPlaying : 0) |
                  (position.musical || tempo_ ? kMusicalTimeValid : 0);
}

void Transport::tellMusicalTime() {
    if (!tempo_) {
        return;
    }
    // From the start of the stretch each time, so that no rounding adds up over a long file.
    const double seconds = time_.samplePos / time_.sampleRate;
    const double halfFrame = 0.5 / time_.sampleRate;  // a change falls on the nearest frame
    const TempoMap::Stretch& stretch = tempo_->atSeconds(seconds + halfFrame);
    time_.tempo = stretch.bpm;
    time_.ppqPos = stretch.quarters + (seconds - stretch.seconds) * stretch.bpm / kSecondsPerMinute;
}

}  // namespace tessel8::host
