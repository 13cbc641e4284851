#include "Transport.h"

namespace tessel8::host {

namespace {

constexpr double kSecondsPerMinute = 60;

}  // namespace

Transport::Transport(std::optional<double> tempo) {
    time_.sampleRate = 44100;  // until `start`; an effect may ask while it is being made
    if (tempo) {
        time_.tempo = *tempo;
        time_.flags = kVstTempoValid | kVstPpqPosValid;
    }
}

void Transport::start(double sampleRate) {
    time_.sampleRate = sampleRate;
    time_.samplePos = 0;
    time_.ppqPos = 0;
}

void Transport::play() {
    time_.flags |= kVstTransportPlaying;
}

void Transport::advance(int64_t frames) {
    time_.samplePos += double(frames);
    // From the start each time, so that no rounding adds up over a long file.
    time_.ppqPos = time_.samplePos / time_.sampleRate * time_.tempo / kSecondsPerMinute;
}

}  // namespace tessel8::host
