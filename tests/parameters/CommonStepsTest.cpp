// What every applied value goes through: coercion, the stored copy that lags by a block, and what
// editor and program are told.

#include <cfloat>
#include <climits>
#include <limits>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

/// What becomes of 0.3 where a parameter has a law of its own, in the neutral program.
double ownLawOf03(int32_t first) {
    switch (first) {
        case at::TimeMode:
            return 0.5;  // above 0.25, below 0.75
        case at::NumMod:
            return 1.0 / 4.0;  // 1.2 of 4
        case at::DenomMod:
            return 4.0 / 12.0;  // 3.6 of 12
        case at::SourceEF:
            return 3.0 / 9.0;  // 2.7 of 9
        case at::ModeFB:
            return 1.0;  // above 0
        default:
            return 0.0;  // SyncMod without note mode, FBPostT of a tap without delay
    }
}

}  // namespace

TEST_F(ParametersTest, EveryFormIsStoredAsItCameAndCoercedOneBlockLater) {
    for (int32_t index = 0; index < expected::kCount; ++index) {
        parameters.resetToDefaults();
        block();
        set(index, 0.3f);
        EXPECT_EQ(stored(index), 0.3f) << expected::nameOf(index);
        const expected::Row& row = expected::rowOf(index);
        const double wanted = row.kept == expected::AsItCame   ? double(0.3f)
                              : row.kept == expected::AsSwitch ? 1.0
                                                               : ownLawOf03(row.first);
        EXPECT_FLOAT_EQ(applied(index), float(wanted)) << expected::nameOf(index);
        EXPECT_TRUE(parameters.isDirty());
        block();
        EXPECT_FALSE(parameters.isDirty());
        for (int32_t other = 0; other < expected::kCount; ++other) {
            EXPECT_EQ(stored(other), applied(other)) << "after " << expected::nameOf(index);
        }
    }
}

TEST_F(ParametersTest, ASwitchIsOnForAnythingButZero) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float on : {1e-30f, -1.0f, 0.5f, 18.0f, nan}) {
        set(at::ActRev, on);
        EXPECT_EQ(applied(at::ActRev), 1.0f) << on;
    }
    set(at::ActRev, -0.0f);
    EXPECT_EQ(applied(at::ActRev), 0.0f);
}

TEST_F(ParametersTest, ValuesBeyondTheRangeAreKeptAsTheyAre) {
    for (const float v : {-1.0f, 1.5f, 18.0f}) {
        set(at::GainT + 3, v);
        set(at::ZoomDel, v);
        set(at::PhaseFT, v);
        EXPECT_EQ(applied(at::GainT + 3), v);
        EXPECT_EQ(applied(at::ZoomDel), v);
        EXPECT_EQ(applied(at::PhaseFT), v);
    }
}

TEST_F(ParametersTest, TheEditorHearsTheValueAsItCameAndThenTheProgramGetsAllAppliedOnes) {
    set(at::ActRev, 0.3f);
    EXPECT_EQ(outside.told,
              (Told{editor(at::MidiLearn, 0), editor(at::ActRev, 0.3f), "program all"}));
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(outside.program[size_t(index)], applied(index)) << expected::nameOf(index);
    }
    EXPECT_EQ(outside.program[at::ActRev], 1.0f);
}

TEST_F(ParametersTest, WhileAProgramLoadsTheEditorHearsAndTheProgramDoesNot) {
    outside.loading = true;
    set(at::Mix, 0.25f);
    EXPECT_EQ(outside.told, (Told{editor(at::MidiLearn, 0), editor(at::Mix, 0.25f)}));
    EXPECT_EQ(applied(at::Mix), 0.25f);
    EXPECT_EQ(outside.program[at::Mix], 0.5f);
}

TEST_F(ParametersTest, AnActionThatAppliesAnotherValueTellsTheInnerOneFirst) {
    set(at::ActTap + 4, 1.0f);
    EXPECT_EQ(outside.told,
              (Told{editor(at::MidiLearn, 0), editor(at::MidiLearn, 0), editor(at::FBPostT + 4, 0),
                    "program all", editor(at::ActTap + 4, 1), "program all"}));
}

