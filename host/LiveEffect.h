#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <vector>

#include "MidiEvents.h"
#include "Parameters.h"
#include "Plugin.h"
#include "Transport.h"

namespace tessel8::host {

/// How sound is handed over.
struct StreamFormat {
    int sampleRate = 0;   ///< Hz
    int blockFrames = 0;  ///< the most in one block

    bool operator==(const StreamFormat&) const = default;
};

/// One block of sound in memory of the caller, with what goes along with it.
struct LiveBlock {
    std::array<float*, 2> inputs;
    std::array<float*, 2> outputs;
    int32_t frames;
    SongPosition song;
    MidiEvents& midi;  ///< is empty afterwards
};

/// An effect between an audio thread, which only processes, and the main thread, which does
/// everything else.
class LiveEffect {
  public:
    /// Both must outlive this.
    LiveEffect(Plugin& plugin, Transport& transport) : plugin_(plugin), transport_(transport) {}

    /// Main thread: starts the effect with these settings. Throws UserError where it is not one for
    /// stereo.
    void start(StreamFormat format, const std::vector<Setting>& settings);

    /// Any thread: there is silence from the next block on, until `keepTo`.
    void hold() { isOpen_ = false; }

    /// Main thread: takes over the format if it is another one, whereby the effect forgets what it
    /// has heard, and lets it go on. Throws UserError for a rate that the effect does not take, and
    /// if the audio thread never comes back out of the effect.
    void keepTo(StreamFormat format);

    /// Audio thread: neither waits nor allocates. The output is silence while the effect is
    /// not let go, and for a block that is longer than announced.
    void process(const LiveBlock& block) noexcept;

  private:
    void prepare(StreamFormat format);
    void holdNow();

    Plugin& plugin_;
    Transport& transport_;
    StreamFormat format_;               // read by the audio thread only inside
    std::atomic<bool> isOpen_ = false;  // the audio thread may go in
    std::atomic<bool> isInside_ = false;
};

}  // namespace tessel8::host
