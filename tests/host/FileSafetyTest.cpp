// The output appears whole or not at all, and a file that was there before is safe.

#include <csignal>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class FileSafetyTest : public HostTest {
  protected:
    FileSafetyTest() {
        writeSound(file("in.wav"), noise(48'000));
        std::ofstream(file("out.wav")) << kPrecious;
        std::ofstream(file("out.flac")) << kPrecious;
    }

    static constexpr const char* kPrecious = "precious";
    const std::set<std::string> before_ = {"in.wav", "out.wav", "out.flac"};
};

TEST_F(FileSafetyTest, ExistingOutputSurvivesAWrongOption) {
    EXPECT_TRUE(refused(render(file("in.wav"), file("out.wav"), {"--set", "Mix=2"}), "Mix"));
    EXPECT_EQ(contentsOf(file("out.wav")), kPrecious);
    EXPECT_EQ(filesInFolder(), before_);
}

TEST_F(FileSafetyTest, ExistingOutputSurvivesAFullDisk) {
    // A WAV fails while it is written; a FLAC of so little noise only when it is closed.
    struct Case {
        const char* output;
        long limit;
    };
    for (const Case& c : {Case{"out.wav", 100'000}, {"out.wav", 0}, {"out.flac", 1'000}}) {
        const HostRun run =
            runHost({"render", file("in.wav"), file(c.output), "--plugin", TESSEL8_PLUGIN},
                    {.mostFileBytes = c.limit});
        EXPECT_TRUE(refused(run, std::string("cannot write ") + file(c.output).string()));
        EXPECT_EQ(contentsOf(file(c.output)), kPrecious) << c.output;
        EXPECT_EQ(filesInFolder(), before_);
    }
}

TEST_F(FileSafetyTest, FailureOfTheVeryLastBytesIsNoticed) {
    // Everything fits but the last few bytes.
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("whole.flac"), {"--tail", "0"})));
    const auto size = long(std::filesystem::file_size(file("whole.flac")));
    const HostRun run = runHost(
        {"render", file("in.wav"), file("out.flac"), "--tail", "0", "--plugin", TESSEL8_PLUGIN},
        {.mostFileBytes = size - 3});
    EXPECT_TRUE(refused(run, "cannot write"));
    EXPECT_EQ(contentsOf(file("out.flac")), kPrecious);
}

TEST_F(FileSafetyTest, ExistingOutputSurvivesAnInterruption) {
    for (const int signal : {SIGINT, SIGTERM}) {
        std::filesystem::remove(file("log"));
        const HostRun run = runHost(
            {"render", file("in.wav"), file("out.wav"), "--plugin", TESSEL8_PROBE},
            {.environment = {{"TESSEL8_PROBE_KIND", "slow"}, {"TESSEL8_PROBE_LOG", file("log")}},
             .signal = signal,
             .signalWhen = file("log")});
        EXPECT_EQ(run.exitCode, 128 + signal);
        EXPECT_EQ(contentsOf(file("out.wav")), kPrecious);
        std::set<std::string> after = before_;
        after.insert("log");
        EXPECT_EQ(filesInFolder(), after);
        // The effect is taken down in order all the same, from wherever it had got to.
        const std::string log = contentsOf(file("log"));
        const bool started = log.find("mains 1\n") != std::string::npos;
        EXPECT_NE(log.find(started ? "mains 0\nclose\nunload\n" : "close\nunload\n"),
                  std::string::npos)
            << log;
    }
}

TEST_F(FileSafetyTest, BrokenInputLeavesNothingBehind) {
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("whole.flac"), {"--tail", "0"})));
    std::string bytes = contentsOf(file("whole.flac"));
    bytes.replace(bytes.size() / 2, 4000, 4000, '\0');
    std::ofstream(file("broken.flac"), std::ios::binary) << bytes;
    std::filesystem::remove(file("whole.flac"));
    const HostRun run = render(file("broken.flac"), file("out.wav"));
    EXPECT_TRUE(refused(run, "broken.flac"));
    EXPECT_EQ(contentsOf(file("out.wav")), kPrecious);
}

TEST_F(FileSafetyTest, InputMayBeTheOutput) {
    const Sound input = readSound(file("in.wav"));
    ASSERT_TRUE(
        succeeded(render(file("in.wav"), file("in.wav"), {"--set", "POWER=0", "--tail", "0.25"})));
    const Sound output = readSound(file("in.wav"));
    ASSERT_EQ(output.frames(), input.frames() + 12'000);
    const std::vector<float> start(output.samples.begin(),
                                   output.samples.begin() + ptrdiff_t(input.samples.size()));
    EXPECT_EQ(firstDifference(start, input.samples), -1);
    EXPECT_EQ(filesInFolder(), before_);
}

TEST_F(FileSafetyTest, InputMayBeTheOutputUnderAnotherName) {
    const Sound input = readSound(file("in.wav"));
    std::filesystem::create_symlink("in.wav", file("link.wav"));
    ASSERT_TRUE(
        succeeded(render(file("in.wav"), file("link.wav"), {"--set", "POWER=0", "--tail", "0"})));
    EXPECT_EQ(firstDifference(readSound(file("in.wav")).samples, input.samples), -1);
}

TEST_F(FileSafetyTest, LinkStaysALink) {
    std::filesystem::create_directory(file("elsewhere"));
    std::ofstream(file("elsewhere/real.wav")) << kPrecious;
    std::filesystem::create_symlink("elsewhere/real.wav", file("link.wav"));
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("link.wav"), {"--tail", "0"})));
    EXPECT_TRUE(std::filesystem::is_symlink(file("link.wav")));
    EXPECT_EQ(readSound(file("elsewhere/real.wav")).frames(), 48'000U);
}

TEST_F(FileSafetyTest, ReplacedFileKeepsItsPermissions) {
    using std::filesystem::perms;
    const perms own = perms::owner_read | perms::owner_write | perms::group_read;
    std::filesystem::permissions(file("out.wav"), own);
    ASSERT_TRUE(succeeded(render(file("in.wav"), file("out.wav"), {"--tail", "0"})));
    EXPECT_EQ(std::filesystem::status(file("out.wav")).permissions(), own);
}

}  // namespace

}  // namespace tessel8::host::test
