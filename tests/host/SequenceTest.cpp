// What an effect sees of its host: the order of calls, the blocks and the time.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "HostTest.h"
#include "vst/Vst24.h"

namespace tessel8::host::test {

namespace {

class SequenceTest : public HostTest {
  protected:
    /// Renders through the probe and returns what it wrote down.
    std::vector<std::string> calls(const Sound& input, const std::vector<std::string>& options) {
        writeSound(file("in.wav"), input);
        std::vector<std::string> arguments = {"render", file("in.wav"), file("out.wav"), "--plugin",
                                              TESSEL8_PROBE};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_TRUE(
            succeeded(runHost(arguments, {.environment = {{"TESSEL8_PROBE_LOG", file("log")}}})));
        std::vector<std::string> lines;
        std::ifstream log(file("log"));
        for (std::string line; std::getline(log, line);) {
            lines.push_back(line);
        }
        return lines;
    }
};

struct Processed {
    int frames = 0;
    int flags = 0;
    double position = 0;
    double rate = 0;
    double tempo = 0;
    double ppq = 0;
};

std::vector<Processed> processed(const std::vector<std::string>& lines) {
    std::vector<Processed> blocks;
    for (const std::string& line : lines) {
        Processed p;
        if (std::sscanf(line.c_str(), "process %d flags %d position %lf rate %lf tempo %lf ppq %lf",
                        &p.frames, &p.flags, &p.position, &p.rate, &p.tempo, &p.ppq) == 6) {
            blocks.push_back(p);
        }
    }
    return blocks;
}

/// The first word, and for `set` and `mains` the whole line: what happened in which order.
std::vector<std::string> outline(const std::vector<std::string>& lines) {
    std::vector<std::string> words;
    for (const std::string& line : lines) {
        const std::string word = line.substr(0, line.find(' '));
        words.push_back(word == "process" ? line.substr(0, line.find(" flags")) : line);
    }
    return words;
}

TEST_F(SequenceTest, CallsComeInTheOrderOfAGoodHost) {
    const std::vector<std::string> lines =
        calls(noise(1000), {"--tail", "0", "--set", "ZoomDel=6", "--set", "odd NAME=0.25", "--set",
                            "#0=1", "--set", "ZoomDel=3"});
    const std::vector<std::string> expected = {
        "version 2400",
        "can sendVstEvents 1",
        "can sendVstMidiEvent 1",
        "can sendVstTimeInfo 1",
        "can sizeWindow 0",
        "can  0",
        "while made no time",
        "open",
        "rate 48000",
        "block 512",
        "set 1 6",
        "set 3 0.25",
        "set 0 1",
        "set 1 3",
        "mains 1",
        "process 0",
        "process 512",
        "process 488",
        "mains 0",
        "close",
        "unload",
    };
    EXPECT_EQ(outline(lines), expected);
}

TEST_F(SequenceTest, NoBlockIsLargerThanAnnounced) {
    const std::vector<std::string> lines = calls(noise(1000), {"--block", "300", "--tail", "0.02"});
    EXPECT_NE(std::find(lines.begin(), lines.end(), "block 300"), lines.end());
    int frames = 0;
    for (const Processed& block : processed(lines)) {
        EXPECT_LE(block.frames, 300);
        frames += block.frames;
    }
    EXPECT_EQ(frames, 1000 + 960);
}

TEST_F(SequenceTest, SongPositionFollowsTheTempo) {
    const std::vector<Processed> blocks =
        processed(calls(noise(20'000), {"--tempo", "96.5", "--tail", "0.5"}));
    ASSERT_GT(blocks.size(), 10U);
    double position = 0;
    for (const Processed& block : blocks) {
        EXPECT_EQ(block.flags, kVstTransportPlaying | kVstTempoValid | kVstPpqPosValid);
        EXPECT_EQ(block.rate, 48'000);
        EXPECT_EQ(block.tempo, 96.5);
        EXPECT_EQ(block.position, position);
        EXPECT_NEAR(block.ppq, position / 48'000 / 60 * 96.5, 1e-8);
        position += block.frames;
    }
}

TEST_F(SequenceTest, WithoutATempoNoneIsClaimed) {
    for (const Processed& block : processed(calls(noise(2000), {"--tail", "0"}))) {
        EXPECT_EQ(block.flags, kVstTransportPlaying);
    }
}

}  // namespace

}  // namespace tessel8::host::test
