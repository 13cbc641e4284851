// Nothing that is applied, in any order, between any blocks, may bring the engine down or leave
// it deaf.

#include <algorithm>
#include <cfloat>
#include <limits>
#include <random>

#include "parameters/ParameterTexts.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

class Fuzz : public ParametersTest {
  protected:
    static constexpr int32_t kLongestBlock = 700;

    int32_t whole(int32_t low, int32_t high) {
        return std::uniform_int_distribution<int32_t>(low, high)(random);
    }
    float unit() { return std::uniform_real_distribution<float>(0.0f, 1.0f)(random); }

    float anyValue() {
        constexpr float kInfinity = std::numeric_limits<float>::infinity();
        const float kSpecial[] = {std::numeric_limits<float>::quiet_NaN(),
                                  kInfinity,
                                  -kInfinity,
                                  1e30f,
                                  -1e30f,
                                  FLT_MAX,
                                  -FLT_MAX,
                                  1e-40f,
                                  -1.0f,
                                  0.0f,
                                  1.0f,
                                  2.0f,
                                  18.0f};
        const int32_t which = whole(0, 25);
        return which < 13 ? kSpecial[which] : unit();
    }

    std::optional<double> anyTime() {
        const int32_t which = whole(0, 9);
        return which == 0   ? std::optional<double>()
               : which == 1 ? std::optional<double>(std::numeric_limits<double>::quiet_NaN())
               : which == 2 ? std::optional<double>(0.0)
               : which == 3 ? std::optional<double>(-1e300)
                            : std::optional<double>(400.0 * double(unit()));
    }

    void process(int32_t frames, float level) {
        for (int32_t i = 0; i < frames; ++i) {
            left[size_t(i)] = level * (2.0f * unit() - 1.0f);
            right[size_t(i)] = level * (2.0f * unit() - 1.0f);
        }
        const float* const inputs[] = {left.data(), right.data()};
        float* const outputs[] = {outL.data(), outR.data()};
        block();
        engine.process(inputs, outputs, frames);
    }

    /// Index of the first output sample that is not a finite number, -1 for none.
    int32_t firstBadSample(int32_t frames) const {
        for (int32_t i = 0; i < frames; ++i) {
            if (!std::isfinite(outL[size_t(i)]) || !std::isfinite(outR[size_t(i)])) {
                return i;
            }
        }
        return -1;
    }

    std::mt19937 random{20240907};
    std::array<float, kLongestBlock> left{}, right{}, outL{}, outR{};
};

}  // namespace

TEST_F(Fuzz, TwentyThousandRandomValuesLeaveAnEngineThatSounds) {
    ASSERT_TRUE(engine.allocateForRate(44100.0f));
    char text[kTextBytes];
    for (int i = 0; i < 20000; ++i) {
        const int32_t index = whole(-5, 430);
        set(index, anyValue());
        *text = 0;
        writeDisplayText(parameters, index, text);
        ASSERT_LT(std::find(std::begin(text), std::end(text), 0) - text, kTextBytes);
        outside.told.clear();
        if (whole(0, 3) == 0) {
            outside.tempo = anyTime();
            outside.position = anyTime();
            outside.loading = whole(0, 9) == 0;
            process(whole(0, i % 50 == 0 ? kLongestBlock : 70), 1.0f);
        }
    }

    outside.loading = false;
    parameters.resetToDefaults();
    engine.clearRings();
    engine.resetState();
    bool sounded = false;
    for (int i = 0; i < 200; ++i) {
        process(kLongestBlock, 0.5f);
        ASSERT_EQ(firstBadSample(kLongestBlock), -1) << "block " << i;
        sounded = sounded || outL[0] != 0.0f;
    }
    EXPECT_TRUE(sounded);
    for (int32_t index = 0; index < 215; ++index) {
        EXPECT_TRUE(std::isfinite(applied(index))) << "index " << index;
    }
}

TEST_F(Fuzz, ValuesWithinTheirRangesKeepTheOutputFinite) {
    ASSERT_TRUE(engine.allocateForRate(44100.0f));
    for (int i = 0; i < 4000; ++i) {
        const int32_t index = whole(0, 214);
        const float top = index == at::ZoomDel ? 18.0f : index == at::ModeFB ? 2.0f : 1.0f;
        set(index, whole(0, 4) == 0 ? top * float(whole(0, 1)) : top * unit());
        outside.told.clear();
        const int32_t frames = whole(0, 200);
        process(frames, 1.0f);
        ASSERT_EQ(firstBadSample(frames), -1) << "after " << i << ", index " << index;
    }
}

}  // namespace tessel8
