// The built library, loaded and asked as a host does it.

#include <cstring>
#include <optional>
#include <set>
#include <string>

#include "support/PluginLibrary.h"

namespace {

bool hostSendsMidi = false;
int wantsOfMidi = 0;

intptr_t VST_CALL hostCallback(AEffect*, int32_t opcode, int32_t, intptr_t value, void* ptr,
                               float) {
    wantsOfMidi += opcode == audioMasterWantMidi && value == 1;
    if (opcode == audioMasterCanDo) {
        return hostSendsMidi && std::strcmp(static_cast<char*>(ptr), "sendVstMidiEvent") == 0;
    }
    return opcode == audioMasterVersion ? 2400 : 0;
}

class Plugin : public testing::Test {
  protected:
    ~Plugin() override {
        if (effect) {
            send(effClose);
        }
    }
    void SetUp() override {
        hostSendsMidi = false;
        wantsOfMidi = 0;
        library.emplace();
        effect = library->entry()(hostCallback);
        ASSERT_NE(effect, nullptr);
    }

    intptr_t send(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                  float opt = 0.0f) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }
    /// The text that an opcode writes, behind its answer.
    std::string text(int32_t opcode, int32_t index = 0) {
        char buffer[256] = "untouched";
        const intptr_t answer = send(opcode, index, 0, buffer);
        return std::to_string(answer) + " " + buffer;
    }
    intptr_t canDo(const char* what) { return send(effCanDo, 0, 0, const_cast<char*>(what)); }

    std::optional<tessel8::testing::PluginLibrary> library;
    AEffect* effect = nullptr;
};

}  // namespace

TEST_F(Plugin, BothEntriesGiveAnEffectOfTheirOwn) {
    ASSERT_NE(library->entry("main"), nullptr);
    AEffect* const second = library->entry("main")(hostCallback);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, effect);
    EXPECT_EQ(second->uniqueID, effect->uniqueID);
    second->setParameter(second, 3, 0.25f);
    EXPECT_EQ(effect->getParameter(effect, 3), 0.5f);
    EXPECT_EQ(second->dispatcher(second, effClose, 0, 0, nullptr, 0.0f), 1);
}

TEST_F(Plugin, TheRecordShowsAnEffectOfTwoChannelsAnd215Parameters) {
    EXPECT_EQ(effect->magic, 0x56737450);  // "VstP"
    EXPECT_EQ(effect->numPrograms, 1);
    EXPECT_EQ(effect->numParams, 215);
    EXPECT_EQ(effect->numInputs, 2);
    EXPECT_EQ(effect->numOutputs, 2);
    EXPECT_EQ(effect->flags, 49);  // editor, replacing, chunks
    EXPECT_EQ(effect->initialDelay, 0);
    EXPECT_EQ(effect->ioRatio, 1.0f);
    EXPECT_EQ(effect->uniqueID, 0x54534C38);  // "TSL8"
    EXPECT_EQ(effect->version, 1);
    EXPECT_NE(effect->process, nullptr);
    EXPECT_NE(effect->processDoubleReplacing, nullptr);
}

TEST_F(Plugin, TellsNamesVersionsAndParameters) {
    EXPECT_EQ(text(effGetEffectName), "1 Vantor Tessel Echo");
    EXPECT_EQ(text(effGetVendorString), "1 Vantoraudio");
    EXPECT_EQ(text(effGetProductString), "1 Vantor Tessel Echo - 8 tap delay plug-in");
    EXPECT_EQ(text(effGetParamName, 205), "0 LinkPanFB");  // nine characters, uncut
    EXPECT_EQ(text(effGetParamLabel, 12), "0 Deg");
    EXPECT_EQ(text(effGetParamDisplay, 192), "0 MultiEcho");
    EXPECT_EQ(text(effGetProgramNameIndexed, 140), "0 untouched");
    for (const int32_t index : {215, 300, -1}) {
        EXPECT_EQ(text(effGetParamName, index), "0 ");
        EXPECT_EQ(text(effGetParamLabel, index), "0 ");
        EXPECT_EQ(text(effGetParamDisplay, index), "0 ");
        EXPECT_EQ(send(effCanBeAutomated, index), 1);
    }
    EXPECT_EQ(send(effGetVendorVersion), 17170781);
    EXPECT_EQ(send(effGetVstVersion), 2400);
    EXPECT_EQ(send(effGetPlugCategory), 1);
    EXPECT_EQ(send(effIdentify), 0x4E764566);  // "NvEf"
    EXPECT_EQ(send(effGetCurrentMidiProgram), -1);
    EXPECT_EQ(send(effSetTotalSampleToProcess, 0, 123456789), 123456789);
}

