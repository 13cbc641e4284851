#pragma once

// A host as the effect sees it: the callback, and the record through which it calls.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "shell/Tessel8.h"
#include "vst/Vst24.h"

extern "C" AEffect* VSTPluginMain(audioMasterCallback audioMaster);
extern "C" AEffect* secondEntry(audioMasterCallback audioMaster);

namespace tessel8 {

struct FakeHost {
    struct Call {
        int32_t opcode, index;
        intptr_t value;
        float opt;
        bool operator==(const Call&) const = default;
    };
    std::vector<Call> calls;  ///< all but the questions for the version
    int versionQuestions = 0;
    int refusedVersionQuestion = 0;  ///< 1 or 2: that question is answered with 0
    bool sendsMidi = false;
    bool knowsTime = false;
    VstTimeInfo time{};
};

inline FakeHost host;

inline intptr_t VST_CALL hostCallback(AEffect*, int32_t opcode, int32_t index, intptr_t value,
                                      void* ptr, float opt) {
    if (opcode == audioMasterVersion) {
        return ++host.versionQuestions == host.refusedVersionQuestion ? 0 : 2400;
    }
    // Room is made beforehand where a test counts allocations.
    if (host.calls.size() < host.calls.capacity()) {
        host.calls.push_back({opcode, index, value, opt});
    }
    if (opcode == audioMasterGetTime) {
        return host.knowsTime ? reinterpret_cast<intptr_t>(&host.time) : 0;
    }
    return opcode == audioMasterCanDo && host.sendsMidi &&
           std::strcmp(static_cast<const char*>(ptr), "sendVstMidiEvent") == 0;
}

inline void resetHost() {
    host = {};
    host.calls.reserve(100000);
}

/// An effect behind its record. Blocks hold the same noise each time, denormals included.
class HostedEffect {
  public:
    static constexpr int32_t kFrames = 512;

    explicit HostedEffect(AEffect* record) : effect(record) {
        uint32_t state = 1;
        for (size_t i = 0; i < kFrames; ++i) {
            for (auto* channel : {inL, inR}) {
                state = state * 1664525u + 1013904223u;
                channel[i] = float(int32_t(state)) / 2147483648.0f;
            }
        }
        inL[7] = 1e-40f;
        inR[8] = -0.0f;
    }
    HostedEffect() : HostedEffect((resetHost(), VSTPluginMain(hostCallback))) {}
    HostedEffect(const HostedEffect&) = delete;
    HostedEffect& operator=(const HostedEffect&) = delete;
    ~HostedEffect() { send(effClose); }

    intptr_t send(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                  float opt = 0.0f) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }
    void rate(float hertz) { send(effSetSampleRate, 0, 0, nullptr, hertz); }
    void mains(bool on) { send(effMainsChanged, 0, on); }
    void set(int32_t index, float value) { effect->setParameter(effect, index, value); }
    float get(int32_t index) { return effect->getParameter(effect, index); }

    void process(float* left, float* right, int32_t frames) {
        float* inputs[] = {left, right};
        float* outputs[] = {outL, outR};
        effect->processReplacing(effect, inputs, outputs, frames);
    }
    void noise() { process(inL, inR, kFrames); }
    /// Runs silence and gives the largest output level.
    float peakOfSilence(int32_t blocks) {
        static float zeros[kFrames];
        float peak = 0.0f;
        for (int32_t b = 0; b < blocks; ++b) {
            process(zeros, zeros, kFrames);
            for (size_t i = 0; i < kFrames; ++i) {
                peak = std::fmax(peak, std::fmax(std::fabs(outL[i]), std::fabs(outR[i])));
            }
        }
        return peak;
    }
    /// Whether a block of noise comes out bit by bit as it went in.
    bool isTransparent() {
        noise();
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): bits are meant
        return std::memcmp(inL, outL, sizeof inL) == 0 && std::memcmp(inR, outR, sizeof inR) == 0;
    }

    Tessel8& object() { return *static_cast<Tessel8*>(static_cast<AudioEffect*>(effect->object)); }
    int status() { return int(object().getEngineStatus()); }

    AEffect* effect;
    float inL[kFrames], inR[kFrames], outL[kFrames], outR[kFrames];
};

}  // namespace tessel8
