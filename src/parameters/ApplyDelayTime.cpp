// Delay times in their three forms (fraction of the memory, samples, note steps), tempo and the
// note grid.

#include <algorithm>

#include "parameters/Conversions.h"
#include "parameters/NoteTable.h"
#include "parameters/Parameters.h"

namespace tessel8 {

namespace {

/// Tempos that are taken from the host, BPM.
constexpr float kLowestHostTempo = 30.0f;
constexpr float kHighestHostTempo = 320.0f;
constexpr float kTempoSpan = 320.0f;
constexpr int32_t kLongestMs = 8000;
/// Below 100 ms of the memory a tap leaves post feedback.
constexpr float kShortestPostDelay = 0.0125f;

}  // namespace

void Parameters::recalculateGrid() {
    grid.recalculate(sampleRate, tempoBpm, noteDivisor, engine.ringLen);
}

int32_t Parameters::roundedMs(int32_t samples) const {
    return truncated(float(samples) * 1000.0f / sampleRate + 0.5f);
}

int32_t Parameters::cutMs(int32_t samples) const {
    return truncated(float(samples) * 1000.0f / sampleRate);
}

float Parameters::ringFraction(int32_t samples) const {
    return float(samples) / float(engine.ringLen);
}

void Parameters::setDelay(int tap, int32_t samples) {
    engine.delaySamples[tap] = samples;
}

/// Puts the tap on its note step, or on the nearest lower one that the grid has room for.
void Parameters::requantise(int tap) {
    const int32_t samples = grid.fit(delaySteps[size_t(tap)]);
    setDelay(tap, samples);
    delayMs[size_t(tap)] = roundedMs(samples);
    delayFrac[size_t(tap)] = ringFraction(samples);
}

/// The host's tempo in BPM, where it knows one.
std::optional<float> Parameters::askHostTempo() {
    double bpm = 0.0;
    return clock && clock->hostTempo(bpm) ? std::optional(float(bpm)) : std::nullopt;
}

/// Takes a host's tempo over if it is one the effect follows.
bool Parameters::takeHostTempo(std::optional<float> bpm) {
    if (!bpm) {
        return false;
    }
    hostTempo = *bpm;
    if (!(hostTempo >= kLowestHostTempo && hostTempo <= kHighestHostTempo)) {
        return false;
    }
    tempoBpm = hostTempo;
    keep(Family::Tempo, (tempoBpm - 30.0f) / kTempoSpan);
    return true;
}

/// A range of more bars than the memory holds comes down to the longest that it does.
void Parameters::limitZoomToGrid() {
    const float longest = float(grid.wholeNotesInRing) + float(kFirstNoteRange);
    const float zoom = kept(Family::ZoomDel);
    if (zoom >= longest && zoom < float(kWholeNoteRange)) {
        keep(Family::ZoomDel, longest);
    }
}

void Parameters::applyTimeMode(int, float v) {
    keep(Family::TimeMode, v >= 0.75f ? 1.0f : v > 0.25f ? 0.5f : 0.0f);
    if (followsHost() && !loading()) {
        takeHostTempo(askHostTempo());
    }
    recalculateGrid();
    const float zoom = kept(Family::ZoomDel);
    if (isOnGrid()) {
        if (!loading()) {
            if (zoom < float(kFirstNoteRange)) {
                keep(Family::ZoomDel, noteRangeFor(zoom, sampleRate, grid.samplesPerWholeNote));
            }
            tellEditor(parameterIndex(Family::ZoomDel), kept(Family::ZoomDel));
        }
        for (int t = 0; t < kTaps; ++t) {
            requantise(t);
        }
    } else if (!loading()) {
        if (zoom > float(kWholeTimeRange)) {
            keep(Family::ZoomDel, timeRangeFor(zoom, sampleRate, grid.samplesPerWholeNote));
        }
        tellEditor(parameterIndex(Family::ZoomDel), kept(Family::ZoomDel));
    }
    if (kept(Family::NoteModeLfo) != 0.0f) {
        lfoFrequencyFromNote(true);
    }
    tellEditor(parameterIndex(Family::Tempo), 0.0f);
}

void Parameters::applyTempo(int, float v) {
    keep(Family::Tempo, v);
    tempoBpm = kTempoSpan * v + 30.0f;
    const bool askHost = processSeen.load(std::memory_order_relaxed) && followsHost() && !loading();
    if (!askHost || !takeHostTempo(askHostTempo())) {
        hostTempo = tempoBpm;
    }
    recalculateGrid();
    if (isOnGrid()) {
        if (!loading() && editor) {
            limitZoomToGrid();
            tellEditor(parameterIndex(Family::ZoomDel), kept(Family::ZoomDel));
        }
        for (int t = 0; t < kTaps; ++t) {
            requantise(t);
        }
    }
    if (kept(Family::NoteModeLfo) != 0.0f) {
        lfoFrequencyFromNote(true);
    }
}

void Parameters::applyNote(int, float v) {
    keep(Family::Note, v);
    noteDivisor = noteRow(v).divisor;
    grid.setStep(sampleRate, tempoBpm, noteDivisor);
    if (loading()) {
        return;
    }
    for (int t = 0; t < kTaps; ++t) {
        delaySteps[size_t(t)] = grid.nearestSteps(engine.delaySamples[t]);
        if (isOnGrid()) {
            requantise(t);
        }
    }
}

void Parameters::applyDelayT(int tap, float v) {
    const auto lane = size_t(tap);
    engine.restartFade(tap);
    keep(Family::DelayT, v, tap);
    if (v < kShortestPostDelay) {
        apply(command::kFBPostT + tap, 0.0f);
    }
    const float position = v * float(engine.ringLen);
    int32_t samples = truncated(position);
    delaySteps[lane] = grid.nearestSteps(samples);
    if (isOnGrid()) {
        samples = grid.fit(delaySteps[lane]);
        delayMs[lane] = cutMs(samples);
        delayFrac[lane] = ringFraction(samples);
    } else {
        delayMs[lane] = truncated(position * 1000.0f / sampleRate + 0.5f);
        delayFrac[lane] = v;
    }
    setDelay(tap, samples);
}

void Parameters::stepDelay(int tap, int direction) {
    const auto lane = size_t(tap);
    engine.restartFade(tap);
    int32_t samples = 0;
    if (isOnGrid()) {
        int32_t steps = delaySteps[lane];
        if (direction < 0) {
            steps = steps > 0 ? steps - 1 : 0;
        } else if (steps < INT32_MAX && grid.samplesAt(steps + 1) <= grid.maxGridSamples) {
            ++steps;
        }
        delaySteps[lane] = steps;
        samples = grid.samplesAt(steps);
        delayMs[lane] = cutMs(samples);
    } else {
        delayMs[lane] =
            int32_t(std::clamp<int64_t>(int64_t(delayMs[lane]) + direction, 0, kLongestMs));
        samples = truncated(float(delayMs[lane]) * sampleRate / 1000.0f + 0.5f);
        delaySteps[lane] = grid.nearestSteps(samples);
    }
    setDelay(tap, samples);
    keep(Family::DelayT, ringFraction(samples), tap);
    delayFrac[lane] = kept(Family::DelayT, tap);
    if (kept(Family::DelayT, tap) < kShortestPostDelay) {
        apply(command::kFBPostT + tap, 0.0f);
    }
}

void Parameters::followHostTempo() {
    if (!followsHost() || loading()) {
        return;
    }
    const std::optional<float> bpm = askHostTempo();
    if (bpm == hostTempo || !takeHostTempo(bpm)) {
        return;
    }
    if (programs) {
        programs->storeValue(parameterIndex(Family::Tempo), kept(Family::Tempo));
    }
    recalculateGrid();
    for (int t = 0; t < kTaps; ++t) {
        setDelay(t, grid.samplesAt(delaySteps[size_t(t)]));
    }
    limitZoomToGrid();
    if (kept(Family::NoteModeLfo) != 0.0f) {
        lfoFrequencyFromNote(false);
    }
}

void Parameters::holdDelaysWithinGrid() {
    if (!isOnGrid() || loading()) {
        return;
    }
    for (int t = 0; t < kTaps; ++t) {
        const auto lane = size_t(t);
        if (engine.delaySamples[t] > grid.maxGridSamples) {
            setDelay(t, grid.fit(delaySteps[lane]));
        }
        const int32_t samples = engine.delaySamples[t];
        delayMs[lane] = roundedMs(samples);
        keep(Family::DelayT, ringFraction(samples), t);
        delayFrac[lane] = kept(Family::DelayT, t);
        if (programs) {
            programs->storeValue(parameterIndex(Family::DelayT, t), kept(Family::DelayT, t));
        }
    }
}

}  // namespace tessel8
