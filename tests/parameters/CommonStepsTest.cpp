// What every applied value goes through: coercion, the stored copy that lags by a block, and what
// editor and program are told.

#include <climits>
#include <limits>
#include <tuple>

#include "parameters/FamilyTable.h"
#include "parameters/ParameterTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

TEST_F(ParametersTest, EveryIndexHasItsPlaceForEver) {
    EXPECT_EQ(kParameterCount, expected::kCount);
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(parameterDefault(index), expected::initialOf(index)) << index;
        EXPECT_EQ(applied(index), expected::initialOf(index)) << index;
    }
    const std::tuple<int32_t, const char*, const char*> kNames[] = {
        {-1, "", ""},          {0, "POWER", ""},     {8, "-----", ""},     {24, "DelayT1", "ms"},
        {41, "FBPostT2", ""},  {42, "FbPostT3", ""}, {71, "PanTap8", "%"}, {203, "PanFB_R", "%"},
        {214, "ActiveFB", ""}, {215, "", ""}};
    for (const auto& [index, name, label] : kNames) {
        EXPECT_STREQ(parameterName(index), name);
        EXPECT_STREQ(parameterLabel(index), label) << name;
    }
}

TEST_F(ParametersTest, EveryFormIsStoredAsItCameAndCoercedOneBlockLater) {
    for (int32_t index = 0; index < expected::kCount; ++index) {
        SCOPED_TRACE(expected::nameOf(index));
        parameters.resetToDefaults();
        block();
        set(index, 0.3f);
        EXPECT_EQ(stored(index), 0.3f);
        EXPECT_FLOAT_EQ(applied(index), expected::rowOf(index).of03);
        EXPECT_TRUE(parameters.isDirty());
        block();
        EXPECT_FALSE(parameters.isDirty());
        for (int32_t other = 0; other < expected::kCount; ++other) {
            EXPECT_EQ(stored(other), applied(other)) << other;
        }
    }
}

TEST_F(ParametersTest, ASwitchIsOnForAnythingButZeroAndOtherValuesStayBeyondTheirRange) {
    for (const float on : {1e-30f, -1.0f, 18.0f, std::numeric_limits<float>::quiet_NaN()}) {
        set(at::ActRev, on);
        EXPECT_EQ(applied(at::ActRev), 1.0f) << on;
    }
    set(at::ActRev, -0.0f, at::GainT + 3, 18.0f);
    EXPECT_EQ(applied(at::ActRev), 0.0f);
    EXPECT_EQ(applied(at::GainT + 3), 18.0f);
}

TEST_F(ParametersTest, TheEditorHearsTheValueAsItCameAndThenTheProgramGetsAllAppliedOnes) {
    EXPECT_EQ(toldBy(at::ActRev, 0.3f), " 332=0 22=0.3 all");
    EXPECT_EQ(outside.program[at::ActRev], 1.0f);
    // An action that applies another value tells the inner one first.
    EXPECT_EQ(toldBy(at::ActTap + 4, 1.0f), " 332=0 332=0 44=0 all 180=1 all");
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(outside.program[size_t(index)], applied(index)) << expected::nameOf(index);
    }
    outside.loading = true;
    EXPECT_EQ(toldBy(at::Mix, 0.25f), " 332=0 3=0.25");
    EXPECT_EQ(applied(at::Mix), 0.25f);
    EXPECT_EQ(outside.program[at::Mix], 0.5f);
}

TEST_F(ParametersTest, AnAliasReportsItsMainIndexAndLeavesTheStoredValue) {
    const int32_t kAliases[][2] = {{358, 40}, {365, 47}, {366, 201}, {367, 193}, {374, 200},
                                   {375, 8},  {376, 9},  {377, 10},  {378, 214}};
    for (const auto& [alias, main] : kAliases) {
        const float before = stored(main), appliedBefore = applied(main);
        EXPECT_TRUE(toldBy(alias, 0.5f).ends_with(Outside::line("", main, 0.5f) + " all"));
        EXPECT_EQ(stored(main), before) << alias;
        // Post feedback is refused for a tap without delay.
        EXPECT_EQ(applied(main) == appliedBefore, alias <= 365) << alias;
    }
}

TEST_F(ParametersTest, AnIndexWithoutActionRunsTheCommonStepsAlone) {
    for (const int32_t index : {INT_MIN, -1, 215, 300, 311, 357, 379, 426, INT_MAX}) {
        block();
        EXPECT_EQ(toldBy(index, 0.7f), " 332=0" + Outside::line("", index, 0.7f) + " all");
        for (int32_t i = 0; i < expected::kCount; ++i) {
            EXPECT_EQ(applied(i), expected::initialOf(i)) << i << " by " << index;
            EXPECT_EQ(stored(i), expected::initialOf(i)) << i << " by " << index;
        }
    }
}

TEST_F(ParametersTest, AnyApplyEndsMidiLearnAndOnlyItsOwnIndexBeginsIt) {
    for (const int32_t index : {3, 216, -1}) {
        EXPECT_EQ(toldBy(at::MidiLearn, 0.8f), " 332=0 332=0.8 all");
        EXPECT_EQ(applied(at::MidiLearn), 0.8f);
        set(index, 0.5f);
        EXPECT_EQ(applied(at::MidiLearn), 0.0f) << "index " << index;
    }
}

}  // namespace tessel8
