// Whatever the user gets wrong ends in exit code 2 and one line that says what.

#include <sys/stat.h>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class ErrorTest : public HostTest {
  protected:
    ErrorTest() { writeSound(input_, noise(4800)); }

    HostRun renderWith(const std::vector<std::string>& options) const {
        return render(input_, file("out.wav"), options);
    }

    /// Renders a file that a test has made.
    HostRun renderFrom(const std::filesystem::path& input) const {
        return render(input, file("out.wav"));
    }

    const std::filesystem::path input_ = file("in.wav");
};

TEST_F(ErrorTest, WrongCommandsAreNamed) {
    EXPECT_TRUE(refused(runHost({}), "say what to do"));
    EXPECT_TRUE(refused(runHost({"frobnicate"}), "frobnicate"));
    EXPECT_TRUE(refused(runHost({"--frobnicate"}), "--frobnicate"));
    EXPECT_TRUE(refused(runHost({"render"}), "IN"));
    EXPECT_TRUE(refused(runHost({"render", input_}), "OUT"));
    EXPECT_TRUE(refused(renderWith({"third.wav"}), "third.wav"));
    EXPECT_TRUE(refused(renderWith({"--loud"}), "--loud"));
    EXPECT_TRUE(refused(runHost({"list"}), "--params"));
    EXPECT_TRUE(refused(runHost({"info"}), "PLUGIN"));
}

TEST_F(ErrorTest, MissingInputIsNamed) {
    EXPECT_TRUE(refused(renderFrom(file("absent.wav")), "absent.wav"));
}

TEST_F(ErrorTest, FolderIsNoInput) {
    EXPECT_TRUE(refused(renderFrom(folder_), "folder"));
}

TEST_F(ErrorTest, TextIsNoInput) {
    std::ofstream(file("text.wav")) << "once upon a time";
    EXPECT_TRUE(refused(renderFrom(file("text.wav")), "text.wav"));
}

TEST_F(ErrorTest, EmptyFileIsNoInput) {
    std::ofstream(file("empty.wav")).flush();
    EXPECT_TRUE(refused(renderFrom(file("empty.wav")), "empty.wav"));
}

TEST_F(ErrorTest, InputWithoutFramesIsRefused) {
    writeSound(file("none.wav"), silence(0));
    EXPECT_TRUE(refused(renderFrom(file("none.wav")), "0 frames"));
}

TEST_F(ErrorTest, ThreeChannelsAreRefused) {
    writeSound(file("three.wav"), silence(100, 3));
    EXPECT_TRUE(refused(renderFrom(file("three.wav")), "3 channels"));
}

TEST_F(ErrorTest, RatesOutsideTheEffectsRangeAreRefusedWithTheRange) {
    for (const int rate : {8000, 44099, 192001}) {
        writeSound(file("rate.wav"), silence(100, 2, rate));
        const HostRun run = renderFrom(file("rate.wav"));
        EXPECT_TRUE(refused(run, std::to_string(rate)));
        EXPECT_TRUE(refused(run, "44100 to 192000"));
    }
}

TEST_F(ErrorTest, RatesAtTheEndsOfTheRangeAreTaken) {
    for (const int rate : {44100, 192000}) {
        writeSound(file("rate.wav"), silence(100, 2, rate));
        EXPECT_TRUE(succeeded(renderFrom(file("rate.wav")))) << rate;
    }
}

TEST_F(ErrorTest, LineBreaksInNamesDoNotBreakTheLine) {
    EXPECT_TRUE(refused(renderFrom(file("a\nb.wav")), "a?b.wav"));
}

TEST_F(ErrorTest, OutputThatCannotBeMadeIsNamed) {
    EXPECT_TRUE(refused(render(input_, file("absent/out.wav")), "absent/out.wav"));
    EXPECT_TRUE(refused(render(input_, folder_), "directory"));
    EXPECT_TRUE(refused(render(input_, "/proc/out.wav"), "/proc/out.wav"));
    EXPECT_TRUE(refused(render(input_, file("in.wav") / "out.wav"), "in.wav/out.wav"));
}

TEST_F(ErrorTest, FolderWithoutPermissionIsRefused) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root may write everywhere";
    }
    std::filesystem::create_directory(file("locked"));
    std::filesystem::permissions(
        file("locked"), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_TRUE(refused(render(input_, file("locked/out.wav")), "Permission denied"));
}

TEST_F(ErrorTest, DevicesAreNotReplaced) {
    // A pipe stands for all that is no regular file; a rename over it would make it one.
    ASSERT_EQ(mkfifo(file("pipe.wav").c_str(), 0600), 0);
    EXPECT_TRUE(refused(render(input_, file("pipe.wav")), "not a regular file"));
    EXPECT_TRUE(std::filesystem::is_fifo(file("pipe.wav")));
}

TEST_F(ErrorTest, UnknownEndingsAreRefusedWithTheKnownOnes) {
    const HostRun run = render(input_, file("out.mp4"));
    EXPECT_TRUE(refused(run, "out.mp4"));
    EXPECT_TRUE(refused(run, ".flac"));
}

TEST_F(ErrorTest, InputsSamplesMustFitTheContainer) {
    EXPECT_TRUE(refused(render(input_, file("out.ogg"), {"--format", "input"}), "32 bit float"));
}

TEST_F(ErrorTest, FilesBeyondTheContainersCountAreRefusedBeforehand) {
    writeSound(file("rate.wav"), silence(100, 2, 192000));
    // 3600 s of two floats at this rate are 5.5 GB.
    EXPECT_TRUE(refused(render(file("rate.wav"), file("out.wav"), {"--tail", "3600"}), "4 GiB"));
}

