// What passes between host and effect besides audio.

#include "shell/FakeHost.h"
#include "shell/Version.h"

namespace tessel8 {

TEST(EntryPoints, RefuseAHostWithoutAVersion) {
    for (const auto entry : {VSTPluginMain, secondEntry}) {
        EXPECT_EQ(entry(nullptr), nullptr);
        for (const int refused : {1, 2}) {
            resetHost();
            host.refusedVersionQuestion = refused;
            EXPECT_EQ(entry(hostCallback), nullptr) << "question " << refused;
            EXPECT_EQ(host.versionQuestions, refused);
        }
        resetHost();
        const HostedEffect hosted(entry(hostCallback));
        EXPECT_NE(hosted.effect, nullptr);
        EXPECT_EQ(host.versionQuestions, 2);
    }
}

TEST(HostCalls, WorkWithoutACallback) {
    Tessel8 effect(nullptr);
    effect.setSampleRate(44100.0f);
    effect.resume();
    effect.setParameterAutomated(3, 0.25f);
    effect.setParameter(4, 1.0f);
    effect.updateDisplay();
    EXPECT_EQ(effect.canDo("receiveVstMidiEvent"), 0);
    effect.processReplacing(nullptr, nullptr, 0);
    EXPECT_EQ(effect.appliedValue(3), 0.25f);
    EXPECT_EQ(effect.appliedValue(382), 120.0f);
}

TEST(HostCalls, AutomationIsAppliedAndThenAnnounced) {
    HostedEffect hosted;
    host.calls.clear();
    hosted.object().setParameterAutomated(201, 0.75f);
    EXPECT_EQ(hosted.get(201), 0.75f);
    hosted.object().beginEdit(333);
    hosted.object().endEdit(333);
    hosted.object().updateDisplay();
    const std::vector<FakeHost::Call> expected = {{audioMasterAutomate, 201, 0, 0.75f},
                                                  {audioMasterBeginEdit, 333, 0, 0.0f},
                                                  {audioMasterEndEdit, 333, 0, 0.0f},
                                                  {audioMasterUpdateDisplay, 0, 0, 0.0f}};
    EXPECT_TRUE(host.calls == expected);
}

TEST(HostCalls, TempoAndSongPositionAreAskedForByTheirBitsAndOnlyWhenUsed) {
    HostedEffect hosted;
    hosted.rate(44100.0f);
    hosted.mains(true);
    host.knowsTime = true;
    const auto expectTempo = [&](double told, int32_t flags, float applied) {
        host.time.tempo = told;
        host.time.flags = flags;
        hosted.noise();
        EXPECT_EQ(hosted.get(382), applied);
    };
    host.calls.clear();
    hosted.set(4, 1.0f);
    expectTempo(100.0, kVstPpqPosValid, 120.0f);  // a tempo that does not count
    EXPECT_FALSE(host.calls.empty());
    for (const FakeHost::Call& call : host.calls) {
        EXPECT_EQ(call, (FakeHost::Call{audioMasterGetTime, 0, kVstTempoValid, 0.0f}));
    }
    expectTempo(140.0, kVstTempoValid, 140.0f);
    hosted.set(3, 0.5f);
    hosted.noise();
    EXPECT_EQ(hosted.get(5), 0.34375f);
    expectTempo(321.0, kVstTempoValid, 140.0f);
    hosted.set(4, 0.5f);
    host.calls.clear();
    hosted.noise();
    EXPECT_TRUE(host.calls.empty());
    hosted.set(8, 1.0f);
    hosted.set(15, 1.0f);
    hosted.noise();
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0], (FakeHost::Call{audioMasterGetTime, 0, kVstPpqPosValid, 0.0f}));
}

TEST(ProgramNames, HoldAtMost23CharactersAndBelongToThePanel) {
    HostedEffect hosted;
    char text[32];
    const auto nameOf = [&](int32_t index) {
        std::memset(text, 'x', sizeof text);
        return hosted.send(effGetProgramNameIndexed, index, 0, text);
    };
    for (const int32_t index : {-1, 140, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(nameOf(index), 0) << index;
        EXPECT_EQ(text[0], 'x') << index;
    }
    EXPECT_EQ(nameOf(139), 1);
    EXPECT_STREQ(text, "*init");
    EXPECT_EQ(std::string(text + 5, 20), std::string(20, '\0')) << "old bytes are zeroed";
    EXPECT_EQ(text[25], 'x') << "24 bytes and a zero, no more";
    for (std::string name : {"A name of 24 characters!", "A much longer name than any", ""}) {
        hosted.send(effSetProgramName, 0, 0, name.data());
        hosted.send(effGetProgramName, 0, 0, text);
        EXPECT_EQ(text, name.substr(0, 23));
    }
    hosted.set(3, 0.125f);
    for (const intptr_t program : {1, -1, 139}) {
        EXPECT_EQ(hosted.send(effSetProgram, 0, program), 0);
        EXPECT_EQ(hosted.send(effGetProgram), 0);
    }
    EXPECT_EQ(hosted.get(3), 0.125f);
}

TEST(Version, IsTakenApartFromItsLiteral) {
    char text[kVersionTextBytes];
    EXPECT_EQ(versionNumber("2.10.3.4", text), 0x020A0304);
    EXPECT_STREQ(text, "2.10.3 build 4");
    EXPECT_EQ(versionNumber("1.6.1.00000000000000000000349", text), 0x01060100);  // too long
    EXPECT_STREQ(text, "1.6.1.00000000000000000000349");
}

}  // namespace tessel8
