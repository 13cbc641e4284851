// An effect for the tests: it copies its input and writes down every call of its host, one line
// each, into the file named by TESSEL8_PROBE_LOG. TESSEL8_PROBE_KIND makes it misbehave.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "vst/Vst24.h"

namespace {

constexpr std::array<const char*, 4> kNames = {"Level", "ZoomDel", "ModeFB", "Odd name"};

audioMasterCallback askHost = nullptr;
AEffect effect{};

bool isKind(const char* kind) {
    const char* const wanted = std::getenv("TESSEL8_PROBE_KIND");
    return wanted != nullptr && std::strcmp(wanted, kind) == 0;
}

__attribute__((format(printf, 1, 2))) void note(const char* format, ...) {
    const char* const path = std::getenv("TESSEL8_PROBE_LOG");
    FILE* const log = path == nullptr ? nullptr : std::fopen(path, "a");
    if (log == nullptr) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(log, format, arguments);
    va_end(arguments);
    std::fclose(log);
}

/// Tells of the unloading of the file, which comes after the end of the effect.
struct Unloading {
    ~Unloading() { note("unload\n"); }
} const unloading;

int canHostDo(const char* ability) {
    std::string text = ability;
    return int(askHost(&effect, audioMasterCanDo, 0, 0, text.data(), 0));
}

void noteTime() {
    const auto* const time = reinterpret_cast<const VstTimeInfo*>(
        askHost(&effect, audioMasterGetTime, 0, kVstTempoValid, nullptr, 0));
    if (time == nullptr) {
        note(" no time");
        return;
    }
    note(" flags %d position %.0f rate %.0f tempo %.9g ppq %.9f", time->flags, time->samplePos,
         time->sampleRate, time->tempo, time->ppqPos);
}

/// More than any honest effect writes, without an end, and upsetting for a terminal.
void writeNastyText(void* buffer) {
    std::memset(buffer, 'x', 256);
    std::memcpy(buffer, "a\nb\033[2J", 7);
}

void writeText(void* buffer, const char* text) {
    if (isKind("nasty")) {
        writeNastyText(buffer);
    } else {
        std::memcpy(buffer, text, std::strlen(text) + 1);
    }
}

intptr_t dispatch(AEffect* /*self*/, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                  float opt) {
    switch (opcode) {
        case effOpen:
            note("open\n");
            return 0;
        case effClose:
            note("close\n");
            return 1;
        case effSetSampleRate:
            note("rate %.0f\n", double(opt));
            return 0;
        case effSetBlockSize:
            note("block %d\n", int(value));
            return 0;
        case effMainsChanged:
            note("mains %d\n", int(value));
            return 0;
        case effGetParamName:
            writeText(ptr, kNames[size_t(index)]);
            return 0;
        case effGetEffectName:
            writeText(ptr, "Probe");
            return 1;
        case effGetVstVersion:
            return kVstVersion;
        default:
            return 0;
    }
}

void process(AEffect* /*self*/, float** inputs, float** outputs, int32_t frames) {
    note("process %d", frames);
    noteTime();
    note("\n");
    if (isKind("slow")) {
        usleep(10'000);
    }
    for (int channel = 0; channel < 2; ++channel) {
        std::copy_n(inputs[channel], frames, outputs[channel]);
        if (isKind("endless")) {
            std::fill_n(outputs[channel], frames, 0.25F);
        }
    }
}

void setParameter(AEffect* /*self*/, int32_t index, float value) {
    note("set %d %.9g\n", index, double(value));
}

float getParameter(AEffect* /*self*/, int32_t index) {
    return float(index);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(
    audioMasterCallback callback) {
    askHost = callback;
    if (isKind("unwilling")) {
        return nullptr;
    }
    note("version %d\n", int(askHost(nullptr, audioMasterVersion, 0, 0, nullptr, 0)));
    for (const char* ability :
         {"sendVstEvents", "sendVstMidiEvent", "sendVstTimeInfo", "sizeWindow", ""}) {
        note("can %s %d\n", ability, canHostDo(ability));
    }
    note("while made");
    noteTime();
    note("\n");
    effect.magic = isKind("damaged") ? 0 : kEffectMagic;
    effect.dispatcher = dispatch;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
    effect.processReplacing = process;
    effect.numParams = int32_t(kNames.size());
    effect.numInputs = isKind("mono") ? 1 : 2;
    effect.numOutputs = 2;
    effect.flags = isKind("flags") ? effFlagsCanReplacing | 1 << 20 : effFlagsCanReplacing;
    effect.uniqueID = fourCharacters('P', 'r', 'b', '\n');
    effect.initialDelay = 64;
    return &effect;
}
