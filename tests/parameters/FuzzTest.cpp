// Nothing that is applied, in any order, between any blocks, may bring the engine down or leave
// it deaf.

#include <cfloat>
#include <limits>
#include <random>

#include "parameters/ParameterTexts.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kSpecial[] = {kNan,   HUGE_VALF, -HUGE_VALF, 1e30f, -1e30f, FLT_MAX, -FLT_MAX,
                              1e-40f, -1.0f,     0.0f,       1.0f,  2.0f,   18.0f};
constexpr double kTimes[] = {double(kNan), 0.0, -1e300};

struct Fuzz : ParametersTest {
    int32_t whole(int32_t low, int32_t high) {
        return std::uniform_int_distribution<int32_t>(low, high)(random);
    }
    float unit() { return std::uniform_real_distribution<float>(0.0f, 1.0f)(random); }
    std::optional<double> anyTime() {
        const int32_t which = whole(-1, 8);
        return which < 0 ? std::nullopt
                         : std::optional(which < 3 ? kTimes[which] : 400.0 * double(unit()));
    }
    /// Plays noise; whether all of the output is finite.
    bool process(int32_t frames, float level) {
        for (std::array<float, 700>* side : {&left, &right}) {
            std::generate_n(side->begin(), frames, [&] { return level * (2.0f * unit() - 1.0f); });
        }
        const float* const inputs[] = {left.data(), right.data()};
        float* const outputs[] = {outL.data(), outR.data()};
        block();
        engine.process(inputs, outputs, frames);
        const auto finite = [](float x) { return std::isfinite(x); };
        return std::all_of(outL.begin(), outL.begin() + frames, finite) &&
               std::all_of(outR.begin(), outR.begin() + frames, finite);
    }

    std::mt19937 random{20240907};
    std::array<float, 700> left{}, right{}, outL{}, outR{};
};

}  // namespace

TEST_F(Fuzz, TwentyThousandRandomValuesLeaveAnEngineThatSounds) {
    ASSERT_TRUE(engine.allocateForRate(44100.0f));
    char text[kTextBytes];
    for (int i = 0; i < 20000; ++i) {
        const int32_t index = whole(-5, 430), which = whole(0, 25);
        set(index, which < 13 ? kSpecial[which] : unit());
        *text = 0;
        writeDisplayText(parameters, index, text);
        ASSERT_LT(std::find(std::begin(text), std::end(text), 0) - text, kTextBytes);
        outside.told.clear();
        if (whole(0, 3) == 0) {
            outside.tempo = anyTime();
            outside.position = anyTime();
            outside.loading = whole(0, 9) == 0;
            process(whole(0, i % 50 == 0 ? 700 : 70), 1.0f);
        }
    }
    outside.loading = false;
    parameters.resetToDefaults();
    engine.clearRings();
    engine.resetState();
    bool sounded = false;
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(process(700, 0.5f)) << "block " << i;
        sounded = sounded || outL[0] != 0.0f;
    }
    EXPECT_TRUE(sounded);
}

}  // namespace tessel8
