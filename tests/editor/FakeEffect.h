#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "editor/EffectLink.h"

namespace tessel8 {

/// An effect that keeps what it is told and notes how. Unset values read 0; the controller on a
/// parameter stands 1000 above it. A step key moves its delay by 1/8.
struct FakeEffect : EffectLink {
    std::map<int32_t, float> values;
    std::string calls;
    float grid = 0.0f;  ///< delays stand on its multiples; 0 lets them stand anywhere

    float appliedValue(int32_t index) override { return values[index]; }
    float getParameter(int32_t) override { return -1.0f; }
    void setParameter(int32_t index, float value) override { take("set ", index, value); }
    void setParameterAutomated(int32_t index, float value) override { take("auto ", index, value); }
    void beginEdit(int32_t) override {}
    void endEdit(int32_t) override {}
    void takeInputPeaks(float*, float*) override {}
    void takeOutputPeaks(float*, float*) override {}
    void restartTapFade(int32_t index) override { calls += "fade " + std::to_string(index) + "; "; }
    void requestPanic(bool) override {}
    int32_t controllerForParameter(int32_t i) override { return int32_t(values[1000 + i]); }
    void learnController(int32_t) override {}
    void clearControllerMap() override {}
    int32_t getVersion(char* text) override {
        return std::memcpy(text, "1.6.1 build 349", 16) != text;
    }

    void take(const char* how, int32_t index, float value) {
        calls += (std::ostringstream() << how << index << " " << value << "; ").str();
        if (index >= 312 && index < 328) {
            value = values[24 + index % 8] + (index < 320 ? -0.125f : 0.125f);
            index = 24 + index % 8;
        }
        values[index] = value;
        if (index >= 24 && index < 32) {
            values[375 + index] = grid > 0.0f ? grid * float(int(value / grid)) : value;
        }
    }
    std::string heard() { return std::exchange(calls, ""); }
};

}  // namespace tessel8
