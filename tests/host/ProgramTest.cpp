// Programs out of the effect's store, by number and by name.

#include "HostTest.h"

namespace tessel8::host::test {
namespace {

class ProgramTest : public HostTest {
  protected:
    ProgramTest() { writeSound(file("in.wav"), noise(4800)); }
};

TEST_F(ProgramTest, NumbersAndNamesChooseAProgramBeforeTheSettings) {
    for (const auto& [text, number] :
         {std::pair{"2", "2"}, {"wide", "3"}, {"WIDE", "1"}, {"*INIT", "0"}}) {
        useProbe("");
        const Strings options = {"--set", "ModeFB=1", "--program", text};
        EXPECT_TRUE(succeeded(render(file("in.wav"), file("out.wav"), options)));
        const std::string calls = "chunk of 986769 program " + std::string(number) + "\n";
        const size_t chosen = contentsOf(log()).find(calls);
        EXPECT_LT(chosen, contentsOf(log()).find("set 2 1\n")) << text;
    }
    std::filesystem::remove(file("out.wav"));
    for (const auto& [text, phrase] :
         {std::pair{"4", "0 to 3"}, {"-1", "0 to 3"}, {"Wid", "\"Wide\""}}) {
        const HostRun run = render(file("in.wav"), file("out.wav"), {"--program", text});
        EXPECT_TRUE(refused(run, phrase));
        EXPECT_FALSE(std::filesystem::exists(file("out.wav")));
    }
}

}  // namespace
}  // namespace tessel8::host::test