TEST_F(Plugin, TakesNullPointersWhereAHostForgetsThem) {
    for (const int32_t opcode :
         {effSetProgramName, effGetProgramName, effGetParamLabel, effGetParamDisplay,
          effGetParamName, effEditGetRect, effGetProgramNameIndexed, effGetEffectName,
          effGetVendorString, effGetProductString, effCanDo, effGetSpeakerArrangement,
          effGetChunk}) {
        EXPECT_EQ(send(opcode), 0) << "opcode " << opcode;
    }
    EXPECT_EQ(send(effProcessEvents), 1);
    EXPECT_EQ(text(effGetProgramName), "0 *init");
}

TEST_F(Plugin, AnswersZeroToEverythingThatItDoesNotServe) {
    // clang-format off
    const std::set<int32_t> kServedOtherwise = {
        effClose, effEditOpen, effIdentify, effGetChunk, effSetChunk, effProcessEvents,
        effCanBeAutomated, effGetPlugCategory, effGetVendorVersion, effGetVstVersion,
        effEditKeyDown, effEditKeyUp, effSetEditKnobMode, effGetCurrentMidiProgram,
        effGetSpeakerArrangement, effSetTotalSampleToProcess};
    // clang-format on
    for (int32_t opcode = -3; opcode <= 100; ++opcode) {
        if (!kServedOtherwise.count(opcode)) {
            EXPECT_EQ(send(opcode, 3, 2), 0) << "opcode " << opcode;
        }
    }
    EXPECT_EQ(send(INT32_MIN, -1, -1) | send(INT32_MAX, -1, -1), 0);
}

TEST_F(Plugin, HasNoSpeakerArrangementAndAPanelOf870By565) {
    int something = 0;
    void* places[] = {&something, &something};
    EXPECT_EQ(send(effGetSpeakerArrangement, 0, reinterpret_cast<intptr_t>(&places[0]), &places[1]),
              0);
    EXPECT_TRUE(!places[0] && !places[1]);
    ERect* rect = nullptr;
    EXPECT_EQ(send(effEditGetRect, 0, 0, &rect), 1);
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->right - rect->left, 870);
    EXPECT_EQ(rect->bottom - rect->top, 565);
}

TEST_F(Plugin, WantsMidiOnEachResumeWhereTheHostSendsIt) {
    send(effMainsChanged, 0, 1);
    EXPECT_EQ(canDo("receiveVstMidiEvent"), 0);
    EXPECT_EQ(wantsOfMidi, 0);
    hostSendsMidi = true;
    for (int turn = 1; turn <= 2; ++turn) {
        send(effMainsChanged, 0, 1);
        send(effMainsChanged, 0, 0);
        EXPECT_EQ(wantsOfMidi, turn);
    }
    EXPECT_EQ(canDo("receiveVstMidiEvent"), 1);
    for (const char* what :
         {"sendVstMidiEvent", "", "receiveVstMidiEven", "receiveVstMidiEvents"}) {
        EXPECT_EQ(canDo(what), 0) << what;
    }
}

TEST_F(Plugin, GivesAnEchoAndCanBeClosedAndLoadedAgain) {
    for (int turn = 0; turn < 2; ++turn) {
        send(effOpen);
        send(effSetSampleRate, 0, 0, nullptr, 48000.0f);
        send(effSetBlockSize, 0, 64);
        effect->setParameter(effect, 4, 0.0f);
        effect->setParameter(effect, 3, 1.0f);
        effect->setParameter(effect, 24, 1000.0f / 384000.0f);
        send(effMainsChanged, 0, 1);
        float left[2048] = {0.5f}, right[2048] = {}, outL[2048], outR[2048];
        for (int block = 0; block <= 20; ++block) {
            float* inputs[] = {block == 20 ? left : right, right};
            float* outputs[] = {outL, outR};
            effect->processReplacing(effect, inputs, outputs, 2048);
        }
        for (int i = 0; i < 2048; ++i) {
            EXPECT_NEAR(outL[i], i == 1000 ? 0.5f : 0.0f, 1e-3f) << "frame " << i;
            EXPECT_EQ(outR[i], 0.0f) << "frame " << i;
        }
        EXPECT_EQ(send(effClose), 1);
        library.reset();
        effect = nullptr;
        SetUp();
    }
}
