#include "editor/TapPad.h"

#include <algorithm>

#include "editor/EffectLink.h"
#include "engine/Blocks.h"
#include "parameters/ParameterTable.h"

namespace tessel8 {

namespace {

constexpr uint32_t kTempoPauseMs = 2000;  // ends a run of tempo taps
constexpr int32_t kMostTempoTaps = 128;
constexpr uint32_t kDelayRunMs = 8000;  // as long as the delay memory
constexpr double kLowestBpm = 30.0, kHighestTappedBpm = 320.0;

}  // namespace

bool TapPad::press(float value, uint32_t now) {
    if (value == 0.0f || latch) {
        latch = false;
        return false;
    }
    const bool setsTempo = effect.appliedValue(parameterIndex(Family::TapPad)) != 0.0f;
    if (setsTempo && effect.appliedValue(parameterIndex(Family::TimeMode)) >= kHostLeads) {
        return false;
    }
    if (count == 0) {
        firstTapStamp = now;
    }
    if (count == 0 || setsTempo) {
        padStamp = now;
    }
    latch = true;
    tempoRun = setsTempo;
    delayRun = !setsTempo;
    const bool changed = count > 0 && (setsTempo ? setTempo(now) : setDelay(now));
    ++count;
    return changed;
}

bool TapPad::setDelay(uint32_t now) {
    if (count > kTaps) {
        return false;
    }
    const double rate = double(effect.appliedValue(reading::kSampleRate));
    const double samples = double(now - padStamp) * rate / 1000.0;
    const double fraction = samples / double(effect.appliedValue(reading::kRingLen));
    effect.setParameterAutomated(parameterIndex(Family::DelayT, count - 1),
                                 float(std::min(fraction, 1.0)));
    return true;
}

bool TapPad::setTempo(uint32_t now) {
    if (now == firstTapStamp) {
        return false;
    }
    const double bpm = double(count) * 60000.0 / double(now - firstTapStamp);
    if (bpm < kLowestBpm || bpm > kHighestTappedBpm) {
        return false;
    }
    effect.setParameterAutomated(parameterIndex(Family::Tempo), float((bpm - 30.0) / 320.0));
    return true;
}

bool TapPad::endRunInTime(uint32_t now) {
    const uint32_t since = now - padStamp;
    const bool ends = (tempoRun && (since > kTempoPauseMs || count > kMostTempoTaps)) ||
                      (delayRun && (since > kDelayRunMs || count > kTaps));
    if (ends) {
        endRun();
    }
    return ends;
}

void TapPad::endRun() {
    count = 0;
    padStamp = firstTapStamp = 0;
    tempoRun = delayRun = false;
}

}  // namespace tessel8
