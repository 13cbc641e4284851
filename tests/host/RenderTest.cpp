// What `render` puts into its output and how long that is, what an effect sees of its host, and
// what the other commands tell.

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <regex>
#include <sstream>

#include "HostTest.h"
#include "vst/Vst24.h"

namespace tessel8::host::test {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();

class RenderTest : public HostTest {
  protected:
    /// Through the switched-off effect.
    Sound passed(const Sound& input, Strings options = {}, const std::string& in = "in.wav",
                 const std::string& out = "out.wav") {
        options.insert(options.end(), {"--set", "POWER=0", "--tail", "0"});
        return rendered(input, options, in, out);
    }
    /// What the probe wrote down of a render.
    std::string calls(const Sound& input, const Strings& options) {
        useProbe("");
        rendered(input, options);
        return contentsOf(log());
    }
};

/// Frames up to and with the last one at -90 dBFS or above.
size_t soundingFrames(const Sound& sound) {
    const float limit = std::pow(10.0F, -90.0F / 20.0F);
    const auto last = std::find_if(sound.samples.rbegin(), sound.samples.rend(),
                                   [&](float sample) { return std::abs(sample) >= limit; });
    return size_t(sound.samples.rend() - last + 1) / 2;
}

TEST_F(RenderTest, SwitchedOffEffectPassesAllBitsAndCountsOddValues) {
    Sound input = noise(10'001);
    const float markedNan = std::bit_cast<float>(0x7FC12345);
    const Samples odd = {kInf, -kInf, markedNan, std::numeric_limits<float>::denorm_min(), -0.0F};
    std::copy(odd.begin(), odd.end(), input.samples.begin() + 10);
    const Sound output = passed(input);
    EXPECT_EQ(output.channels, 2);
    EXPECT_EQ(output.format, input.format);
    EXPECT_TRUE(sameBits(output.samples, input.samples));
    EXPECT_NE(summary_.find("3 samples not finite"), std::string::npos) << summary_;
}

TEST_F(RenderTest, MonoBecomesTwoEqualChannels) {
    const Sound mono = noise(5000, 1);
    const Sound output = passed(mono);
    ASSERT_EQ(output.channels, 2);
    ASSERT_EQ(output.frames(), 5000U);
    for (size_t i = 0; i < output.samples.size(); ++i) {
        ASSERT_EQ(output.samples[i], mono.samples[i / 2]) << "sample " << i;
    }
}

TEST_F(RenderTest, ParametersReachTheEffectAndBlocksOfAnySizeGiveTheSameFile) {
    Sound input = silence(48'000);
    input.samples[2 * 24'000] = 0.5F;  // on the left only
    const size_t echo = 24'000 + 2 * 48'000;
    std::string first;
    for (const std::string block : {"512", "512", "7", "65536"}) {
        const Sound output = rendered(input, {"--set", "TimeMode=0", "--set", "Mix=1", "--set",
                                              "DelayT1=0.25", "--tail", "3", "--block", block});
        ASSERT_EQ(output.frames(), 4U * 48'000);
        for (size_t i = 0; i < output.samples.size(); ++i) {
            ASSERT_NEAR(output.samples[i], i == 2 * echo ? 0.5F : 0.0F, 1e-3) << "sample " << i;
        }
        first = first.empty() ? contentsOf(file("out.wav")) : first;
        EXPECT_TRUE(contentsOf(file("out.wav")) == first) << "block " << block;
    }
}

TEST_F(RenderTest, NamesInAnyCaseAndIndicesMeanTheSameAndTheLastOneWins) {
    const Sound input = noise(2000);
    for (const std::string name : {"power", "POWER", "#0"}) {
        const Strings options = {"--set", "POWER=1", "--set", name + "=0", "--tail", "0"};
        EXPECT_TRUE(sameBits(rendered(input, options).samples, input.samples)) << name;
    }
}

TEST_F(RenderTest, SummaryTellsLengthAndLevels) {
    Sound input = silence(24'000);
    for (size_t i = 0; i < input.samples.size(); i += 2) {
        input.samples[i] = 0.5F;  // -6.02 dBFS on the left alone: half of the power is missing
    }
    passed(input);
    const char* const expected = "out.wav: 0.500 s, peak -6.0 dBFS, RMS -9.0 dBFS, ";
    EXPECT_NE(summary_.find(expected), std::string::npos) << summary_;
    EXPECT_EQ(summary_.find('\n') + 1, summary_.size());
}

TEST_F(RenderTest, TailInSecondsIsExactToTheFrame) {
    // Whole blocks and frames left over; tails shorter and longer than the rest of the block.
    for (const size_t frames : {1024U, 1000U, 1U}) {
        for (const auto& [tail, more] : {std::pair{"0", 0U}, {"0.00002", 1U}, {"0.5", 24'000U}}) {
            EXPECT_EQ(rendered(noise(frames), {"--tail", tail}).frames(), frames + more) << tail;
        }
        EXPECT_EQ(rendered(noise(frames), {"--set", "POWER=0"}).frames(), frames + 48'000);
    }
}

TEST_F(RenderTest, SilentTailEndsOneSecondAfterTheLastEcho) {
    const auto echoed = [&](size_t frames, Strings options) {
        options.insert(options.begin(), {"--set", "TimeMode=0", "--set", "Mix=1"});
        const Sound output = rendered(noise(frames), options);
        EXPECT_EQ(output.frames(), soundingFrames(output) + 48'000);
        return soundingFrames(output);
    };
    // 0.3 to the 8th power is -84 dB, to the 9th -94 dB; the noise starts at -6 dBFS. So the echo
    // after 9 round trips (18 s) is the last that can be heard.
    const size_t sounding =
        echoed(4800, {"--set", "DelayT1=0.25", "--set", "TAPtoFB1=1", "--set", "AmtFBT1=0.3"});
    EXPECT_GT(sounding, 16U * 48'000);
    EXPECT_LE(sounding, 18U * 48'000 + 4800);
    // The longest delay; a second of silence would be over long before it.
    EXPECT_EQ(echoed(480, {"--set", "DelayT1=0.99"}), 480U + size_t(0.99F * 8 * 48'000));
    useProbe("endless");
    EXPECT_EQ(rendered(noise(1000), {}).frames(), 1000U + 60 * 48'000);
}

TEST_F(RenderTest, EndingChoosesTheContainer) {
    constexpr int kFloat = SF_FORMAT_FLOAT;
    for (const auto& [name, format] : {std::pair{"plain", SF_FORMAT_WAV | kFloat},
                                       {"out.AIFF", SF_FORMAT_AIFF | kFloat},
                                       {"out.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
                                       {"out.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS}}) {
        // A block that large upsets the Vorbis coder if it gets it in one piece.
        const Sound output = passed(noise(200'000), {"--block", "65536"}, "in.wav", name);
        EXPECT_EQ(output.format, format) << name;
        EXPECT_EQ(output.frames(), 200'000U) << name;
    }
}

TEST_F(RenderTest, InputsSamplesAreKeptExactlyIfAsked) {
    for (const auto& [ending, format] : {std::pair{".wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
                                         {".wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24},
                                         {".aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
                                         {".flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
                                         {".wav", SF_FORMAT_WAV | SF_FORMAT_DOUBLE}}) {
        const std::string in = std::string("in") + ending, out = std::string("out") + ending;
        Sound input = noise(5000, 2, 1.0F);
        input.format = format;
        const Sound output = passed(input, {"--format", "input"}, in, out);
        EXPECT_EQ(output.format, format);
        const Samples written = readSound(file(in)).samples;
        EXPECT_TRUE(sameBits(output.samples, written)) << std::hex << format;
        const Sound byDefault = passed(input, {}, in);
        EXPECT_EQ(byDefault.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
        EXPECT_TRUE(sameBits(byDefault.samples, written)) << std::hex << format;
    }
}

TEST_F(RenderTest, SamplesBeyondFullScaleClipAndDoNotWrap) {
    Sound input = silence(4);
    input.samples = {4.0F, -4.0F, 1.0F, -1.0F, kInf, -kInf, std::nanf(""), 0.5F};
    const float top = 1.0F - 1.0F / float(1 << 23);  // 24 bits
    const Samples expected = {top, -1.0F, top, -1.0F, top, -1.0F, 0.0F, 0.5F};
    EXPECT_EQ(passed(input, {}, "in.wav", "out.flac").samples, expected);
    passed(input, {}, "in.wav", "out.ogg");  // its coder looks samples up in a table
}

TEST_F(RenderTest, CallsComeInTheOrderOfAGoodHost) {
    // A quarter of a second of silence goes before the song: 23 blocks of 512 and one of 224.
    std::string before;
    for (int block = 0; block < 23; ++block) {
        before += "process 512 flags 0\n";
    }
    // Without a tempo none is claimed: of the flags only "playing" is set.
    EXPECT_EQ(std::regex_replace(
                  calls(noise(1000), {"--tail", "0", "--set", "ZoomDel=6", "--set", "odd NAME=0.25",
                                      "--set", "#0=1", "--set", "ZoomDel=3"}),
                  std::regex(" position.*"), ""),
              "version 2400\ncan sendVstEvents 1\ncan sendVstMidiEvent 1\ncan sendVstTimeInfo 1\n"
              "can sizeWindow 0\ncan  0\nwhile made no time\nopen\nrate 48000\nblock 512\n"
              "set 1 6\nset 3 0.25\nset 0 1\nset 1 3\nmains 1\n" +
                  before +
                  "process 224 flags 0\n"
                  "process 512 flags 2\nprocess 488 flags 2\nmains 0\nclose\nunload\n");
}

TEST_F(RenderTest, TimeFollowsTheTempoAndNoBlockIsLargerThanAnnounced) {
    std::istringstream log(
        calls(noise(20'000), {"--tempo", "96.5", "--block", "300", "--tail", "0.02"}));
    double next = 0;
    for (std::string line; std::getline(log, line);) {
        int frames = 0, flags = 0;
        double position = 0, rate = 0, tempo = 0, ppq = 0;
        if (std::sscanf(line.c_str(), "process %d flags %d position %lf rate %lf tempo %lf ppq %lf",
                        &frames, &flags, &position, &rate, &tempo, &ppq) == 6) {
            EXPECT_LE(frames, 300);
            EXPECT_EQ(position, next);
            if (!(flags & kVstTransportPlaying)) {
                continue;  // the silence before the song
            }
            EXPECT_EQ(flags, kVstTransportPlaying | kVstTempoValid | kVstPpqPosValid);
            EXPECT_EQ(rate, 48'000);
            EXPECT_EQ(tempo, 96.5);
            EXPECT_NEAR(ppq, position / 48'000 / 60 * 96.5, 1e-8);
            next += frames;
        }
    }
    EXPECT_EQ(next, 20'000 + 960);
}

TEST_F(RenderTest, OtherCommandsTellWhatTheyAreAskedFor) {
    const auto told = [&](const Strings& arguments) {
        const HostRun run = runHost(arguments);
        EXPECT_TRUE(succeeded(run));
        return "\n" + std::regex_replace(run.out, std::regex(" +"), " ");
    };
    const std::string table = told({"list", "--params", "--plugin", plugin_});
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 2 + 215);
    const std::string programs = told({"list", "--programs", "--plugin", plugin_});
    EXPECT_EQ(std::count(programs.begin(), programs.end(), '\n'), 2 + 140);
    EXPECT_NE(programs.find("\n 2 *init Simple Delay\n"), std::string::npos) << programs;
    std::string all = table;
    all += told({"info", plugin_});
    all += told({"--version"});
    for (const char* line :
         {"\n 0 POWER 1 ON", "\n 5 Tempo 0.28125 120.0 BPM", "\n 192 ModeFB 0 MultiEcho",
          "\nname Vantor Tessel Echo\n", "\nversion 17170781 (0x0106015D)\n",
          "\nunique id TSL8 (0x54534C38)\n", "\nflags editor, replacing, chunks\n",
          "\ntail not told\n", "\ntessel8 1.6.1 build 349\n"}) {
        EXPECT_NE(all.find(line), std::string::npos) << line;
    }
}

}  // namespace
}  // namespace tessel8::host::test
