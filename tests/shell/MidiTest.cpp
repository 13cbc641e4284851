// MIDI controllers: the map they follow, what else comes in, and learn.

#include <algorithm>

#include "shell/FakeHost.h"

namespace tessel8 {

namespace {

struct MidiEffect : HostedEffect {
    void midi(uint8_t status, uint8_t data1, uint8_t data2, int32_t type = kVstMidiType) {
        VstMidiEvent event{};
        event.type = type;
        event.byteSize = sizeof event;
        const uint8_t bytes[] = {status, data1, data2};
        std::memcpy(event.midiData, bytes, sizeof bytes);
        VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event), nullptr}};
        EXPECT_EQ(send(effProcessEvents, 0, 0, &events), 1);
    }
    void controller(uint8_t number, uint8_t value) { midi(0xB0, number, value); }
    bool isLearning() { return get(332) != 0.0f; }
    int32_t controllerOf(int32_t index) { return object().controllerForParameter(index); }
    /// One pass of learn; a controller of 255 is not heard.
    void learn(uint8_t number, int32_t tag) {
        set(332, 1.0f);
        if (number != 255) {
            controller(number, 64);
        }
        EXPECT_TRUE(isLearning());
        object().learnController(tag);
        EXPECT_FALSE(isLearning());
    }
};

}  // namespace

TEST(MidiControllers, DriveTheDefaultMapAndTheHostRecordsIt) {
    MidiEffect hosted;
    // By hand from the user's table; 20 is the resonance of the second tap.
    const int32_t parameters[] = {1,   2,   3,   0,   176, 48, 56, 64, 5,  6,   24, 152,
                                  136, 144, 168, 160, 128, 72, 80, 89, 96, 104, 112};
    for (uint8_t number = 1; number <= 23; ++number) {
        host.calls.clear();
        hosted.controller(number, 64);
        const FakeHost::Call automate{audioMasterAutomate, parameters[number - 1], 0,
                                      64.0f / 127.0f};
        EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), automate), 1) << int(number);
    }
    host.calls.clear();
    for (const uint8_t number : {0, 24, 119, 120, 127, 128, 255}) {
        hosted.controller(number, 1);
    }
    EXPECT_TRUE(host.calls.empty());
    // All channels, and the system messages above them; anything else is not a controller.
    const float before = hosted.get(3);
    for (const int status : {0x80, 0x90, 0xA0, 0xC0, 0xD0, 0xE0}) {
        hosted.midi(uint8_t(status), 3, 1);
    }
    hosted.midi(0xB0, 3, 1, 6);  // not a MIDI event
    EXPECT_EQ(hosted.get(3), before);
    uint8_t value = 1;
    for (const int base : {0xB0, 0xF0}) {
        for (int channel = 0; channel < 16; ++channel, ++value) {
            hosted.midi(uint8_t(base + channel), 3, value);
            EXPECT_EQ(hosted.get(3), float(value) / 127.0f);
        }
    }
    EXPECT_EQ(hosted.send(effProcessEvents), 1);
}

TEST(MidiControllers, PressTheTapPadWithTheTopValueAndTellNobody) {
    MidiEffect hosted;
    hosted.object().controllerMapData()[40] = 216;
    host.calls.clear();
    hosted.controller(40, 127);
    hosted.controller(40, 126);
    EXPECT_TRUE(host.calls.empty());
}

TEST(MidiLearn, PutsOneControllerOnOneParameter) {
    MidiEffect hosted;
    hosted.learn(30, 212);
    EXPECT_EQ(hosted.controllerOf(212), 30);
    hosted.learn(31, 212);
    EXPECT_EQ(hosted.controllerOf(212), 31);
    EXPECT_EQ(hosted.object().controllerMapData()[30], 217);
    hosted.learn(1, 212);  // takes controller 1 from Input
    EXPECT_EQ(hosted.controllerOf(212), 1);
    EXPECT_EQ(hosted.controllerOf(1), 128);
    hosted.learn(0, 212);  // cannot be learnt: the older one goes all the same
    EXPECT_EQ(hosted.controllerOf(212), 128);
    hosted.learn(50, 9);  // a note key of the LFO
    EXPECT_EQ(hosted.controllerOf(11), 50);
    hosted.learn(51, 305);  // a bar
    EXPECT_EQ(hosted.controllerOf(167), 51);
    hosted.learn(52, 216);
    EXPECT_EQ(hosted.controllerOf(216), 52);
}

TEST(MidiLearn, EndsWithNothingAssigned) {
    MidiEffect hosted;
    const auto map = [&] {
        const uint8_t* const data = hosted.object().controllerMapData();
        return std::vector<uint8_t>(data, data + 128);
    };
    const auto before = map();
    hosted.learn(255, 48);   // nothing heard
    hosted.learn(121, 212);  // a mode message
    hosted.learn(60, 340);   // a column head
    for (const int32_t tag :
         {-1, 7, 120, 127, 184, 191, 193, 200, 205, 306, 307, 328, 332, 337, 357}) {
        hosted.learn(60, tag);
    }
    EXPECT_EQ(map(), before);
    hosted.set(332, 1.0f);
    hosted.controller(61, 1);
    EXPECT_TRUE(hosted.isLearning());
    hosted.set(3, 0.3f);  // any value from elsewhere
    EXPECT_FALSE(hosted.isLearning());
    hosted.set(332, 1.0f);
    hosted.mains(true);
    EXPECT_FALSE(hosted.isLearning());
    hosted.controller(3, 127);
    EXPECT_EQ(hosted.get(3), 1.0f) << "controllers drive again";
    hosted.object().clearControllerMap();
    hosted.controller(3, 0);
    EXPECT_EQ(hosted.get(3), 1.0f);
    hosted.object().resetControllerMap();
    EXPECT_EQ(map(), before);
}

TEST(StatusTexts, AreCutAndCarryTheirUnits) {
    HostedEffect hosted;
    hosted.rate(44100.0f);
    const auto text = [&](void (Tessel8::*write)(float, char*, int32_t), float v, int32_t digits) {
        char buffer[64] = "";
        (hosted.object().*write)(v, buffer, digits);
        return std::string(buffer);
    };
    EXPECT_EQ(text(&Tessel8::delayToMsText, 0.1f, 0), "800");
    EXPECT_EQ(text(&Tessel8::delayToMsText, 0.1f, 1), "800.5");
    EXPECT_EQ(text(&Tessel8::gainToDbText, 0.5f, 2), "-6.02");
    EXPECT_EQ(text(&Tessel8::gainToDbText, 4.0f, 0), "12");
    EXPECT_EQ(text(&Tessel8::gainToDbText, 0.0001f, 3), "-100.0");
    EXPECT_EQ(text(&Tessel8::samplesToMsText, 441.0f, 1), "10.0 ms");
    EXPECT_EQ(text(&Tessel8::samplesToMsText, 100.0f, 3), "2.267 ms");
    EXPECT_EQ(text(&Tessel8::gainToDbUnitText, 2.0f, 1), "6.0dB");
    EXPECT_EQ(text(&Tessel8::gainToDbUnitText, 0.0f, 1), "-100dB");
}

}  // namespace tessel8
