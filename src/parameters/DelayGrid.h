#pragma once

#include <algorithm>
#include <cstdint>

#include "parameters/Conversions.h"
#include "parameters/DelayRanges.h"

namespace tessel8 {

/// The grid of note steps on which delays stand in Tempo and Sync mode. All arithmetic is in
/// 32-bit floats from left to right, so that a delay is the same sample in every build.
struct DelayGrid {
    float samplesPerWholeNote = 88200.0f;  ///< four beats
    float samplesPerStep = 5512.5f;
    float ringFracUsed = 1.0f;     ///< part of the delay memory that whole notes fill
    int32_t wholeNotesInRing = 4;  ///< whole notes that fit into the delay memory
    int32_t maxGridSamples = 0;    ///< longest delay on the grid, samples

    void setStep(float rate, float bpm, int32_t divisor) {
        samplesPerStep = 240.0f * rate / (bpm * float(divisor));
    }

    void recalculate(float rate, float bpm, int32_t divisor, int32_t ringLen) {
        setStep(rate, bpm, divisor);
        samplesPerWholeNote = 240.0f * rate / bpm;
        wholeNotesInRing = truncated(float(ringLen) / samplesPerWholeNote);
        ringFracUsed = samplesPerWholeNote * float(wholeNotesInRing) / float(ringLen);
        maxGridSamples = truncated(float(wholeNotesInRing) * samplesPerWholeNote + 0.5f);
    }

    int32_t samplesAt(int32_t steps) const { return truncated(float(steps) * samplesPerStep); }

    int32_t nearestSteps(int32_t samples) const {
        return truncated(float(samples) / samplesPerStep + 0.5f);
    }

    /// Takes `steps` down, one by one, until the delay fits the grid; gives its samples.
    int32_t fit(int32_t& steps) const {
        // An absurd count from outside would be millions of turns: begin close above the answer.
        if (samplesPerStep > 0.0f && samplesAt(steps) > maxGridSamples) {
            const double most = double(maxGridSamples) / double(samplesPerStep) + 1000.0;
            steps = std::min(steps, truncated(most));
        }
        while (samplesAt(steps) > maxGridSamples && steps > 0) {
            --steps;
        }
        return samplesAt(steps);
    }
};

/// The slider range on the grid that comes nearest to a range in time (`zoom` below 6).
inline float noteRangeFor(float zoom, float rate, float samplesPerWholeNote) {
    int32_t n = 0;
    if (zoom > 4.0f) {
        n = kWholeNoteRange - kFirstNoteRange;
    } else if (zoom > 3.0f) {
        n = truncated(4.0f * rate / samplesPerWholeNote);
    } else if (zoom > 2.0f) {
        n = truncated(2.0f * rate / samplesPerWholeNote);
    } else if (zoom > 1.0f) {
        n = std::max(truncated(0.5f * rate / samplesPerWholeNote), 1);
    } else if (zoom > 0.0f) {
        n = truncated(0.5f * samplesPerWholeNote / rate);
    } else {
        n = truncated(0.1f * samplesPerWholeNote / rate);
    }
    return float(n) + float(kFirstNoteRange);
}

/// The slider range in time that comes nearest to a range on the grid (`zoom` above 5).
inline float timeRangeFor(float zoom, float rate, float samplesPerWholeNote) {
    const float seconds = zoom <= 6.0f ? samplesPerWholeNote / (4.0f * rate)
                                       : (zoom - 6.0f) * samplesPerWholeNote / rate;
    constexpr float kShortest[] = {4.0f, 2.0f, 1.0f, 0.5f, 0.1f};
    float range = float(kWholeTimeRange);
    for (const float limit : kShortest) {
        if (seconds > limit) {
            return range;
        }
        range -= 1.0f;
    }
    return 0.0f;
}

}  // namespace tessel8
