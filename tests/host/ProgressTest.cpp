// The bar on a terminal.

#include <gmock/gmock.h>

#include <algorithm>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

class ProgressTest : public HostTest {
  protected:
    /// About one second through an effect that takes its time.
    HostRun slowRender(bool onTerminal) {
        writeSound(file("in.wav"), noise(100 * 512));
        return runHost(
            {"render", file("in.wav"), file("out.wav"), "--tail", "0", "--plugin", TESSEL8_PROBE},
            {.environment = {{"TESSEL8_PROBE_KIND", "slow"}}, .errorsOnTerminal = onTerminal});
    }
};

TEST_F(ProgressTest, BarRunsOnATerminalAtMostTwentyTimesASecondAndIsWiped) {
    const HostRun run = slowRender(true);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const auto draws = std::count(run.err.begin(), run.err.end(), '%');
    EXPECT_GE(draws, 5);
    EXPECT_LE(double(draws), run.time.count() * 20 + 1);
    EXPECT_THAT(run.err, testing::ContainsRegex("\\[=+ +\\]  [4-6][0-9] %"));
    // The last that it sends clears the line.
    const std::string wipe = "\r\033[K";
    ASSERT_GE(run.err.size(), wipe.size());
    EXPECT_EQ(run.err.substr(run.err.size() - wipe.size()), wipe);
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1);
}

TEST_F(ProgressTest, NothingIsDrawnIntoAFileOrPipe) {
    EXPECT_TRUE(succeeded(slowRender(false)));
}

}  // namespace

}  // namespace tessel8::host::test
