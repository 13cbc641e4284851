// How long the output goes on after the input.

#include <cmath>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class TailTest : public HostTest {
  protected:
    Sound rendered(const Sound& input, const std::vector<std::string>& options) {
        writeSound(file("in.wav"), input);
        EXPECT_TRUE(succeeded(render(file("in.wav"), file("out.wav"), options)));
        return readSound(file("out.wav"));
    }
};

/// Frames up to and with the last one at -90 dBFS or above.
size_t framesUntilSilence(const Sound& sound) {
    const float limit = std::pow(10.0F, -90.0F / 20.0F);
    size_t last = sound.samples.size();
    while (last > 0 && std::abs(sound.samples[last - 1]) < limit) {
        --last;
    }
    return (last + 1) / 2;
}

TEST_F(TailTest, SecondsAreExactToTheFrame) {
    struct Case {
        const char* tail;
        size_t frames;  // at 48 kHz
    };
    // Inputs of a whole number of blocks, and with frames left over; tails shorter and longer
    // than what is left of the block.
    for (const size_t inputFrames : {512U, 1024U, 1000U, 1U}) {
        for (const Case& c : {Case{"0", 0}, {"0.00002", 1}, {"0.01", 480}, {"0.5", 24'000}}) {
            const Sound output = rendered(noise(inputFrames), {"--tail", c.tail});
            EXPECT_EQ(output.frames(), inputFrames + c.frames)
                << inputFrames << " frames, tail " << c.tail;
        }
    }
}

TEST_F(TailTest, WithoutEchoOneSecondOfSilenceFollows) {
    for (const size_t inputFrames : {512U, 1000U}) {
        const Sound output = rendered(noise(inputFrames), {"--set", "POWER=0"});
        EXPECT_EQ(output.frames(), inputFrames + 48'000);
    }
}

TEST_F(TailTest, EndsOneSecondAfterTheLastEcho) {
    const Sound output =
        rendered(noise(4800), {"--set", "TimeMode=0", "--set", "Mix=1", "--set", "DelayT1=0.25",
                               "--set", "TAPtoFB1=1", "--set", "AmtFBT1=0.3", "--tail", "silent"});
    // 0.3 to the 8th power is -84 dB, to the 9th -94 dB; the noise starts at -6 dBFS. So the echo
    // after 9 round trips (18 s) is the last that can be heard.
    const size_t sounding = framesUntilSilence(output);
    EXPECT_EQ(output.frames(), sounding + 48'000);
    EXPECT_GT(sounding, 16U * 48'000);
    EXPECT_LE(sounding, 18U * 48'000 + 4800);
}

TEST_F(TailTest, LateEchoIsNotMissed) {
    // The longest delay, and a second of silence would be over long before it.
    const Sound output =
        rendered(noise(480), {"--set", "TimeMode=0", "--set", "Mix=1", "--set", "DelayT1=0.99"});
    EXPECT_EQ(framesUntilSilence(output), 480U + size_t(0.99F * 8 * 48'000));
    EXPECT_EQ(output.frames(), framesUntilSilence(output) + 48'000);
}

TEST_F(TailTest, EndlessEchoEndsAfterAMinute) {
    writeSound(file("in.wav"), noise(1000));
    ASSERT_TRUE(
        succeeded(runHost({"render", file("in.wav"), file("out.wav"), "--plugin", TESSEL8_PROBE},
                          {.environment = {{"TESSEL8_PROBE_KIND", "endless"}}})));
    EXPECT_EQ(readSound(file("out.wav")).frames(), 1000U + 60 * 48'000);
}

}  // namespace

}  // namespace tessel8::host::test
