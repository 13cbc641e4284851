#pragma once

#include <future>
#include <optional>
#include <stop_token>

#include "AudioReader.h"
#include "Chain.h"

namespace tessel8::host {

/// Sends sound through the effect as fast as an audio device would ask for it, on a thread of its
/// own, until the destructor. Nobody hears the output.
class LiveAudio {
  public:
    /// `input` is repeated for ever; without one there is silence. The chain is started already,
    /// must outlive this, and nobody else may process it meanwhile.
    LiveAudio(Chain& chain, std::optional<AudioReader> input);
    ~LiveAudio();
    LiveAudio(const LiveAudio&) = delete;
    LiveAudio& operator=(const LiveAudio&) = delete;

    /// Throws UserError if the input could not be read any further.
    void check();

  private:
    std::stop_source stop_;
    std::future<void> run_;
};

}  // namespace tessel8::host
