// Which messages and which tempo an effect gets from a MIDI file, and which files are refused.

#include <cstdio>
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

struct Played {
    Strings messages;  // "b0 7 40 at 250", in the order in which they came
    Strings blocks;    // "0: 120 BPM, quarter 0"
};

class MidiTest : public HostTest {
  protected:
    Path midi(const std::string& contents) const {
        std::ofstream(file("song.mid"), std::ios::binary) << contents;
        return file("song.mid");
    }

    /// What the probe gets in a render of 40000 frames at 48 kHz.
    Played played(const std::string& contents, Strings options = {}) {
        useProbe("");
        options.insert(options.end(), {"--tail", "0", "--midi", midi(contents)});
        rendered(silence(40'000), options);
        Played result;
        std::vector<std::pair<std::string, int>> waiting;
        std::istringstream lines(contentsOf(log()));
        for (std::string line; std::getline(lines, line);) {
            int frames = 0, flags = 0, message[3] = {}, delta = 0;
            double start = 0, rate = 0, tempo = 0, quarter = 0;
            char text[100];
            if (std::sscanf(line.c_str(), "message %d %d %d after %d", &message[0], &message[1],
                            &message[2], &delta) == 4) {
                std::snprintf(text, sizeof text, "%x %x %x at ", unsigned(message[0]),
                              unsigned(message[1]), unsigned(message[2]));
                waiting.emplace_back(text, delta);
            } else if (std::sscanf(line.c_str(),
                                   "process %d flags %d position %lf rate %lf tempo %lf ppq %lf",
                                   &frames, &flags, &start, &rate, &tempo, &quarter) == 6) {
                for (const auto& [what, after] : waiting) {
                    EXPECT_TRUE(after >= 0 && after < frames) << line;
                    result.messages.push_back(what + std::to_string(int(start) + after));
                }
                waiting.clear();
                if ((flags & 2) != 0) {  // the song plays
                    std::snprintf(text, sizeof text, "%.0f: %.6g BPM, quarter %.6g", start, tempo,
                                  quarter);
                    result.blocks.emplace_back(text);
                }
            }
        }
        EXPECT_TRUE(waiting.empty());
        return result;
    }
};

TEST_F(MidiTest, MessagesAndTempoFollowTheTempoChanges) {
    // 240 BPM until the file tells 120 (after one quarter note) and 60 (half a one later): a
    // quarter note is 12000, then 24000, then 48000 frames.
    const std::string tempos = bytes({0x83, 0x60, 0xFF, 0x51, 3, 0x07, 0xA1, 0x20}) +
                               bytes({0x81, 0x70, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40});
    // At ticks 0, 1, 480, 600, 720, 840 and far behind the end of the sound.
    const std::string notes =
        bytes({0, 0xB0, 7, 0, 1, 7, 1, 0x83, 0x5F, 7, 2, 0x78, 7, 3, 0x78, 7, 4}) +
        bytes({0x78, 7, 5, 0xFF, 0xFF, 0xFF, 0x7F, 7, 6});
    const std::string contents = header(1, 2) + track(tempos) + track(notes);
    const Strings expected = {"b0 7 0 at 0",     "b0 7 1 at 25",    "b0 7 2 at 12000",
                              "b0 7 3 at 18000", "b0 7 4 at 24000", "b0 7 5 at 36000"};
    const Played even = played(contents, {"--tempo", "240", "--block", "12000"});
    EXPECT_EQ(even.messages, expected);
    EXPECT_EQ(even.blocks, (Strings{"0: 240 BPM, quarter 0", "12000: 120 BPM, quarter 1",
                                    "24000: 60 BPM, quarter 1.5", "36000: 60 BPM, quarter 1.75"}));
    const Played odd = played(contents, {"--tempo", "240", "--block", "16000"});
    EXPECT_EQ(odd.messages, expected);
    EXPECT_EQ(odd.blocks, (Strings{"0: 240 BPM, quarter 0", "16000: 120 BPM, quarter 1.16667",
                                   "32000: 60 BPM, quarter 1.66667"}));
    // The first quarter note lasts twice as long if nobody has told its tempo.
    EXPECT_EQ(played(contents).messages[2], "b0 7 2 at 24000");
    EXPECT_EQ(played(contents).blocks[0], "0: 120 BPM, quarter 0");
}

TEST_F(MidiTest, RunningStatusHoldsAndWhatIsNoChannelMessageIsPassedOver) {
    // 250 frames a tick: 96 of them are half a second.
    const std::string events =
        bytes({0, 0xB0, 7, 0x40, 10, 7, 0x41, 0, 0xC5, 3, 5, 4}) +
        bytes({0, 0xF0, 3, 1, 2, 0xF7, 1, 0xF7, 1, 0x40, 0, 0xFF, 1, 2, 'h', 'i'}) +
        bytes({16, 0xE1, 0, 0x40, 0, 0xD2, 9, 0x60, 0x90, 0x3C, 0x7F});
    const std::string longHeader = piece("MThd", bytes({0, 0, 0, 1, 0, 96, 1, 2, 3}));
    const Played got = played(longHeader + piece("XFIH", "?") + track(events) + "rest");
    EXPECT_EQ(got.messages,
              (Strings{"b0 7 40 at 0", "b0 7 41 at 2500", "c5 3 0 at 2500", "c5 4 0 at 3750",
                       "e1 0 40 at 8000", "d2 9 0 at 8000", "90 3c 7f at 32000"}));
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
