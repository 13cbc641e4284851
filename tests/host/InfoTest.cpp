// What `list`, `info`, --help and --version print.

#include <iterator>

#include "HostTest.h"

namespace tessel8::host::test {

namespace {

using InfoTest = HostTest;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Words of a line; columns are parted by blanks.
std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// The text behind the subject in what `info` prints.
std::string told(const std::string& text, const std::string& subject) {
    for (const std::string& line : linesOf(text)) {
        if (line.rfind(subject + " ", 0) == 0) {
            return line.substr(line.find_first_not_of(' ', subject.size()));
        }
    }
    return "(nothing about " + subject + ")";
}

TEST_F(InfoTest, ParameterTableHasARowForEachParameter) {
    const HostRun run = runHost({"list", "--params", "--plugin", TESSEL8_PLUGIN});
    ASSERT_TRUE(succeeded(run));
    const std::vector<std::string> lines = linesOf(run.out);
    ASSERT_EQ(lines.size(), 1U + 215);
    using Words = std::vector<std::string>;
    EXPECT_EQ(wordsOf(lines[0]), (Words{"index", "name", "value", "display", "label"}));
    for (size_t i = 0; i < 215; ++i) {
        EXPECT_EQ(wordsOf(lines[1 + i])[0], std::to_string(i));
    }
    EXPECT_EQ(wordsOf(lines[1 + 0]), (Words{"0", "POWER", "1", "ON"}));
    EXPECT_EQ(wordsOf(lines[1 + 5]), (Words{"5", "Tempo", "0.28125", "120.0", "BPM"}));
    EXPECT_EQ(wordsOf(lines[1 + 7]), (Words{"7", "ZoomDel", "18", "8000", "ms"}));
    EXPECT_EQ(wordsOf(lines[1 + 8]), (Words{"8", "-----", "0"}));
    EXPECT_EQ(wordsOf(lines[1 + 42])[1], "FbPostT3");
    EXPECT_EQ(wordsOf(lines[1 + 192]), (Words{"192", "ModeFB", "0", "MultiEcho"}));
    EXPECT_EQ(wordsOf(lines[1 + 214])[1], "ActiveFB");
}

TEST_F(InfoTest, OwnPluginIsDescribed) {
    const HostRun run = runHost({"info", TESSEL8_PLUGIN});
    ASSERT_TRUE(succeeded(run));
    EXPECT_EQ(told(run.out, "name"), "Vantor Tessel Echo");
    EXPECT_EQ(told(run.out, "vendor"), "Vantoraudio");
    EXPECT_EQ(told(run.out, "product"), "Vantor Tessel Echo - 8 tap delay plug-in");
    EXPECT_EQ(told(run.out, "version"), "17170781 (0x0106015D)");
    EXPECT_EQ(told(run.out, "unique id"), "TSL8 (0x54534C38)");
    EXPECT_EQ(told(run.out, "inputs"), "2");
    EXPECT_EQ(told(run.out, "outputs"), "2");
    EXPECT_EQ(told(run.out, "parameters"), "215");
    EXPECT_EQ(told(run.out, "programs"), "1");
    EXPECT_EQ(told(run.out, "flags"), "editor, replacing, chunks");
    EXPECT_EQ(told(run.out, "category"), "effect");
    EXPECT_EQ(told(run.out, "VST version"), "2.4");
    EXPECT_EQ(told(run.out, "initial delay"), "0 frames");
    EXPECT_EQ(told(run.out, "tail"), "not told");
}

TEST_F(InfoTest, AnyPluginIsDescribed) {
    const HostRun run =
        runHost({"info", TESSEL8_PROBE}, {.environment = {{"TESSEL8_PROBE_KIND", "flags"}}});
    ASSERT_TRUE(succeeded(run));
    EXPECT_EQ(told(run.out, "name"), "Probe");
    EXPECT_EQ(told(run.out, "unique id"), "Prb? (0x5072620A)");
    EXPECT_EQ(told(run.out, "flags"), "replacing, bit 20");
    EXPECT_EQ(told(run.out, "initial delay"), "64 frames");
    EXPECT_EQ(told(run.out, "category"), "unknown");
}

TEST_F(InfoTest, TextsWithoutEndOrWithControlCharactersAreTamed) {
    const HostRun run =
        runHost({"info", TESSEL8_PROBE}, {.environment = {{"TESSEL8_PROBE_KIND", "nasty"}}});
    ASSERT_TRUE(succeeded(run));
    EXPECT_EQ(told(run.out, "name"), "a?b?[2J" + std::string(255 - 7, 'x'));
    EXPECT_EQ(run.out.find('\033'), std::string::npos);
}

TEST_F(InfoTest, VersionIsOneLine) {
    const HostRun run = runHost({"--version"});
    EXPECT_TRUE(succeeded(run));
    EXPECT_EQ(run.out, "tessel8 1.6.1 build 349\n");
}

TEST_F(InfoTest, HelpNamesEveryOption) {
    const HostRun top = runHost({"--help"});
    EXPECT_TRUE(succeeded(top));
    for (const char* command : {"render", "list", "info", "--version"}) {
        EXPECT_NE(top.out.find(command), std::string::npos) << command;
    }
    const HostRun render = runHost({"render", "--help"});
    EXPECT_TRUE(succeeded(render));
    for (const char* option :
         {"IN", "OUT", "--set", "--tempo", "--tail", "--block", "--format", "--plugin"}) {
        EXPECT_NE(render.out.find(option), std::string::npos) << option;
    }
}

}  // namespace

}  // namespace tessel8::host::test
