#pragma once

#include <array>
#include <atomic>
#include <memory>
#include <string>

#include "JackLibrary.h"
#include "LiveEffect.h"
#include "MidiEvents.h"

namespace tessel8::host {

/// An effect's place in JACK's graph: the ports in_left, in_right, out_left, out_right and midi_in.
/// All calls but the callbacks belong to the main thread.
class JackClient {
  public:
    /// Signs on under `name`, or that name with a number where it is taken; the effect must outlive
    /// this. Throws UserError for a name that JACK does not take and where no server runs; none is
    /// started.
    JackClient(const std::string& name, LiveEffect& effect);

    /// From now on the effect is asked for sound; it is started already.
    void activate();

    /// Connects the audio ports with the first two of the hardware's in either direction, as far as
    /// there are so many. False where JACK has refused a connection.
    bool connectToHardware() const;

    /// The server may change it at any time; the effect falls silent then until it has taken it
    /// over.
    StreamFormat format() const;

    /// How much of the time of a block all clients together take, in percent; smoothed by JACK.
    float load() const { return jack_.cpuLoad(client_.get()); }
    int xruns() const { return xruns_; }

    /// The server has ended or has put this client out; nothing but the destructor makes sense.
    bool isGone() const { return isGone_; }

  private:
    struct Close {
        decltype(&jack_client_close) close;
        void operator()(jack_client_t* client) const { close(client); }
    };

    jack_client_t* open(const std::string& name) const;
    jack_port_t* addPort(const char* name, const char* type, JackPortFlags direction);
    void process(jack_nframes_t frames);
    void takeMidi(jack_nframes_t frames);
    float* audio(jack_port_t* port, jack_nframes_t frames) const {
        return static_cast<float*>(jack_.portGetBuffer(port, frames));
    }
    bool connectAudio(const std::array<jack_port_t*, 2>& ports, JackPortFlags otherEnd) const;

    const JackLibrary jack_;
    LiveEffect& effect_;
    MidiEvents midi_;
    std::atomic<bool> isGone_ = false;
    std::atomic<int> xruns_ = 0;
    std::array<jack_port_t*, 2> inputs_{};
    std::array<jack_port_t*, 2> outputs_{};
    jack_port_t* midiInput_ = nullptr;
    std::unique_ptr<jack_client_t, Close> client_;  // last: once it is closed nobody calls us
};

}  // namespace tessel8::host
