// What every applied value goes through: coercion, the stored copy that lags by a block, and what
// editor and program are told.

#include <climits>
#include <limits>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

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
    set(at::ActRev, -0.0f, at::GainT + 3, 18.0f, at::PhaseFT, -1.0f);
    EXPECT_EQ(applied(at::ActRev), 0.0f);
    EXPECT_EQ(applied(at::GainT + 3), 18.0f);
    EXPECT_EQ(applied(at::PhaseFT), -1.0f);
}

TEST_F(ParametersTest, TheEditorHearsTheValueAsItCameAndThenTheProgramGetsAllAppliedOnes) {
    EXPECT_EQ(toldBy(at::ActRev, 0.3f),
              (Told{editor(at::MidiLearn, 0), editor(at::ActRev, 0.3f), "program all"}));
    EXPECT_EQ(outside.program[at::ActRev], 1.0f);
    // An action that applies another value tells the inner one first.
    EXPECT_EQ(toldBy(at::ActTap + 4, 1.0f),
              (Told{editor(at::MidiLearn, 0), editor(at::MidiLearn, 0), editor(at::FBPostT + 4, 0),
                    "program all", editor(at::ActTap + 4, 1), "program all"}));
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(outside.program[size_t(index)], applied(index)) << expected::nameOf(index);
    }
    outside.loading = true;
    EXPECT_EQ(toldBy(at::Mix, 0.25f), (Told{editor(at::MidiLearn, 0), editor(at::Mix, 0.25f)}));
    EXPECT_EQ(applied(at::Mix), 0.25f);
    EXPECT_EQ(outside.program[at::Mix], 0.5f);
}

TEST_F(ParametersTest, AnAliasReportsItsMainIndexAndLeavesTheStoredValue) {
    for (const auto& [alias, main] : {std::pair<int32_t, int32_t>{358, at::FBPostT},
                                      {365, at::FBPostT + 7},
                                      {366, at::SelectFB},
                                      {367, at::TAPtoFB},
                                      {374, at::TAPtoFB + 7},
                                      {375, at::NoteMode},
                                      {376, at::NumMod},
                                      {377, at::DenomMod},
                                      {378, at::ActiveFB}}) {
        const float before = stored(main), appliedBefore = applied(main);
        const Told told = toldBy(alias, 0.5f);
        EXPECT_EQ(stored(main), before) << alias;
        ASSERT_GE(told.size(), 2u);
        EXPECT_EQ(told[told.size() - 2], editor(main, 0.5f));
        if (alias > 365) {  // post feedback is refused for a tap without delay
            EXPECT_NE(applied(main), appliedBefore) << alias;
        }
    }
}

TEST_F(ParametersTest, AnIndexWithoutActionRunsTheCommonStepsAlone) {
    for (const int32_t index : {INT_MIN, -1, 215, 300, 311, 357, 379, 426, INT_MAX}) {
        block();
        EXPECT_EQ(toldBy(index, 0.7f),
                  (Told{editor(at::MidiLearn, 0), editor(index, 0.7f), "program all"}));
        EXPECT_TRUE(parameters.isDirty());
        for (int32_t i = 0; i < expected::kCount; ++i) {
            EXPECT_EQ(applied(i), expected::initialOf(i)) << i << " by " << index;
            EXPECT_EQ(stored(i), expected::initialOf(i)) << i << " by " << index;
        }
    }
}

TEST_F(ParametersTest, AnyApplyEndsMidiLearnAndOnlyItsOwnIndexBeginsIt) {
    for (const int32_t index : {int32_t(at::Mix), 216, 500, -1}) {
        EXPECT_EQ(toldBy(at::MidiLearn, 0.8f),
                  (Told{editor(at::MidiLearn, 0), editor(at::MidiLearn, 0.8f), "program all"}));
        EXPECT_EQ(applied(at::MidiLearn), 0.8f);
        EXPECT_EQ(stored(at::MidiLearn), 0.8f);
        EXPECT_EQ(toldBy(index, 0.5f).front(), editor(at::MidiLearn, 0));
        EXPECT_EQ(applied(at::MidiLearn), 0.0f) << "index " << index;
    }
    set(at::MidiLearn, 1.0f);
    parameters.recalculateForRate();
    EXPECT_EQ(applied(at::MidiLearn), 0.0f);
}

TEST(ParametersAlone, WorkWithoutEditorProgramAndHost) {
    Engine engine;
    Parameters parameters(engine);
    for (int32_t index = -2; index < 430; ++index) {
        parameters.apply(index, 0.75f);
        parameters.beginBlock();
    }
    EXPECT_EQ(parameters.applied(at::Mix), 0.75f);
}

}  // namespace tessel8
