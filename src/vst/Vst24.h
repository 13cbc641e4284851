#pragma once

// The binary interface of VST 2.4 as far as this effect uses it: one record that the host
// reads, one callback that the effect calls, and the records that pass between them.
// Hosts are built by others, so every offset is pinned below; x86-64 System V and Windows x64
// agree on all of them.

#include <cstddef>
#include <cstdint>

#ifdef _WIN32
#define VST_CALL __cdecl
#define VST_EXPORT __declspec(dllexport)
#else
#define VST_CALL
#define VST_EXPORT __attribute__((visibility("default")))
#endif

struct AEffect;

using audioMasterCallback = intptr_t(VST_CALL*)(AEffect* effect, int32_t opcode, int32_t index,
                                                intptr_t value, void* ptr, float opt);
using AEffectDispatcherProc = intptr_t(VST_CALL*)(AEffect* effect, int32_t opcode, int32_t index,
                                                  intptr_t value, void* ptr, float opt);
using AEffectProcessProc = void(VST_CALL*)(AEffect* effect, float** inputs, float** outputs,
                                           int32_t sampleFrames);
using AEffectProcessDoubleProc = void(VST_CALL*)(AEffect* effect, double** inputs, double** outputs,
                                                 int32_t sampleFrames);
using AEffectSetParameterProc = void(VST_CALL*)(AEffect* effect, int32_t index, float value);
using AEffectGetParameterProc = float(VST_CALL*)(AEffect* effect, int32_t index);

/// Four characters as one number, the first in the highest byte.
constexpr int32_t fourCharacters(char a, char b, char c, char d) {
    return int32_t(uint32_t(uint8_t(a)) << 24 | uint32_t(uint8_t(b)) << 16 |
                   uint32_t(uint8_t(c)) << 8 | uint32_t(uint8_t(d)));
}

constexpr int32_t kEffectMagic = fourCharacters('V', 's', 't', 'P');

/// The record through which a host reaches one effect object.
struct AEffect {
    int32_t magic;
    AEffectDispatcherProc dispatcher;
    AEffectProcessProc process;
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;
    int32_t numPrograms;
    int32_t numParams;
    int32_t numInputs;
    int32_t numOutputs;
    int32_t flags;
    intptr_t reservedForHost1;
    intptr_t reservedForHost2;
    int32_t initialDelay;
    int32_t realQualities;
    int32_t offQualities;
    float ioRatio;
    void* object;
    void* user;
    int32_t uniqueID;
    int32_t version;
    AEffectProcessProc processReplacing;
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56];
};

enum AEffectFlags : int32_t {
    effFlagsHasEditor = 1,
    effFlagsCanReplacing = 16,
    effFlagsProgramChunks = 32,
    effFlagsCanDoubleReplacing = 4096,
};

/// What a host sends through `dispatcher`.
enum AEffectOpcodes : int32_t {
    effOpen = 0,
    effClose = 1,
    effSetProgram = 2,
    effGetProgram = 3,
    effSetProgramName = 4,
    effGetProgramName = 5,
    effGetParamLabel = 6,
    effGetParamDisplay = 7,
    effGetParamName = 8,
    effSetSampleRate = 10,
    effSetBlockSize = 11,
    effMainsChanged = 12,
    effEditGetRect = 13,
    effEditOpen = 14,
    effEditClose = 15,
    effEditIdle = 19,
    effIdentify = 22,
    effGetChunk = 23,
    effSetChunk = 24,
    effProcessEvents = 25,
    effCanBeAutomated = 26,
    effGetProgramNameIndexed = 29,
    effGetPlugCategory = 35,
    effGetEffectName = 45,
    effGetVendorString = 47,
    effGetProductString = 48,
    effGetVendorVersion = 49,
    effCanDo = 51,
    effGetTailSize = 52,
    effGetVstVersion = 58,
    effEditKeyDown = 59,
    effEditKeyUp = 60,
    effSetEditKnobMode = 61,
    effGetCurrentMidiProgram = 63,
    effGetSpeakerArrangement = 69,
    effSetTotalSampleToProcess = 73,
};

/// What the effect asks of the host through the callback.
enum AudioMasterOpcodes : int32_t {
    audioMasterAutomate = 0,
    audioMasterVersion = 1,
    audioMasterIdle = 3,
    audioMasterWantMidi = 6,
    audioMasterGetTime = 7,
    audioMasterCanDo = 37,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43,
    audioMasterEndEdit = 44,
};

constexpr int32_t kPlugCategEffect = 1;
constexpr int32_t kVstVersion = 2400;

/// The host's transport. `tempo` in BPM, `ppqPos` in quarter notes; each is valid only where
/// its bit stands in `flags`.
struct VstTimeInfo {
    double samplePos;
    double sampleRate;
    double nanoSeconds;
    double ppqPos;
    double tempo;
    double barStartPos;
    double cycleStartPos;
    double cycleEndPos;
    int32_t timeSigNumerator;
    int32_t timeSigDenominator;
    int32_t smpteOffset;
    int32_t smpteFrameRate;
    int32_t samplesToNextClock;
    int32_t flags;
};