TEST_F(ErrorTest, UnknownParametersAreNamedWithNearNames) {
    EXPECT_TRUE(refused(renderWith({"--set", "Imput=0.5"}), "\"Imput\"; did you mean Input"));
    EXPECT_TRUE(refused(renderWith({"--set", "Frobnicate=1"}), "\"Frobnicate\""));
    EXPECT_TRUE(refused(renderWith({"--set", "=1"}), "\"\""));
    EXPECT_TRUE(refused(renderWith({"--set", "#215=1"}), "\"#215\""));
    EXPECT_TRUE(refused(renderWith({"--set", "#-1=1"}), "\"#-1\""));
    EXPECT_TRUE(refused(renderWith({"--set", "#=1"}), "\"#\""));
    EXPECT_TRUE(refused(renderWith({"--set", "#3x=1"}), "\"#3x\""));
}

TEST_F(ErrorTest, ValuesOfParametersMustBeNumbers) {
    EXPECT_TRUE(refused(renderWith({"--set", "Mix"}), "Name=value"));
    for (const std::string text : {"", "loud", "0.5x", "0,5", "nan", " 0.5"}) {
        EXPECT_TRUE(refused(renderWith({"--set", "Mix=" + text}), "Mix")) << text;
        EXPECT_TRUE(refused(renderWith({"--set", "Mix=" + text}), "is not a number")) << text;
    }
}

TEST_F(ErrorTest, ValuesOutsideTheRangeAreRefusedWithTheRange) {
    for (const std::string text : {"-0.001", "1.001", "inf", "-inf", "1e999"}) {
        EXPECT_TRUE(refused(renderWith({"--set", "Mix=" + text}), "0 to 1\n")) << text;
    }
    EXPECT_TRUE(refused(renderWith({"--set", "ZoomDel=18.5"}), "0 to 18\n"));
    EXPECT_TRUE(refused(renderWith({"--set", "#7=19"}), "0 to 18\n"));
    EXPECT_TRUE(refused(renderWith({"--set", "ModeFB=2.5"}), "0 to 2\n"));
    EXPECT_TRUE(refused(renderWith({"--set", "modefb=-1"}), "0 to 2\n"));
}

TEST_F(ErrorTest, NumbersOfOptionsHaveRanges) {
    for (const std::string tempo : {"19.9", "999.5", "-120"}) {
        EXPECT_TRUE(refused(renderWith({"--tempo", tempo}), "20 to 999\n")) << tempo;
    }
    for (const std::string tail : {"-0.1", "3600.1"}) {
        EXPECT_TRUE(refused(renderWith({"--tail", tail}), "0 to 3600\n")) << tail;
    }
    for (const std::string block : {"0", "65537", "-1"}) {
        EXPECT_TRUE(refused(renderWith({"--block", block}), "1 to 65536\n")) << block;
    }
    EXPECT_TRUE(refused(renderWith({"--block", "1.5"}), "not a whole number"));
    EXPECT_TRUE(refused(renderWith({"--tempo", "fast"}), "\"fast\""));
    EXPECT_TRUE(refused(renderWith({"--tail", "long"}), "\"long\""));
    EXPECT_TRUE(refused(renderWith({"--format", "mp3"}), "\"mp3\""));
}

TEST_F(ErrorTest, EndsOfTheRangesAreTaken) {
    EXPECT_TRUE(succeeded(renderWith({"--tempo", "20", "--block", "1", "--tail", "0"})));
    EXPECT_TRUE(succeeded(renderWith({"--tempo", "999", "--block", "65536", "--tail", "0"})));
    EXPECT_TRUE(succeeded(renderWith(
        {"--set", "ZoomDel=18", "--set", "ModeFB=2", "--set", "Mix=1", "--set", "Mix=0"})));
}

TEST_F(ErrorTest, FilesThatAreNoPluginsAreRefused) {
    std::ofstream(file("text.so")) << "not a library";
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"info"},
          {"list", "--params", "--plugin"},
          {"render", input_, file("out.wav"), "--plugin"}}) {
        const auto runWith = [&](const std::filesystem::path& plugin) {
            std::vector<std::string> arguments = command;
            arguments.push_back(plugin);
            return runHost(arguments);
        };
        EXPECT_TRUE(refused(runWith(file("absent.so")), "absent.so"));
        EXPECT_TRUE(refused(runWith(folder_), folder_));
        EXPECT_TRUE(refused(runWith(file("text.so")), "text.so"));
        EXPECT_TRUE(refused(runWith("/proc/self/exe"), "/proc/self/exe"));
    }
}

TEST_F(ErrorTest, MisbehavingPluginsAreRefused) {
    const auto renderThrough = [&](const std::string& kind) {
        return runHost({"render", input_, file("out.wav"), "--plugin", TESSEL8_PROBE},
                       {.environment = {{"TESSEL8_PROBE_KIND", kind}}});
    };
    EXPECT_TRUE(refused(renderThrough("unwilling"), "refuses"));
    EXPECT_TRUE(refused(renderThrough("damaged"), "not a VST 2.4 plug-in"));
    EXPECT_TRUE(refused(renderThrough("mono"), "two inputs and two outputs"));
}

TEST_F(ErrorTest, FailuresLeaveNoFiles) {
    const std::set<std::string> before = filesInFolder();
    renderWith({"--set", "Frobnicate=1"});
    renderWith({"--tail", "long"});
    render(input_, file("out.mp4"));
    runHost({"render", input_, file("out.wav"), "--plugin", TESSEL8_PROBE},
            {.environment = {{"TESSEL8_PROBE_KIND", "mono"}}});
    EXPECT_EQ(filesInFolder(), before);
}

}  // namespace

}  // namespace tessel8::host::test
