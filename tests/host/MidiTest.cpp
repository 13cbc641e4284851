// Which messages and which tempo an effect gets from a MIDI file, and which files are refused.

#include <regex>
#include <sstream>

#include "HostTest.h"

namespace tessel8::host::test {
namespace {

std::string bytes(std::initializer_list<int> values) {
    return {values.begin(), values.end()};
}

std::string bigEndian(uint32_t value, int count) {
    std::string result;
    while (count-- > 0) {
        result += char(value >> 8 * count & 0xFF);
    }
    return result;
}

/// A piece of the file that claims `more` bytes than it has.
std::string piece(const std::string& name, const std::string& body, uint32_t more = 0) {
    return name + bigEndian(uint32_t(body.size()) + more, 4) + body;
}

std::string header(uint32_t format, uint32_t tracks, uint32_t division = 480) {
    return piece("MThd", bigEndian(format, 2) + bigEndian(tracks, 2) + bigEndian(division, 2));
}

const std::string kEnd = bytes({0, 0xFF, 0x2F, 0});

std::string track(const std::string& events) {
    return piece("MTrk", events + kEnd);
}

/// A song of one track.
std::string song(const std::string& events, uint32_t division = 480) {
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
    std::string played(const std::string& contents, Strings options = {}) {
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
    EXPECT_EQ(played(contents, {"--tempo", "240", "--block", "12000"}),
              "message 176 7 0 after 0\nmessage 176 7 1 after 25\n0 tempo 240 ppq 0\n"
              "message 177 9 9 after 0\nmessage 176 7 2 after 0\nmessage 176 7 3 after 6000\n12000 "
              "tempo 120 ppq 1\n"
              "message 176 7 4 after 0\n24000 tempo 60 ppq 1.5\n"
              "message 176 7 5 after 0\n36000 tempo 60 ppq 1.75\n");
    // Changes within a block wait for its end; 4000 frames after the first are 1/6 of a quarter.
    EXPECT_EQ(played(contents, {"--tempo", "240", "--block", "16000"}),
              "message 176 7 0 after 0\nmessage 176 7 1 after 25\n"
              "message 177 9 9 after 12000\nmessage 176 7 2 after 12000\n0 tempo 240 ppq 0\n"
              "message 176 7 3 after 2000\nmessage 176 7 4 after 8000\n"
              "16000 tempo 120 ppq 1.16666666666667\n"
              "message 176 7 5 after 4000\n32000 tempo 60 ppq 1.66666666666667\n");
    // Nobody has told the first tempo: 120, and the first quarter note lasts twice as long.
    EXPECT_EQ(played(contents, {"--block", "40000"}),
              "message 176 7 0 after 0\nmessage 176 7 1 after 50\nmessage 177 9 9 after "
              "24000\nmessage 176 7 2 after 24000\n"
              "message 176 7 3 after 30000\nmessage 176 7 4 after 36000\n0 tempo 120 ppq 0\n");
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

TEST_F(MidiTest, DamagedFilesAreRefused) {
    writeSound(file("in.wav"), silence(100));
    const auto expectRefusal = [&](const std::string& contents, const std::string& phrase) {
        const Path name = midi(contents);
        const HostRun run = render(file("in.wav"), file("out.wav"), {"--midi", name});
        EXPECT_TRUE(refused(run, "song.mid")) << phrase;
        EXPECT_TRUE(refused(run, phrase));
        EXPECT_FALSE(std::filesystem::exists(file("out.wav")));
    };
    expectRefusal("RIFF, not MIDI", "is not a MIDI file");
    expectRefusal(piece("MThd", "short") + track(""), "header");
    expectRefusal(header(2, 1) + track(""), "format 2");
    expectRefusal(header(0, 2) + track("") + track(""), "one track");
    expectRefusal(song("", 0xE728), "SMPTE");
    expectRefusal(song("", 0), "0 ticks");
    for (const std::string& withoutStatus :
         {bytes({0, 7, 0x40}), bytes({0, 0xB0, 7, 0x40, 0, 0xFF, 1, 0, 0, 7, 0x40}),
          bytes({0, 0xB0, 7, 0x40, 0, 0xF0, 1, 0xF7, 0, 7, 0x40})}) {
        expectRefusal(song(withoutStatus), "track 1 has data where a message");
    }
    expectRefusal(song(bytes({0, 0xB0, 7, 0x90})), "message within a message");
    expectRefusal(song(bytes({0, 0xF8})), "cable");
    expectRefusal(song(bytes({0x81, 0x81, 0x81, 0x81, 0, 0xB0, 7, 0x40})), "four bytes");
    expectRefusal(song(bytes({0, 0xFF, 0x51, 3, 0, 0, 0})), "tempo");
    expectRefusal(song(bytes({0, 0xFF, 0x51, 2, 7, 0xA1})), "tempo");
    expectRefusal(song(bytes({0, 0xFF, 1, 9, 'h', 'i'})), "track 1 breaks off");
    expectRefusal(song(bytes({0, 0xF0, 0x81, 0, 1})), "track 1 breaks off");
    expectRefusal(header(0, 1) + piece("MTrk", kEnd, 1), "breaks off");
    expectRefusal(header(0, 1) + piece("MTrk", bytes({0, 0xB0, 7, 0x40})), "track 1 breaks off");
    const std::string whole = header(1, 2) + track("") + track(bytes({0, 0xB0, 7, 0x40}));
    for (size_t length = 4; length < whole.size(); ++length) {
        expectRefusal(whole.substr(0, length), "breaks off");
    }
}

}  // namespace
}  // namespace tessel8::host::test
