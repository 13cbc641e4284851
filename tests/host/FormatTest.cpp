// Containers and kinds of sample, in and out.

#include <cmath>
#include <limits>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class FormatTest : public HostTest {
  protected:
    Sound passed(const std::filesystem::path& input, const std::filesystem::path& output,
                 const std::vector<std::string>& more = {}) {
        std::vector<std::string> options = {"--set", "POWER=0", "--tail", "0"};
        options.insert(options.end(), more.begin(), more.end());
        EXPECT_TRUE(succeeded(render(input, output, options)));
        return readSound(output);
    }
};

TEST_F(FormatTest, EndingChoosesTheContainer) {
    const Sound input = noise(6000);
    writeSound(file("in.wav"), input);
    struct Case {
        const char* name;
        int format;
    };
    for (const Case& c : {Case{"plain", SF_FORMAT_WAV | SF_FORMAT_FLOAT},
                          {"out.WAV", SF_FORMAT_WAV | SF_FORMAT_FLOAT},
                          {"out.aiff", SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
                          {"out.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
                          {"out.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS}}) {
        const Sound output = passed(file("in.wav"), file(c.name));
        EXPECT_EQ(output.format, c.format) << c.name;
        EXPECT_EQ(output.frames(), input.frames()) << c.name;
        EXPECT_EQ(output.rate, input.rate) << c.name;
    }
}

TEST_F(FormatTest, LargeBlocksDoNotUpsetTheVorbisCoder) {
    writeSound(file("in.wav"), noise(200'000));
    const Sound output = passed(file("in.wav"), file("out.ogg"), {"--block", "65536"});
    EXPECT_EQ(output.frames(), 200'000U);
}

TEST_F(FormatTest, InputsSamplesAreKeptExactly) {
    struct Case {
        const char* name;
        int format;
    };
    for (const Case& c : {Case{"in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
                          {"in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
                          {"in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24},
                          {"in.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_S8},
                          {"in.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
                          {"in.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
                          {"in.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24}}) {
        Sound input = noise(5000, 2, 1.0F);
        input.format = c.format;
        input.samples[0] = 1.0F;
        input.samples[1] = -1.0F;
        writeSound(file(c.name), input);
        const std::string output = "out" + file(c.name).extension().string();
        EXPECT_EQ(passed(file(c.name), file(output), {"--format", "input"}).format, c.format);
        EXPECT_EQ(readIntegers(file(output)), readIntegers(file(c.name))) << std::hex << c.format;
    }
}

TEST_F(FormatTest, FloatsOfAnyWidthAreKept) {
    for (const int samples : {SF_FORMAT_FLOAT, SF_FORMAT_DOUBLE}) {
        Sound input = noise(3000);
        input.format = SF_FORMAT_WAV | samples;
        writeSound(file("in.wav"), input);
        const Sound output = passed(file("in.wav"), file("out.wav"), {"--format", "input"});
        EXPECT_EQ(output.format, input.format);
        EXPECT_EQ(firstDifference(output.samples, input.samples), -1);
    }
}

TEST_F(FormatTest, IntegersBecomeFloatsByDefault) {
    Sound input = noise(3000);
    input.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    writeSound(file("in.wav"), input);
    const Sound output = passed(file("in.wav"), file("out.wav"));
    EXPECT_EQ(output.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    EXPECT_EQ(firstDifference(output.samples, readSound(file("in.wav")).samples), -1);
}

TEST_F(FormatTest, IntegersClipAtFullScaleAndDoNotWrap) {
    Sound input = silence(8);
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    input.samples = {4.0F, -4.0F, 1.0F, -1.0F, inf, -inf, nan, 0.5F};
    writeSound(file("in.wav"), input);
    passed(file("in.wav"), file("out.flac"));
    const int top = (1 << 23) - 1;  // 24 bits
    const int bottom = -(1 << 23);
    std::vector<int> steps = readIntegers(file("out.flac"));
    for (int& step : steps) {
        step /= 256;
    }
    EXPECT_EQ(steps, (std::vector<int>{top, bottom, top, bottom, top, bottom, 0, 1 << 22}));
}

TEST_F(FormatTest, CompressedSamplesBeyondFullScaleDoNoHarm) {
    Sound input = noise(5000, 2, 1000.0F);
    input.samples[7] = std::numeric_limits<float>::quiet_NaN();
    writeSound(file("loud.wav"), input);
    passed(file("loud.wav"), file("out.ogg"));

    // The logarithmic coders look samples up in a table.
    Sound logarithmic = noise(5000, 2, 1.0F);
    logarithmic.format = SF_FORMAT_WAV | SF_FORMAT_ULAW;
    writeSound(file("log.wav"), logarithmic);
    ASSERT_TRUE(succeeded(render(file("log.wav"), file("out.wav"),
                                 {"--format", "input", "--tail", "0", "--set", "Output=1", "--set",
                                  "Input=1", "--set", "Mix=0"})));
    const Sound output = readSound(file("out.wav"));
    EXPECT_EQ(output.format, logarithmic.format);
    // Sixteen times too loud: after the gains have settled nearly all of it sits at full scale.
    size_t atTop = 0;
    for (size_t i = output.samples.size() / 2; i < output.samples.size(); ++i) {
        atTop += std::abs(output.samples[i]) > 0.9F ? 1 : 0;
    }
    EXPECT_GT(atTop, output.samples.size() / 2 * 8 / 10);
}

}  // namespace

}  // namespace tessel8::host::test
