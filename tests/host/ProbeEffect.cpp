// An effect for the tests: it copies its input and writes down every call of its host, one line
// each, into the file named by TESSEL8_PROBE_LOG. TESSEL8_PROBE_KIND makes it misbehave.

#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "vst/Vst24.h"

namespace {

audioMasterCallback askHost = nullptr;
AEffect effect{};
xcb_connection_t* display = nullptr;  // of the panel

bool isKind(const char* kind) {
    const char* const asked = std::getenv("TESSEL8_PROBE_KIND");
    return asked && std::strcmp(asked, kind) == 0;
}

template <typename... Parts>
void note(const Parts&... parts) {
    std::ofstream log(std::getenv("TESSEL8_PROBE_LOG"), std::ios::app);
    log.precision(15);
    (log << ... << parts) << '\n';
}

/// Tells of the unloading of the file, which comes after the end of the effect.
struct Unloading {
    ~Unloading() { note("unload"); }
} const unloading;

void noteTime(const std::string& when) {
    const auto* const time = reinterpret_cast<const VstTimeInfo*>(
        askHost(&effect, audioMasterGetTime, 0, kVstTempoValid, nullptr, 0));
    if (time == nullptr) {
        note(when, " no time");
    } else {
        note(when, " flags ", time->flags, " position ", time->samplePos, " rate ",
             time->sampleRate, " tempo ", time->tempo, " ppq ", time->ppqPos);
    }
}

void noteMessages(const VstEvents& events) {
    for (int32_t i = 0; i < events.numEvents; ++i) {
        const auto& event = *reinterpret_cast<const VstMidiEvent*>(events.events[i]);
        const auto* const bytes = reinterpret_cast<const uint8_t*>(event.midiData);
        note(event.type == kVstMidiType ? "message " : "strange event ", int(bytes[0]), " ",
             int(bytes[1]), " ", int(bytes[2]), " after ", event.deltaFrames);
    }
}

intptr_t openPanel(void* parent) {
    note("panel opened");
    display = xcb_connect(nullptr, nullptr);
    const auto window = xcb_window_t(reinterpret_cast<uintptr_t>(parent));
    const uint32_t values[] = {0x123456, 0x4 | 0x8};  // presses and releases of buttons
    xcb_create_window(display, 0, xcb_generate_id(display), window, 0, 0, 40, 30, 0, 1, 0,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_map_subwindows(display, window);
    return xcb_flush(display);
}

void noteClicks() {
    while (auto* const event =
               reinterpret_cast<xcb_button_press_event_t*>(xcb_poll_for_event(display))) {
        note("event ", event->response_type & 0x7F, " at ", event->event_x, " ", event->event_y);
        std::free(event);
    }
}

intptr_t dispatch(AEffect*, int32_t opcode, int32_t index, intptr_t value, void* ptr, float opt) {
    static ERect panelSize{0, 0, 30, 40};
    constexpr const char* kNames[] = {"Level", "ZoomDel", "ModeFB", "Odd name"};
    if (opcode == effOpen) {
        note("open");
    } else if (opcode == effClose) {
        note("close");
        return 1;
    } else if (opcode == effSetSampleRate) {
        note("rate ", opt);
    } else if (opcode == effSetBlockSize) {
        note("block ", value);
    } else if (opcode == effMainsChanged) {
        note("mains ", value);
    } else if (opcode == effProcessEvents) {
        noteMessages(*static_cast<const VstEvents*>(ptr));
    } else if (opcode == effGetParamName) {
        std::snprintf(static_cast<char*>(ptr), 9, "%s", kNames[index]);
    } else if (opcode == effEditGetRect) {
        *static_cast<ERect**>(ptr) = &panelSize;
    } else if (opcode == effEditOpen) {
        return openPanel(ptr);
    } else if (opcode == effEditIdle) {
        noteClicks();
    } else if (opcode == effEditClose) {
        xcb_disconnect(display);
        note("panel closed");
    }
    return opcode == effGetVstVersion ? kVstVersion : 0;
}

void process(AEffect*, float** inputs, float** outputs, int32_t frames) {
    noteTime("process " + std::to_string(frames));
    if (isKind("panel") && std::count(inputs[0], inputs[0] + frames, 0.0F) != 0) {
        note("process silence");
    }
    usleep(isKind("slow") ? 10'000 : 0);
    for (int channel = 0; channel < 2; ++channel) {
        std::copy_n(inputs[channel], frames, outputs[channel]);
        if (isKind("endless")) {
            std::fill_n(outputs[channel], frames, 0.25F);
        }
    }
}

}  // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(
    audioMasterCallback callback) {
    askHost = callback;
    if (isKind("unwilling")) {
        return nullptr;
    }
    note("version ", askHost(nullptr, audioMasterVersion, 0, 0, nullptr, 0));
    for (std::string ability :
         {"sendVstEvents", "sendVstMidiEvent", "sendVstTimeInfo", "sizeWindow", ""}) {
        note("can ", ability, " ", askHost(&effect, audioMasterCanDo, 0, 0, ability.data(), 0));
    }
    noteTime("while made");
    effect.magic = isKind("damaged") ? 0 : kEffectMagic;
    effect.dispatcher = dispatch;
    effect.setParameter = [](AEffect*, int32_t index, float value) {
        note("set ", index, " ", value);
    };
    effect.getParameter = [](AEffect*, int32_t index) { return float(index); };
    effect.processReplacing = process;
    effect.numParams = 4;
    effect.numInputs = isKind("mono") ? 1 : 2;
    effect.numOutputs = 2;
    effect.flags = effFlagsCanReplacing | (isKind("panel") ? effFlagsHasEditor : 0);
    return &effect;
}
