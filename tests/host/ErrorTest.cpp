// Whatever goes wrong ends in exit code 2 and one line that says what, and what was there before
// is safe.

#include <sys/stat.h>

#include "HostTest.h"

namespace tessel8::host::test {
namespace {

class ErrorTest : public HostTest {
  protected:
    ErrorTest() {
        writeSound(input_, noise(48'000));
        std::ofstream(output_) << kPrecious;
        std::ofstream(flac_) << kPrecious;
    }
    void expectNothingChanged() const {
        EXPECT_EQ(contentsOf(output_), kPrecious);
        EXPECT_EQ(contentsOf(flac_), kPrecious);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 3);
    }

    static constexpr const char* kPrecious = "precious";
    const Path input_ = file("in.wav"), output_ = file("out.wav"), flac_ = file("out.flac");
};

TEST_F(ErrorTest, WrongCommandsAndOptionsAreNamedWithTheirRanges) {
    EXPECT_TRUE(refused(runHost({}), "say what to do"));
    EXPECT_TRUE(refused(runHost({"frobnicate"}), "frobnicate"));
    EXPECT_TRUE(refused(runHost({"render", input_}), "OUT"));
    EXPECT_TRUE(refused(runHost({"list"}), "--params"));
    EXPECT_TRUE(refused(runHost({"info"}), "PLUGIN"));
    EXPECT_TRUE(refused(render(input_, output_, {"third.wav"}), "third.wav"));
    EXPECT_TRUE(refused(render(input_, output_, {"--loud"}), "--loud"));
    const auto wrong = [&](const char* option, const Strings& values, const char* phrase) {
        for (const std::string& value : values) {
            EXPECT_TRUE(refused(render(input_, output_, {option, value}), phrase)) << value;
        }
    };
    wrong("--set", {"Imput=0.5"}, "\"Imput\"; did you mean Input");
    wrong("--set", {"=1", "#215=1", "#-1=1", "#=1", "#3x=1"}, "unknown parameter");
    wrong("--set", {"Mix"}, "Name=value");
    wrong("--set", {"Mix=", "Mix=loud", "Mix=0.5x", "Mix=0,5", "Mix=nan"}, "is not a number");
    wrong("--set", {"Mix=-0.001", "Mix=1.001", "Mix=inf", "Mix=1e999"}, "0 to 1\n");
    wrong("--set", {"ZoomDel=18.5", "#7=19"}, "0 to 18\n");
    wrong("--set", {"ModeFB=2.5", "modefb=-1"}, "0 to 2\n");
    wrong("--tempo", {"19.9", "999.5"}, "20 to 999\n");
    wrong("--tail", {"-0.1", "3600.1"}, "0 to 3600\n");
    wrong("--tail", {"long"}, "\"long\"");
    wrong("--block", {"0", "65537", "-1"}, "1 to 65536\n");
    wrong("--block", {"1.5"}, "not a whole number");
    wrong("--format", {"mp3"}, "\"mp3\"");
    expectNothingChanged();
}

TEST_F(ErrorTest, EndsOfTheRangesAreTaken) {
    rendered(silence(100, 2, 44100), {"--tempo", "20", "--block", "1", "--set", "ZoomDel=18"});
    rendered(silence(100, 2, 192000), {"--tempo", "999", "--block", "65536", "--set", "Mix=0"});
}

TEST_F(ErrorTest, WrongInputsAreNamed) {
    EXPECT_TRUE(refused(render(file("absent.wav"), output_), "absent.wav"));
    EXPECT_TRUE(refused(render(file("a\nb.wav"), output_), "a?b.wav"));
    EXPECT_TRUE(refused(render(folder_, output_), "folder"));
    EXPECT_TRUE(refused(render(flac_, output_), "out.flac"));  // holds a mere text
    for (const auto& [sound, phrase] : {std::pair{silence(0), "0 frames"},
                                        {silence(100, 3), "3 channels"},
                                        {silence(100, 2, 44099), "44100 to 192000"},
                                        {silence(100, 2, 192001), "44100 to 192000"}}) {
        writeSound(input_, sound);
        EXPECT_TRUE(refused(render(input_, output_), phrase));
    }
    expectNothingChanged();
}

TEST_F(ErrorTest, OutputsThatCannotBeMadeAreNamed) {
    EXPECT_TRUE(refused(render(input_, file("absent/out.wav")), "absent/out.wav"));
    EXPECT_TRUE(refused(render(input_, folder_), "directory"));
    EXPECT_TRUE(refused(render(input_, file("out.mp4")), ".flac"));
    EXPECT_TRUE(refused(render(input_, file("out.ogg"), {"--format", "input"}), "32 bit float"));
    // A pipe stands for all that is no regular file; a rename over it would make it one.
    ASSERT_EQ(mkfifo(file("pipe.wav").c_str(), 0600), 0);
    EXPECT_TRUE(refused(render(input_, file("pipe.wav")), "not a regular file"));
    EXPECT_TRUE(std::filesystem::is_fifo(file("pipe.wav")));
    // 3600 s of two floats at this rate are 5.5 GB.
    writeSound(input_, silence(100, 2, 192000));
    EXPECT_TRUE(refused(render(input_, output_, {"--tail", "3600"}), "4 GiB"));
}

TEST_F(ErrorTest, WhatIsNoGoodPluginIsRefused) {
    for (const Path& plugin : {file("absent.so"), folder_, flac_, Path("/proc/self/exe")}) {
        EXPECT_TRUE(refused(runHost({"info", plugin}), plugin));
        EXPECT_TRUE(refused(runHost({"list", "--params", "--plugin", plugin}), plugin));
        EXPECT_TRUE(refused(runHost({"render", input_, output_, "--plugin", plugin}), plugin));
    }
    const auto misbehaving = [&](const char* kind) {
        useProbe(kind);
        return render(input_, output_);
    };
    EXPECT_TRUE(refused(misbehaving("unwilling"), "refuses"));
    EXPECT_TRUE(refused(misbehaving("damaged"), "not a VST 2.4 plug-in"));
    EXPECT_TRUE(refused(misbehaving("mono"), "two inputs and two outputs"));
    expectNothingChanged();
}

TEST_F(ErrorTest, ExistingOutputSurvivesAFullDisk) {
    ASSERT_TRUE(succeeded(render(input_, flac_)));
    const auto whole = long(std::filesystem::file_size(flac_));
    std::ofstream(flac_) << kPrecious;
    const auto expectFailure = [&](const Path& output, long limit) {
        EXPECT_TRUE(refused(render(input_, output, {}, {.mostFileBytes = limit}),
                            "cannot write " + output.string()));
        expectNothingChanged();
    };
    expectFailure(output_, 1);  // a sanitizer cannot start without the first byte
    expectFailure(output_, 100'000);
    expectFailure(flac_, 1'000);
    expectFailure(flac_, whole - 3);  // noticed when the file is closed
}

TEST_F(ErrorTest, ExistingOutputSurvivesAnInterruption) {
    for (const int signal : {SIGINT, SIGTERM}) {
        useProbe("slow");
        EXPECT_EQ(render(input_, output_, {}, {.signal = signal}).exitCode, 128 + signal);
        expectNothingChanged();
        // The effect is taken down in order all the same.
        EXPECT_TRUE(contentsOf(log()).ends_with("mains 0\nclose\nunload\n"));
    }
}

TEST_F(ErrorTest, ExistingOutputSurvivesBrokenInput) {
    ASSERT_TRUE(succeeded(render(input_, flac_)));
    std::string bytes = contentsOf(flac_);
    bytes.replace(bytes.size() / 2, 4000, 4000, '\0');
    std::ofstream(flac_, std::ios::binary) << bytes;
    EXPECT_TRUE(refused(render(flac_, output_), "out.flac"));
    std::ofstream(flac_) << kPrecious;
    expectNothingChanged();
}

TEST_F(ErrorTest, InputMayBeTheOutputUnderAnotherNameAndKeepsItsPermissions) {
    const Sound input = readSound(input_);
    const auto own = std::filesystem::perms(0640);
    std::filesystem::permissions(input_, own);
    std::filesystem::create_symlink("in.wav", file("link.wav"));
    for (const char* output : {"in.wav", "link.wav"}) {
        EXPECT_TRUE(succeeded(render(input_, file(output), {"--set", "POWER=0", "--tail", "0"})));
        EXPECT_TRUE(sameBits(readSound(input_).samples, input.samples)) << output;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(file("link.wav")));
    EXPECT_EQ(std::filesystem::status(input_).permissions(), own);
}

}  // namespace
}  // namespace tessel8::host::test
