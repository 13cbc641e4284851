// The effect on a JACK server without hardware, which each test has for itself.

#include <jack/jack.h>
#include <jack/midiport.h>
#include <future>

#include "HostTest.h"

namespace tessel8::host::test {
namespace {

bool soon(const auto& condition) {
    int tries = 2000;
    while (!condition() && --tries > 0) {
        usleep(5000);
    }
    return tries > 0;
}

/// A JACK client that feeds a level and a controller, keeps the song's time, and listens.
class LiveTest : public HostTest {
  protected:
    void SetUp() override {
        if (std::getenv("JACKD_PID") == nullptr) {
            GTEST_SKIP() << "no JACK server: jackd of the package jackd2 does not start here";
        }
        ASSERT_TRUE(client_ = jack_client_open("peer", JackNoStartServer, nullptr));
        const auto port = [&](const char* name, const char* type, JackPortFlags direction) {
            return jack_port_register(client_, name, type, direction, 0);
        };
        send_ = port("send", JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput);
        hear_ = port("hear", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput);
        midi_ = port("midi", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput);
        const auto call = [](auto n, void* me) { return static_cast<LiveTest*>(me)->process(n); };
        ASSERT_EQ(jack_set_process_callback(client_, call, this) + jack_activate(client_), 0);
    }
    ~LiveTest() override { client_ != nullptr ? jack_client_close(client_) : 0; }

    int process(jack_nframes_t frames) {
        std::fill_n(static_cast<float*>(jack_port_get_buffer(send_, frames)), frames, 0.25F);
        heard_ = *static_cast<float*>(jack_port_get_buffer(hear_, frames));
        void* const messages = jack_port_get_buffer(midi_, frames);
        jack_midi_clear_buffer(messages);
        if (turnDown_.exchange(false)) {
            const jack_midi_data_t clock = 0xF8, output[] = {0xB0, 2, 0};
            jack_midi_event_write(messages, 50, &clock, 1);
            jack_midi_event_write(messages, 100, output, sizeof output);
        }
        return 0;
    }
    std::future<HostRun> start(Strings options, const Surroundings& surroundings = {}) const {
        options.insert(options.begin(),
                       {"live", "--plugin", plugin_, "--name", "t8", "--seconds", "60"});
        return std::async(std::launch::async, [=, this] { return runHost(options, surroundings); });
    }
    bool connect(const char* from, const char* to) const {
        return soon([&] { return jack_connect(client_, from, to) == 0; });
    }

    jack_client_t* client_ = nullptr;
    jack_port_t *send_ = nullptr, *hear_ = nullptr, *midi_ = nullptr;
    std::atomic<float> heard_ = 0;
    std::atomic<bool> turnDown_ = false;
};

TEST_F(LiveTest, SoundPassesControllersMoveItAndALostServerEndsIt) {
    unsetenv("DISPLAY");
    auto run = start({"--set", "Mix=0", "--no-panel"});
    ASSERT_TRUE(connect("t8:out_right", "peer:hear") && connect("peer:send", "t8:in_right") &&
                connect("peer:midi", "t8:midi_in"));
    const auto* const left = jack_port_by_name(client_, "t8:out_left");
    EXPECT_TRUE(soon([&] { return jack_port_connected_to(left, "system:playback_1") == 1; }));
    EXPECT_TRUE(soon([&] { return std::abs(heard_ - 0.25F) < 1e-4F; })) << heard_;
    turnDown_ = true;
    EXPECT_TRUE(soon([&] { return std::abs(heard_) < 1e-4F; })) << heard_;
    kill(pid_t(std::stol(std::getenv("JACKD_PID"))), SIGTERM);
    EXPECT_TRUE(refused(run.get(), "the JACK server has gone away"));
    const HostRun without = start({}).get();
    EXPECT_EQ(without.exitCode, 2);
    // JACK's own library may complain before.
    EXPECT_NE(without.err.find("tessel8: there is no JACK server"), std::string::npos);
}

TEST_F(LiveTest, TheEffectIsToldTheSongTheMessagesAndTheFormat) {
    useProbe("panel");
    auto run =
        start({"--no-connect", "--tempo", "100"}, {.signal = SIGTERM, .after = "process 512"});
    ASSERT_TRUE(connect("peer:midi", "t8:midi_in"));
    const auto told = [&](const char* text) {
        return soon([&] { return contentsOf(log()).find(text) != std::string::npos; });
    };
    EXPECT_TRUE(told("process 256 flags 1536 position 0 rate 48000 tempo 100 ppq 0\n"));
    turnDown_ = true;
    EXPECT_TRUE(told("message 176 2 0 after 100\n"));
    const auto timebase = [](auto, auto, jack_position_t* song, int, void*) {
        song->valid = JackPositionBBT;
        song->bar = 3, song->beat = 4, song->tick = 960, song->ticks_per_beat = 1920;
        song->beats_per_bar = 6, song->beat_type = 8, song->beats_per_minute = 180;
    };
    jack_set_timebase_callback(client_, 0, timebase, nullptr);
    jack_transport_start(client_);
    EXPECT_TRUE(told("rate 48000 tempo 90 ppq 7.75\n") && told("process 256 flags 1538 "));
    EXPECT_EQ(jack_set_buffer_size(client_, 512), 0);
    const HostRun ended = run.get();
    EXPECT_TRUE(succeeded(ended));
    EXPECT_NE(ended.out.find("at 48000 Hz in blocks of 512 frames"), std::string::npos);
    EXPECT_TRUE(told("mains 0\nrate 48000\nblock 512\nmains 1\n"));
    EXPECT_TRUE(told("panel closed\n") && told("mains 0\nclose\nunload\n"));
    EXPECT_EQ(contentsOf(log()).find("message 248"), std::string::npos);
}

}  // namespace
}  // namespace tessel8::host::test
