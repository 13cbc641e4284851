#pragma once

// A factory program on an effect of its own, played by a host with a steady tempo.

#include <memory>

#include "shell/Tessel8.h"
#include "tools/Signals.h"

namespace tessel8::tools {

constexpr size_t kBlockFrames = 256;
constexpr double kTailSeconds = 12.0;
/// Silence before the signal. A delay that the program or the first sight of the host's tempo
/// changes is silent for 0.5 s and fades in for 0.5 s; gains glide shorter than that.
constexpr double kPreRollSeconds = 1.25;
constexpr double kSignalStart = 4.0;  ///< its place in the song, quarter notes: the second bar

/// The effect's record leads to the transport, a `VstTimeInfo`, once there is one.
inline intptr_t VST_CALL reportHost(AEffect* effect, int32_t opcode, int32_t, intptr_t, void*,
                                    float) {
    if (opcode == audioMasterVersion) {
        return kVstVersion;
    }
    return opcode == audioMasterGetTime && effect ? effect->reservedForHost1 : 0;
}

/// Plays program 0 to 139 on a new effect, so that nothing is left of the one before; gives what
/// comes out from the signal's start to the tail's end.
inline Sound render(int32_t program, const Sound& signal) {
    VstTimeInfo time{};
    time.sampleRate = kSampleRate;
    time.tempo = kTempo;
    time.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
    const auto effect = std::make_unique<Tessel8>(reportHost);
    effect->getAeffect()->reservedForHost1 = reinterpret_cast<intptr_t>(&time);
    effect->setSampleRate(float(kSampleRate));
    effect->resume();
    effect->selectProgram(program);

    const size_t before = framesOf(kPreRollSeconds);
    Sound sound(before);
    sound.insert(sound.end(), signal.begin(), signal.end());
    sound.resize(sound.size() + framesOf(kTailSeconds));
    float left[kBlockFrames], right[kBlockFrames];
    float* channels[] = {left, right};  // in place, as many hosts do it
    for (size_t first = 0; first < sound.size(); first += kBlockFrames) {
        const size_t frames = std::min(kBlockFrames, sound.size() - first);
        for (size_t i = 0; i < frames; ++i) {
            left[i] = sound[first + i].real();
            right[i] = sound[first + i].imag();
        }
        time.samplePos = double(first);
        time.ppqPos = kSignalStart + (double(first) - double(before)) / kSampleRate / kBeatSeconds;
        effect->processReplacing(channels, channels, int32_t(frames));
        for (size_t i = 0; i < frames; ++i) {
            sound[first + i] = {left[i], right[i]};
        }
    }
    return {sound.begin() + int64_t(before), sound.end()};
}

}  // namespace tessel8::tools
