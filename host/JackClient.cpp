#include "JackClient.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "JackTime.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

/// As many as JACK's buffer of 32 KiB for a MIDI port can hold.
constexpr size_t kMostMidiMessages = 4096;

// Channel messages begin with a byte from the one to before the other. A clock is no business of
// an effect that is told the tempo, and 24 times a quarter note it would light up its MIDI lamp.
constexpr uint8_t kFirstChannelMessage = 0x80;
constexpr uint8_t kFirstSystemMessage = 0xF0;

/// The library would write its own lines to the terminal; ours say all that matters.
void keepSilent(const char* /*message*/) {}

void checkName(const std::string& name, size_t mostBytes) {
    if (name.empty() || name.size() > mostBytes || name.find(':') != std::string::npos) {
        throw UserError("--name " + inQuotes(name) + ": expected 1 to " +
                        std::to_string(mostBytes) + " bytes without a colon");
    }
}

}  // namespace

JackClient::JackClient(const std::string& name, LiveEffect& effect)
    : effect_(effect), midi_(kMostMidiMessages), client_(open(name), {jack_.clientClose}) {
    inputs_ = {addPort("in_left", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput),
               addPort("in_right", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput)};
    outputs_ = {addPort("out_left", JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput),
                addPort("out_right", JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput)};
    midiInput_ = addPort("midi_in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput);

    const auto formatChanged = [](jack_nframes_t, void* self) {
        static_cast<JackClient*>(self)->effect_.hold();
        return 0;
    };
    jack_client_t* const client = client_.get();
    jack_.setBufferSizeCallback(client, formatChanged, this);
    jack_.setSampleRateCallback(client, formatChanged, this);
    jack_.setProcessCallback(
        client,
        [](jack_nframes_t frames, void* self) {
            static_cast<JackClient*>(self)->process(frames);
            return 0;
        },
        this);
    jack_.setXrunCallback(
        client,
        [](void* self) {
            ++static_cast<JackClient*>(self)->xruns_;
            return 0;
        },
        this);
    jack_.onShutdown(
        client, [](void* self) { static_cast<JackClient*>(self)->isGone_ = true; }, this);
}

jack_client_t* JackClient::open(const std::string& name) const {
    checkName(name, size_t(jack_.clientNameSize()) - 1);  // it counts the 0 at the end
    jack_.setErrorFunction(keepSilent);
    jack_.setInfoFunction(keepSilent);
    jack_status_t status{};
    jack_client_t* const client = jack_.clientOpen(name.c_str(), JackNoStartServer, &status);
    if (client == nullptr) {
        const bool noServer = (unsigned(status) & unsigned(JackServerFailed)) != 0;
        throw UserError(noServer
                            ? "there is no JACK server: start jackd, or use pw-jack on PipeWire"
                            : "the JACK server does not take a client " + inQuotes(name));
    }
    return client;
}

jack_port_t* JackClient::addPort(const char* name, const char* type, JackPortFlags direction) {
    jack_port_t* const port = jack_.portRegister(client_.get(), name, type, direction, 0);
    if (port == nullptr) {
        throw UserError("the JACK server does not take the port " + std::string(name));
    }
    return port;
}

void JackClient::activate() {
    if (jack_.activate(client_.get()) != 0) {
        throw UserError("the JACK server does not start the client");
    }
}

StreamFormat JackClient::format() const {
    return {int(jack_.getSampleRate(client_.get())), int(jack_.getBufferSize(client_.get()))};
}

bool JackClient::connectToHardware() const {
    const bool heard = connectAudio(outputs_, JackPortIsInput);
    return connectAudio(inputs_, JackPortIsOutput) && heard;
}

bool JackClient::connectAudio(const std::array<jack_port_t*, 2>& ports,
                              JackPortFlags otherEnd) const {
    const char** const others = jack_.getPorts(client_.get(), nullptr, JACK_DEFAULT_AUDIO_TYPE,
                                               unsigned(otherEnd) | unsigned(JackPortIsPhysical));
    bool isConnected = true;
    for (size_t i = 0; others != nullptr && i < ports.size() && others[i] != nullptr; ++i) {
        const char* source = jack_.portName(ports[i]);
        const char* target = others[i];
        if (otherEnd == JackPortIsOutput) {
            std::swap(source, target);
        }
        const int error = jack_.connect(client_.get(), source, target);
        isConnected = isConnected && (error == 0 || error == EEXIST);
    }
    jack_.free(static_cast<void*>(others));
    return isConnected;
}

void JackClient::process(jack_nframes_t frames) {
    jack_position_t position{};
    const bool rolling = jack_.transportQuery(client_.get(), &position) == JackTransportRolling;
    takeMidi(frames);
    const LiveBlock block{{audio(inputs_[0], frames), audio(inputs_[1], frames)},
                          {audio(outputs_[0], frames), audio(outputs_[1], frames)},
                          int32_t(frames),
                          songPositionOf(position, rolling),
                          midi_};
    effect_.process(block);
}

void JackClient::takeMidi(jack_nframes_t frames) {
    void* const buffer = jack_.portGetBuffer(midiInput_, frames);
    const uint32_t count = jack_.midiGetEventCount(buffer);
    for (uint32_t i = 0; i < count && midi_.size() < kMostMidiMessages; ++i) {
        jack_midi_event_t event{};
        std::array<uint8_t, 3> message{};
        if (jack_.midiEventGet(&event, buffer, i) != 0 || event.size == 0 ||
            event.size > message.size() || event.buffer[0] < kFirstChannelMessage ||
            event.buffer[0] >= kFirstSystemMessage) {
            continue;
        }
        std::copy_n(event.buffer, event.size, message.begin());
        midi_.add(message, int32_t(std::min(event.time, frames - 1)));
    }
}

}  // namespace tessel8::host
