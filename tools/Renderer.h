#pragma once

// A factory program on an effect of its own, played by a host with a steady tempo.

#include <memory>
#include <string>

#include "shell/Tessel8.h"
#include "tools/Signals.h"

namespace tessel8::tools {

constexpr int32_t kBlockFrames = 256;
constexpr double kTailSeconds = 12.0;
/// Silence before the signal. A delay that the program or the first sight of the host's tempo
/// changes is silent for 0.5 s and fades in for 0.5 s; gains glide shorter than that.
constexpr double kPreRollSeconds = 1.25;
/// Where the signal starts in the song, in quarter notes: at the second bar.
constexpr double kSignalStart = 4.0;

/// The effect's record leads to the transport, a `VstTimeInfo`, once there is one.
inline intptr_t VST_CALL reportHost(AEffect* effect, int32_t opcode, int32_t, intptr_t, void*,
                                    float) {
    if (opcode == audioMasterVersion) {
        return kVstVersion;
    }
    return opcode == audioMasterGetTime && effect ? effect->reservedForHost1 : 0;
}

struct Rendering {
    std::string name;  ///< of the program
    Sound sound;       ///< from the signal's start to the tail's end
};

/// Plays program 0 to 139 on a new effect, so that nothing is left of the one before.
inline Rendering render(int32_t program, const Sound& signal) {
    VstTimeInfo time{};
    time.sampleRate = kSampleRate;
    time.tempo = kTempo;
    time.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
    const auto effect = std::make_unique<Tessel8>(reportHost);
    effect->getAeffect()->reservedForHost1 = reinterpret_cast<intptr_t>(&time);
    effect->setSampleRate(float(kSampleRate));
    effect->resume();
    effect->selectProgram(program);

    Rendering result;
    char name[kNameBytes + 1] = {};
    effect->getProgramName(name);
    result.name = name;
    result.sound.resize(signal.size() + framesOf(kTailSeconds));
    float left[kBlockFrames], right[kBlockFrames], outLeft[kBlockFrames], outRight[kBlockFrames];
    float* inputs[] = {left, right};
    float* outputs[] = {outLeft, outRight};
    const auto end = int64_t(result.sound.size());
    for (int64_t first = -int64_t(framesOf(kPreRollSeconds)); first < end; first += kBlockFrames) {
        const auto frames = int32_t(std::min(int64_t(kBlockFrames), end - first));
        for (int32_t i = 0; i < frames; ++i) {
            const auto at = size_t(first + i);  // before the signal: beyond its end
            left[i] = at < signal.size() ? signal[at].real() : 0.0f;
            right[i] = at < signal.size() ? signal[at].imag() : 0.0f;
        }
        time.samplePos = double(first) + kSignalStart * kBeatSeconds * kSampleRate;
        time.ppqPos = time.samplePos / (kBeatSeconds * kSampleRate);
        effect->processReplacing(inputs, outputs, frames);
        for (int32_t i = 0; i < frames; ++i) {
            if (first + i >= 0) {
                result.sound[size_t(first + i)] = {outLeft[i], outRight[i]};
            }
        }
    }
    return result;
}

}  // namespace tessel8::tools
