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
    EXPECT_FALSE(effect.canHostDo("sendVstMidiEvent"));
    EXPECT_EQ(effect.canDo("receiveVstMidiEvent"), 0);
    EXPECT_EQ(effect.getTimeInfo(kVstTempoValid), nullptr);
    effect.processReplacing(nullptr, nullptr, 0);
    EXPECT_EQ(effect.appliedValue(3), 0.25f);
    EXPECT_EQ(effect.appliedValue(382), 120.0f);
}

TEST(HostCalls, AutomationIsAppliedAndThenAnnounced) {
    HostedEffect hosted;
    host.calls.clear();
    hosted.object().setParameterAutomated(201, 0.75f);
    EXPECT_EQ(hosted.get(201), 0.75f);
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0], (FakeHost::Call{audioMasterAutomate, 201, 0, 0.75f}));
    hosted.object().beginEdit(333);
    hosted.object().endEdit(333);
    hosted.object().updateDisplay();
    ASSERT_EQ(host.calls.size(), 4u);
    EXPECT_EQ(host.calls[1], (FakeHost::Call{audioMasterBeginEdit, 333, 0, 0.0f}));
    EXPECT_EQ(host.calls[2], (FakeHost::Call{audioMasterEndEdit, 333, 0, 0.0f}));
    EXPECT_EQ(host.calls[3], (FakeHost::Call{audioMasterUpdateDisplay, 0, 0, 0.0f}));
}

TEST(HostCalls, TheHostsTempoIsAskedForAndBelievedByTheSameBit) {
    HostedEffect hosted;
    hosted.rate(44100.0f);
    hosted.mains(true);
    host.knowsTime = true;
    host.time.tempo = 100.0;
    host.time.flags = kVstPpqPosValid;  // a tempo that does not count
    host.calls.clear();
    hosted.set(4, 1.0f);
    hosted.noise();
    EXPECT_EQ(hosted.get(382), 120.0f);
    EXPECT_GT(host.count(audioMasterGetTime), 0);
    for (const FakeHost::Call& call : host.calls) {
        EXPECT_EQ(call, (FakeHost::Call{audioMasterGetTime, 0, kVstTempoValid, 0.0f}));
    }
    host.time.flags = kVstTempoValid;
    hosted.set(3, 0.5f);
    hosted.noise();
    EXPECT_EQ(hosted.get(382), 100.0f);
    EXPECT_EQ(hosted.get(5), 0.21875f);
    host.time.tempo = 140.0;
    hosted.noise();
    EXPECT_EQ(hosted.get(382), 140.0f);
    EXPECT_EQ(hosted.get(5), 0.21875f);  // until something is applied
    hosted.set(3, 0.5f);
    hosted.noise();
    EXPECT_EQ(hosted.get(5), 0.34375f);
    host.time.tempo = 321.0;
    hosted.noise();
    EXPECT_EQ(hosted.get(382), 140.0f);
    hosted.set(4, 0.5f);
    host.calls.clear();
    hosted.noise();
    EXPECT_EQ(host.calls.size(), 0u);
}

TEST(HostCalls, TheSongPositionIsAskedForWhileTheLfoIsInSync) {
    HostedEffect hosted;
    hosted.rate(44100.0f);
    hosted.mains(true);
    hosted.set(8, 1.0f);
    hosted.set(15, 1.0f);
    host.calls.clear();
    hosted.noise();
    ASSERT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(host.calls[0], (FakeHost::Call{audioMasterGetTime, 0, kVstPpqPosValid, 0.0f}));
}

TEST(ProgramNames, ComeForAll140ProgramsAndNoOther) {
    HostedEffect hosted;
    char text[32];
    for (const int32_t index : {0, 139}) {
        std::memset(text, 'x', sizeof text);
        EXPECT_EQ(hosted.send(effGetProgramNameIndexed, index, 0, text), 1);
        EXPECT_STREQ(text, "*init");
        EXPECT_EQ(text[24], 0);
        EXPECT_EQ(text[25], 'x') << "24 bytes and a zero, no more";
    }
    for (const int32_t index : {-1, 140, INT32_MAX, INT32_MIN}) {
        std::memset(text, 'x', sizeof text);
        EXPECT_EQ(hosted.send(effGetProgramNameIndexed, index, 0, text), 0) << index;
        EXPECT_EQ(text[0], 'x') << index;
    }
}

TEST(ProgramNames, HoldAtMost23Characters) {
    HostedEffect hosted;
    char text[32];
    const auto renamed = [&](std::string name) {
        hosted.send(effSetProgramName, 0, 0, name.data());
        std::memset(text, 'x', sizeof text);
        hosted.send(effGetProgramName, 0, 0, text);
        return std::string(text);
    };
    EXPECT_EQ(renamed("Rain on a Tin Roof"), "Rain on a Tin Roof");
    EXPECT_EQ(renamed("A name of 23 characters"), "A name of 23 characters");
    EXPECT_EQ(renamed("A name of 24 characters!"), "A name of 24 characters");
    EXPECT_EQ(renamed("A much longer name than any record holds"), "A much longer name than");
    EXPECT_EQ(renamed(""), "");
    EXPECT_EQ(std::string(text + 1, 24), std::string(24, '\0')) << "old bytes are zeroed";
    hosted.send(effGetProgramNameIndexed, 1, 0, text);
    EXPECT_STREQ(text, "*init");
}

TEST(ProgramNames, OutlastAHostThatChoosesAProgram) {
    HostedEffect hosted;
    hosted.set(3, 0.125f);
    for (const intptr_t program : {0, 1, 7, -1, 139}) {
        EXPECT_EQ(hosted.send(effSetProgram, 0, program), 0);
        EXPECT_EQ(hosted.send(effGetProgram), 0);
    }
    EXPECT_EQ(hosted.get(3), 0.125f);
}

TEST(Version, IsTakenApartFromItsLiteral) {
    char text[kVersionTextBytes];
    // 1 << 24 | 6 << 16 | 1 << 8 | 349; 349 is above 255 and reaches into the third field.
    EXPECT_EQ(versionNumber("1.6.1.349", text), 0x0106015D);
    EXPECT_STREQ(text, "1.6.1 build 349");
    EXPECT_EQ(versionNumber("1.6.2.349", text), 0x0106035D);
    EXPECT_EQ(versionNumber("2.10.3.4", text), 0x020A0304);
    EXPECT_STREQ(text, "2.10.3 build 4");
    // 34 characters are the most; the next digit is one too many.
    EXPECT_EQ(versionNumber("1.6.1.0000000000000000000349", text), 0x0106015D);
    EXPECT_EQ(std::strlen(text), 34u);
    for (const char* odd : {"1.6.1", "16", "1.6.1.00000000000000000000349"}) {
        EXPECT_EQ(versionNumber(odd, text), 0x01060100) << odd;
        EXPECT_STREQ(text, odd);
    }
    HostedEffect hosted;
    EXPECT_EQ(hosted.object().getVersion(text), 17170781);
    EXPECT_STREQ(text, "1.6.1 build 349");
}

}  // namespace tessel8
