#include "editor/Meters.h"

#include <algorithm>
#include <cmath>

namespace tessel8 {

namespace {

constexpr uint32_t kClipMs = 5000;
constexpr float kScaleUnits = 5.0f;

float levelOf(float peak) {
    if (!(peak > 0.0f)) {
        return 0.0f;
    }
    return std::max(std::log(peak) / kScaleUnits + 1.0f, 0.0f);
}

}  // namespace

void Meters::endClips(uint32_t now) {
    for (size_t meter = 0; meter < clips.size(); ++meter) {
        if (now - clipStamps[meter] > kClipMs) {
            clips[meter] = false;
        }
    }
}

void Meters::pass(uint32_t now, const Levels& peaks) {
    const float seconds = float(now - lastPass) / 1000.0f;
    lastPass = now;
    for (size_t meter = 0; meter < levels.size(); ++meter) {
        float level = levelOf(meter == 0 ? peaks.upper : peaks.lower);
        if (level > 1.0f) {
            clips[meter] = true;
            clipStamps[meter] = now;
            level = 1.0f;
        }
        levels[meter] = std::max(level, std::max(levels[meter] - seconds, 0.0f));
    }
}

}  // namespace tessel8
