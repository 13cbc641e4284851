// Which messages and which tempo an effect gets from a MIDI file, and which files are refused.

#include <regex>
#include <sstream>

#include "HostTest.h"

namespace tessel8::host::test {
namespace {

std::string bytes(std::initializer_list<int> values) {
    return {values.begin(), values.end()};
}

/// `body` has at most 255 bytes.
std::string piece(const std::string& name, const std::string& body) {
    return name + bytes({0, 0, 0, int(body.size())}) + body;
}

std::string header(int format, int tracks, int division = 480) {
    return piece("MThd", bytes({0, format, 0, tracks, division >> 8, division & 0xFF}));
}

std::string track(const std::string& events) {
    return piece("MTrk", events + bytes({0, 0xFF, 0x2F, 0}));
}

std::string song(const std::string& events, int division = 480) {
    return header(0, 1, division) + track(events);
}

class MidiTest : public HostTest {
  protected:
    Path midi(const std::string& contents) const {
        std::ofstream(file("song.mid"), std::ios::binary) << contents;
        return file("song.mid");
    }

    /// What the probe gets in a render of 40000 frames at 48 kHz: messages, and the song's blocks
    /// as "START tempo BPM ppq QUARTERS".
    std::string played(const std::string& contents, Strings options) {
        useProbe("");
        options.insert(options.end(), {"--tail", "0", "--midi", midi(contents)});
        rendered(silence(40'000), options);
        const std::regex block("process \\d+ flags 1538 position (.*) rate 48000 (.*)");
        std::istringstream calls(contentsOf(log()));
        std::string result;
        for (std::string line; std::getline(calls, line);) {
            if (std::regex_match(line, block) || line.starts_with("message")) {
                result += std::regex_replace(line, block, "$1 $2") + "\n";
            }
        }
        return result;
    }
};

TEST_F(MidiTest, MessagesAndTempoFollowTheTempoChanges) {
    // 240 BPM until the file tells 120 (after one quarter note) and 60 (half a one later): a
    // quarter note is 12000, then 24000, then 48000 frames.
    const std::string tempos = bytes({0x83, 0x60, 0xFF, 0x51, 3, 0x07, 0xA1, 0x20}) +
                               bytes({0, 0xB1, 9, 9}) +
                               bytes({0x81, 0x70, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40});
    // At ticks 0, 1, 480, 600, 720, 840 and far behind the end of the sound.
    const std::string notes =
        bytes({0, 0xB0, 7, 0, 1, 7, 1, 0x83, 0x5F, 7, 2, 0x78, 7, 3, 0x78, 7, 4}) +
        bytes({0x78, 7, 5, 0xFF, 0xFF, 0xFF, 0x7F, 7, 6});
    const std::string contents = header(1, 2) + track(tempos) + track(notes);
    // The first change lies within a block and waits for its end, the second on a block's start.
    EXPECT_EQ(played(contents, {"--tempo", "240", "--block", "8000"}),
              "message 176 7 0 after 0\nmessage 176 7 1 after 25\n0 tempo 240 ppq 0\n"
              "message 177 9 9 after 4000\nmessage 176 7 2 after 4000\n"
              "8000 tempo 240 ppq 0.666666666666667\n"
              "message 176 7 3 after 2000\n16000 tempo 120 ppq 1.16666666666667\n"
              "message 176 7 4 after 0\n24000 tempo 60 ppq 1.5\n"
              "message 176 7 5 after 4000\n32000 tempo 60 ppq 1.66666666666667\n");
}

TEST_F(MidiTest, RunningStatusHoldsAndWhatIsNoChannelMessageIsPassedOver) {
    // 250 frames a tick: 96 of them are half a second.
    const std::string events =
        bytes({0, 0xB0, 7, 0x40, 10, 7, 0x41, 0, 0xC5, 3, 5, 4}) +
        bytes({0, 0xF0, 3, 1, 2, 0xF7, 1, 0xF7, 1, 0x40, 0, 0xFF, 1, 2, 'h', 'i'}) +
        bytes({16, 0xE1, 0, 0x40, 0, 0xD2, 9, 0x60, 0x90, 0x3C, 0x7F});
    const std::string longHeader = piece("MThd", bytes({0, 0, 0, 1, 0, 96, 1, 2, 3}));
    EXPECT_EQ(
        played(longHeader + piece("XFIH", "?") + track(events) + "rest", {"--block", "40000"}),
        "message 176 7 64 after 0\nmessage 176 7 65 after 2500\nmessage 197 3 0 after 2500\n"
        "message 197 4 0 after 3750\nmessage 225 0 64 after 8000\n"
        "message 210 9 0 after 8000\nmessage 144 60 127 after 32000\n0 tempo 120 ppq 0\n");
}

TEST_F(MidiTest, ControllersMoveTheRealEffect) {
    const Strings dry = {"--set", "Mix=0", "--tail", "0"};
    const Samples still = rendered(noise(48'000), dry).samples;
    Strings moving = dry;  // the controller of the output falls to 0 at 400 ticks of 50 frames
    moving.insert(moving.end(), {"--midi", midi(song(bytes({0x83, 0x10, 0xB0, 2, 0})))});
    const Samples moved = rendered(noise(48'000), moving).samples;
    const auto first = std::mismatch(still.begin(), still.end(), moved.begin()).first;
    const auto frame = (first - still.begin()) / 2;
    EXPECT_GE(frame, 20'000 / 512 * 512);  // where its block begins
    EXPECT_LT(frame, 20'512);
    for (size_t i = moved.size() / 4 * 3; i < moved.size(); ++i) {  // the glide is over
        ASSERT_NEAR(moved[i], 0, 1e-4) << "sample " << i;
    }
}

TEST_F(MidiTest, DamagedFilesAreRefused) {
    writeSound(file("in.wav"), silence(100));
    const auto expectRefusal = [&](const std::string& contents, const std::string& phrase) {
        const Strings options = {"--midi", midi(contents)};
        EXPECT_TRUE(refused(render(file("in.wav"), file("out.wav"), options), phrase));
        EXPECT_FALSE(std::filesystem::exists(file("out.wav")));
    };
    expectRefusal("RIFF, not MIDI", "song.mid is not a MIDI file");
    expectRefusal(piece("MThd", "short") + track(""), "header");
    expectRefusal(header(2, 1) + track(""), "format 2");
    expectRefusal(header(0, 2) + track("") + track(""), "one track");
    expectRefusal(song("", 0xE728), "SMPTE");
    expectRefusal(song("", 0), "0 ticks");
    expectRefusal(song(bytes({0, 7, 0x40})), "track 1 has data where a message");
    for (const std::string& between : {bytes({0xFF, 1, 0}), bytes({0xF0, 1, 0xF7})}) {
        const std::string events = bytes({0, 0xB0, 7, 0x40, 0}) + between + bytes({0, 7, 0x40});
        expectRefusal(song(events), "track 1 has data where a message");
    }
    expectRefusal(song(bytes({0, 0xB0, 7, 0x90})), "message within a message");
    expectRefusal(song(bytes({0, 0xF8})), "cable");
    expectRefusal(song(bytes({0x81, 0x81, 0x81, 0x81, 0, 0xB0, 7, 0x40})), "four bytes");
    expectRefusal(song(bytes({0, 0xFF, 0x51, 3, 0, 0, 0})), "tempo");
    expectRefusal(song(bytes({0, 0xFF, 1, 9, 'h', 'i'})), "song.mid: track 1 breaks off");
    expectRefusal(song(bytes({0, 0xF0, 0x81, 0, 1})), "track 1 breaks off");
    expectRefusal(header(0, 1) + piece("MTrk", bytes({0, 0xB0, 7, 0x40})), "track 1 breaks off");
    const std::string whole = header(1, 2) + track("") + track(bytes({0, 0xB0, 7, 0x40}));
    for (size_t length = 4; length < whole.size(); ++length) {
        expectRefusal(whole.substr(0, length), "breaks off");
    }
}

}  // namespace
}  // namespace tessel8::host::test