TEST_F(ParametersTest, AnAliasReportsItsMainIndexAndLeavesTheStoredValue) {
    const struct {
        int32_t alias, count, main;
    } kAliases[] = {{358, 8, at::FBPostT},  {366, 1, at::SelectFB}, {367, 8, at::TAPtoFB},
                    {375, 1, at::NoteMode}, {376, 1, at::NumMod},   {377, 1, at::DenomMod},
                    {378, 1, at::ActiveFB}};
    for (const auto& alias : kAliases) {
        for (int32_t tap = 0; tap < alias.count; ++tap) {
            const int32_t main = alias.main + tap;
            const float before = stored(main);
            const float appliedBefore = applied(main);
            outside.told.clear();
            set(alias.alias + tap, 0.5f);
            EXPECT_EQ(stored(main), before) << "alias " << alias.alias + tap;
            ASSERT_GE(outside.told.size(), 2u);
            EXPECT_EQ(outside.told[outside.told.size() - 2], editor(main, 0.5f));
            if (alias.main != at::FBPostT) {  // refused for a tap without delay
                EXPECT_NE(applied(main), appliedBefore) << "alias " << alias.alias + tap;
            }
        }
    }
}

TEST_F(ParametersTest, AnIndexWithoutActionRunsTheCommonStepsAlone) {
    std::array<float, 215> before{};
    for (int32_t index = 0; index < expected::kCount; ++index) {
        before[size_t(index)] = applied(index);
    }
    for (const int32_t index :
         {INT_MIN, -216, -1, 215, 216, 300, 311, 329, 357, 379, 425, 426, INT_MAX}) {
        outside.told.clear();
        block();
        outside.told.clear();
        set(index, 0.7f);
        EXPECT_EQ(outside.told,
                  (Told{editor(at::MidiLearn, 0), editor(index, 0.7f), "program all"}));
        EXPECT_TRUE(parameters.isDirty());
        for (int32_t i = 0; i < expected::kCount; ++i) {
            EXPECT_EQ(applied(i), before[size_t(i)]) << expected::nameOf(i) << " by " << index;
            EXPECT_EQ(stored(i), before[size_t(i)]) << expected::nameOf(i) << " by " << index;
        }
    }
}

TEST_F(ParametersTest, AnyApplyEndsMidiLearnAndOnlyItsOwnIndexBeginsIt) {
    for (const int32_t index : {int32_t(at::Mix), 216, 300, 500, -1}) {
        set(at::MidiLearn, 0.8f);
        EXPECT_EQ(applied(at::MidiLearn), 0.8f);
        EXPECT_EQ(stored(at::MidiLearn), 0.8f);
        outside.told.clear();
        set(index, 0.5f);
        EXPECT_EQ(applied(at::MidiLearn), 0.0f) << "index " << index;
        EXPECT_EQ(outside.told.front(), editor(at::MidiLearn, 0));
    }
    outside.told.clear();
    set(at::MidiLearn, 1.0f);
    EXPECT_EQ(outside.told,
              (Told{editor(at::MidiLearn, 0), editor(at::MidiLearn, 1), "program all"}));
    parameters.recalculateForRate();
    EXPECT_EQ(applied(at::MidiLearn), 0.0f);
}

TEST_F(ParametersTest, MeterModeClearsThePeaks) {
    engine.raiseMeters(1.0f, 2.0f, 3.0f, 4.0f);
    set(at::MeterMode, 1.0f);
    EXPECT_EQ(applied(at::MeterMode), 1.0f);
    EXPECT_EQ(parameters.meterMode(), 1.0f);
    for (size_t lane = 0; lane < 4; ++lane) {
        EXPECT_EQ(engine.takeMeter(lane), 0.0f) << "lane " << lane;
    }
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