enum VstTimeInfoFlags : int32_t {
    kVstTransportPlaying = 1 << 1,
    kVstPpqPosValid = 1 << 9,
    kVstTempoValid = 1 << 10,
};

enum VstEventTypes : int32_t { kVstMidiType = 1, kVstSysExType = 6 };

/// Head that all events share; `byteSize` counts what follows the first two fields.
struct VstEvent {
    int32_t type;
    int32_t byteSize;
    int32_t deltaFrames;
    int32_t flags;
    char data[16];
};

struct VstMidiEvent {
    int32_t type;
    int32_t byteSize;
    int32_t deltaFrames;
    int32_t flags;
    int32_t noteLength;
    int32_t noteOffset;
    char midiData[4];
    char detune;
    char noteOffVelocity;
    char reserved1;
    char reserved2;
};

/// `numEvents` pointers stand in `events`; two are declared, a host appends more.
struct VstEvents {
    int32_t numEvents;
    intptr_t reserved;
    VstEvent* events[2];
};

/// Size of the editor in pixels.
struct ERect {
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
};

struct VstKeyCode {
    int32_t character;
    uint8_t virt;
    uint8_t modifier;
};

#define VST_AT(record, field, offset) \
    static_assert(offsetof(record, field) == (offset), #record "." #field)
static_assert(sizeof(void*) == 8, "the layouts below are those of 64-bit hosts");
VST_AT(AEffect, magic, 0);
VST_AT(AEffect, dispatcher, 8);
VST_AT(AEffect, process, 16);
VST_AT(AEffect, setParameter, 24);
VST_AT(AEffect, getParameter, 32);
VST_AT(AEffect, numPrograms, 40);
VST_AT(AEffect, numParams, 44);
VST_AT(AEffect, numInputs, 48);
VST_AT(AEffect, numOutputs, 52);
VST_AT(AEffect, flags, 56);
VST_AT(AEffect, reservedForHost1, 64);
VST_AT(AEffect, reservedForHost2, 72);
VST_AT(AEffect, initialDelay, 80);
VST_AT(AEffect, realQualities, 84);
VST_AT(AEffect, offQualities, 88);
VST_AT(AEffect, ioRatio, 92);
VST_AT(AEffect, object, 96);
VST_AT(AEffect, user, 104);
VST_AT(AEffect, uniqueID, 112);
VST_AT(AEffect, version, 116);
VST_AT(AEffect, processReplacing, 120);
VST_AT(AEffect, processDoubleReplacing, 128);
VST_AT(AEffect, future, 136);
static_assert(sizeof(AEffect) == 192);

VST_AT(VstTimeInfo, samplePos, 0);
VST_AT(VstTimeInfo, sampleRate, 8);
VST_AT(VstTimeInfo, nanoSeconds, 16);
VST_AT(VstTimeInfo, ppqPos, 24);
VST_AT(VstTimeInfo, tempo, 32);
VST_AT(VstTimeInfo, barStartPos, 40);
VST_AT(VstTimeInfo, cycleStartPos, 48);
VST_AT(VstTimeInfo, cycleEndPos, 56);
VST_AT(VstTimeInfo, timeSigNumerator, 64);
VST_AT(VstTimeInfo, timeSigDenominator, 68);
VST_AT(VstTimeInfo, smpteOffset, 72);
VST_AT(VstTimeInfo, smpteFrameRate, 76);
VST_AT(VstTimeInfo, samplesToNextClock, 80);
VST_AT(VstTimeInfo, flags, 84);
static_assert(sizeof(VstTimeInfo) == 88);

VST_AT(VstEvent, type, 0);
VST_AT(VstEvent, byteSize, 4);
VST_AT(VstEvent, deltaFrames, 8);
VST_AT(VstEvent, flags, 12);
VST_AT(VstEvent, data, 16);
static_assert(sizeof(VstEvent) == 32);

VST_AT(VstMidiEvent, type, 0);
VST_AT(VstMidiEvent, byteSize, 4);
VST_AT(VstMidiEvent, deltaFrames, 8);
VST_AT(VstMidiEvent, flags, 12);
VST_AT(VstMidiEvent, noteLength, 16);
VST_AT(VstMidiEvent, noteOffset, 20);
VST_AT(VstMidiEvent, midiData, 24);
VST_AT(VstMidiEvent, detune, 28);
VST_AT(VstMidiEvent, noteOffVelocity, 29);
static_assert(sizeof(VstMidiEvent) == 32);

VST_AT(VstEvents, numEvents, 0);
VST_AT(VstEvents, reserved, 8);
VST_AT(VstEvents, events, 16);
static_assert(sizeof(VstEvents) == 32);
static_assert(sizeof(ERect) == 8);
#undef VST_AT
