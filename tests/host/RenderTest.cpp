// What `render` puts into its output, and what it says about it.

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class RenderTest : public HostTest {
  protected:
    Sound rendered(const Sound& input, const std::vector<std::string>& options) {
        writeSound(file("in.wav"), input);
        run_ = render(file("in.wav"), file("out.wav"), options);
        EXPECT_TRUE(succeeded(run_));
        return readSound(file("out.wav"));
    }

    HostRun run_;
};

float fromBits(uint32_t bits) {
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// A delay of two seconds on the first tap and nothing else, at any tempo.
const std::vector<std::string> kTwoSecondDelay = {"--set", "TimeMode=0",   "--set",  "Mix=1",
                                                  "--set", "DelayT1=0.25", "--tail", "3"};

TEST_F(RenderTest, SwitchedOffEffectPassesStereoBitForBit) {
    const Sound input = noise(10'001);
    const Sound output = rendered(input, {"--set", "POWER=0", "--tail", "0"});
    EXPECT_EQ(output.channels, 2);
    EXPECT_EQ(output.rate, input.rate);
    EXPECT_EQ(output.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    EXPECT_EQ(firstDifference(output.samples, input.samples), -1);
}

TEST_F(RenderTest, SwitchedOffEffectPassesOddValuesBitForBit) {
    Sound input = noise(1000);
    input.samples[10] = std::numeric_limits<float>::infinity();
    input.samples[11] = -std::numeric_limits<float>::infinity();
    input.samples[12] = fromBits(0x7FC12345);  // not a number, with a mark
    input.samples[13] = std::numeric_limits<float>::denorm_min();
    input.samples[14] = -0.0F;
    input.samples[15] = 1e30F;
    const Sound output = rendered(input, {"--set", "POWER=0", "--tail", "0"});
    EXPECT_EQ(firstDifference(output.samples, input.samples), -1);
    EXPECT_NE(run_.out.find("3 samples not finite"), std::string::npos) << run_.out;
}

TEST_F(RenderTest, OddValuesThroughTheRunningEffectDoNoHarm) {
    Sound input = noise(4800);
    input.samples[100] = std::numeric_limits<float>::quiet_NaN();
    input.samples[201] = std::numeric_limits<float>::infinity();
    EXPECT_EQ(rendered(input, {"--tail", "0.1"}).frames(), 9600U);
}

TEST_F(RenderTest, MonoBecomesTwoEqualChannels) {
    const Sound input = noise(5000, 1);
    const Sound output = rendered(input, {"--set", "POWER=0", "--tail", "0"});
    ASSERT_EQ(output.channels, 2);
    ASSERT_EQ(output.frames(), input.frames());
    for (size_t i = 0; i < input.frames(); ++i) {
        ASSERT_EQ(output.at(i, 0), input.samples[i]) << "frame " << i;
        ASSERT_EQ(output.at(i, 1), input.samples[i]) << "frame " << i;
    }
}

TEST_F(RenderTest, ParametersReachTheEffect) {
    Sound input = silence(48'000);
    input.samples[2 * 24'000] = 0.5F;  // on the left only
    const Sound output = rendered(input, kTwoSecondDelay);
    const size_t echo = 24'000 + 2 * 48'000;
    ASSERT_EQ(output.frames(), 4U * 48'000);
    for (size_t i = 0; i < output.frames(); ++i) {
        const float expected = i == echo ? 0.5F : 0.0F;
        ASSERT_NEAR(output.at(i, 0), expected, 1e-3) << "frame " << i;
        ASSERT_NEAR(output.at(i, 1), 0.0F, 1e-3) << "frame " << i;
    }
}

TEST_F(RenderTest, BlockSizeDoesNotChangeTheSound) {
    const Sound input = noise(30'011);
    std::vector<std::string> options = kTwoSecondDelay;
    options.insert(options.end(), {"--set", "TAPtoFB1=1", "--set", "AmtFBT1=0.7"});
    const Sound reference = rendered(input, options);
    for (const std::string block : {"1", "7", "513", "65536"}) {
        std::vector<std::string> withBlock = options;
        withBlock.insert(withBlock.end(), {"--block", block});
        EXPECT_EQ(firstDifference(rendered(input, withBlock).samples, reference.samples), -1)
            << "block " << block;
    }
}

TEST_F(RenderTest, EqualRendersGiveEqualFiles) {
    writeSound(file("in.wav"), noise(20'000));
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("a.wav"), kTwoSecondDelay)));
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("b.wav"), kTwoSecondDelay)));
    EXPECT_EQ(contentsOf(file("a.wav")), contentsOf(file("b.wav")));
    // That chunk holds the second of the render, which two quick ones have in common.
    EXPECT_EQ(contentsOf(file("a.wav")).find("PEAK"), std::string::npos);
}

TEST_F(RenderTest, LaterSettingsWin) {
    const Sound input = noise(2000);
    const Sound off = rendered(
        input, {"--set", "Input=0", "--set", "POWER=1", "--set", "POWER=0", "--tail", "0"});
    EXPECT_EQ(firstDifference(off.samples, input.samples), -1);
    const Sound on = rendered(
        input, {"--set", "Input=0", "--set", "POWER=0", "--set", "POWER=1", "--tail", "0"});
    EXPECT_NE(firstDifference(on.samples, input.samples), -1);
}

TEST_F(RenderTest, NamesInAnyCaseAndIndicesMeanTheSame) {
    const Sound input = noise(2000);
    for (const std::string name : {"power", "Power", "#0"}) {
        const Sound output = rendered(input, {"--set", name + "=0", "--tail", "0"});
        EXPECT_EQ(firstDifference(output.samples, input.samples), -1) << name;
    }
}

TEST_F(RenderTest, NameOfDashesIsNoOption) {
    rendered(noise(100), {"--set", "-----=1", "--set=-----=0"});
}

TEST_F(RenderTest, SummaryIsOneLineAboutTheOutput) {
    Sound input = silence(24'000);
    for (size_t i = 0; i < input.samples.size(); i += 2) {
        input.samples[i] = 0.5F;      // -6.02 dBFS on the left
        input.samples[i + 1] = 0.0F;  // half of the power is missing: 3.01 dB
    }
    rendered(input, {"--set", "POWER=0", "--tail", "0"});
    EXPECT_THAT(run_.out,
                testing::MatchesRegex(".*/out\\.wav: 0\\.500 s, peak -6\\.0 dBFS, RMS -9\\.0 dBFS, "
                                      "[0-9]+ times real time\n"));
}

TEST_F(RenderTest, SummaryOfSilenceHasNoLevel) {
    rendered(silence(100), {"--set", "POWER=0", "--tail", "0"});
    EXPECT_NE(run_.out.find("peak -inf dBFS, RMS -inf dBFS"), std::string::npos) << run_.out;
}

TEST_F(RenderTest, PluginIsFoundBesideTheProgramAndInTheInstalledPlace) {
    writeSound(file("in.wav"), noise(100));
    std::filesystem::create_directories(file("bin"));
    std::filesystem::create_directories(file("lib/vst"));
    std::filesystem::copy(TESSEL8_HOST, file("bin/tessel8"));
    const auto renderThere = [&] {
        return runHost({"render", file("in.wav"), file("out.wav")},
                       {.folder = "/", .executable = file("bin/tessel8")});
    };
    EXPECT_TRUE(refused(renderThere(), "VantorTesselEcho.so"));
    std::filesystem::copy(TESSEL8_PLUGIN, file("lib/vst/VantorTesselEcho.so"));
    EXPECT_TRUE(succeeded(renderThere()));
    // What lies beside it comes first, so this one gets in the way of the other.
    std::ofstream(file("bin/VantorTesselEcho.so")) << "not a library";
    EXPECT_TRUE(refused(renderThere(), "bin/VantorTesselEcho.so"));
}

TEST_F(RenderTest, RelativeNamesCountFromTheCurrentFolder) {
    writeSound(file("in.wav"), noise(100));
    std::filesystem::copy(TESSEL8_PLUGIN, file("own.so"));
    EXPECT_TRUE(succeeded(
        runHost({"render", "in.wav", "out.wav", "--plugin", "own.so"}, {.folder = folder_})));
    EXPECT_TRUE(std::filesystem::exists(file("out.wav")));
}

}  // namespace

}  // namespace tessel8::host::test
