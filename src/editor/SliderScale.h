#pragma once

#include <cstdint>

#include "parameters/DelayRanges.h"

namespace tessel8 {

/// What part of the delay memory the delay sliders and the graph span.
struct SliderScale {
    float scale = 1.0f;  ///< from a delay (fraction of the memory) to the slider's value
    float step = 1.0f;   ///< the inverse
    int32_t zoom = kWholeNoteRange + 1;  ///< the step of `ZoomDel`; above 18 none was set yet

    /// `barFraction` and `wholeBars` are the effect's readings of what the grid uses of the memory
    /// and of the whole notes in it.
    static SliderScale of(float zoomDel, float barFraction, float wholeBars) {
        SliderScale result;
        result.zoom = int32_t(zoomDel >= 0.0f && zoomDel < 255.0f ? zoomDel : 255.0f);
        if (result.zoom >= int32_t(kDelayRanges.size())) {
            return result;
        }
        const DelayRange& range = kDelayRanges[size_t(result.zoom)];
        // A little more than a bar, so that a delay of whole bars stands within the slider.
        const float barLength = wholeBars > 0.0f ? barFraction / wholeBars + 0.00005f : 1.0f;
        result.step = range.inBars ? range.fraction * barLength : range.fraction;
        result.scale = 1.0f / result.step;
        return result;
    }
};

}  // namespace tessel8
