#include "LiveAudio.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include "UserError.h"

namespace tessel8::host {

namespace {

using Clock = std::chrono::steady_clock;

/// A thread that comes late makes up for so much; what is older was a pause of the machine.
constexpr std::chrono::milliseconds kMostLateness{100};

/// Fills the block; the file begins anew where it ends.
void fillLooped(AudioReader& reader, Block& block) {
    const size_t frames = block.left.size();
    for (size_t done = 0; done < frames;) {
        const auto read = [&] {
            return reader.read(block.left.data() + done, block.right.data() + done, frames - done);
        };
        size_t got = read();
        if (got == 0) {
            reader.rewind();
            got = read();
        }
        if (got == 0) {
            throw UserError("the input cannot be repeated: nothing could be read again");
        }
        done += got;
    }
}

void play(Chain& chain, std::optional<AudioReader> input, const std::stop_token& stop) {
    const auto blockTime = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(double(chain.blockFrames()) / chain.sampleRate()));
    std::fill(chain.in.left.begin(), chain.in.left.end(), 0.0F);
    std::fill(chain.in.right.begin(), chain.in.right.end(), 0.0F);
    for (Clock::time_point due = Clock::now(); !stop.stop_requested();) {
        if (input) {
            fillLooped(*input, chain.in);
        }
        chain.process(chain.blockFrames());
        due = std::max(due + blockTime, Clock::now() - kMostLateness);
        std::this_thread::sleep_until(due);
    }
}

}  // namespace

LiveAudio::LiveAudio(Chain& chain, std::optional<AudioReader> input)
    : run_(std::async(std::launch::async,
                      [&chain, reader = std::move(input), stop = stop_.get_token()]() mutable {
                          play(chain, std::move(reader), stop);
                      })) {}

LiveAudio::~LiveAudio() {
    stop_.request_stop();
    if (run_.valid()) {
        run_.wait();
    }
}

void LiveAudio::check() {
    if (run_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        run_.get();
    }
}

}  // namespace tessel8::host
