// What the host sees of a parameter besides its value: index, name, label and neutral value.

#include "parameters/ParameterTable.h"

#include <climits>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

TEST(ParameterTable, HoldsTwoHundredAndFifteenParametersForEver) {
    // Programs hold a value per index, and a host's automation knows nothing else: a parameter
    // more or less would shift or orphan what musicians have saved.
    EXPECT_EQ(kParameterCount, expected::kCount);
    int32_t next = 0;
    for (const expected::Row& row : expected::kRows) {
        EXPECT_EQ(row.first, next) << row.name;
        next += row.count;
    }
    EXPECT_EQ(next, 215);
}

TEST(ParameterTable, GivesEveryIndexItsNameLabelAndNeutralValue) {
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(parameterName(index), expected::nameOf(index)) << "index " << index;
        EXPECT_STREQ(parameterLabel(index), expected::rowOf(index).label) << "index " << index;
        EXPECT_EQ(parameterDefault(index), expected::initialOf(index)) << "index " << index;
    }
}

TEST(ParameterTable, KeepsTheSmallLetterInTheNameAtIndex42) {
    EXPECT_STREQ(parameterName(41), "FBPostT2");
    EXPECT_STREQ(parameterName(42), "FbPostT3");
    EXPECT_STREQ(parameterName(43), "FBPostT4");
}

TEST(ParameterTable, HasNoNameOrLabelOutsideTheHostsParameters) {
    for (const int32_t index : {-1, INT_MIN, 215, 216, 332, 378, 425, INT_MAX}) {
        EXPECT_STREQ(parameterName(index), "") << "index " << index;
        EXPECT_STREQ(parameterLabel(index), "") << "index " << index;
    }
}

TEST_F(ParametersTest, TheNeutralProgramReadsBackAsTheTableSays) {
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(applied(index), expected::initialOf(index)) << expected::nameOf(index);
        EXPECT_EQ(stored(index), expected::initialOf(index)) << expected::nameOf(index);
    }
    EXPECT_EQ(applied(at::TempoBpm), 120.0f);
}

TEST_F(ParametersTest, DefaultsComeBackFromAnyOtherState) {
    outside.tempo = 150.0;
    for (int32_t index = 0; index < expected::kCount; ++index) {
        set(index, 0.9f);
    }
    block();
    parameters.resetToDefaults();
    block();
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(applied(index), expected::initialOf(index)) << expected::nameOf(index);
    }
}

TEST_F(ParametersTest, ReadingsThatTheTableDoesNotNameAreZero) {
    for (const int32_t index : {INT_MIN, -1, 215, 300, 378, 415, 420, 423, 424, 426, INT_MAX}) {
        EXPECT_EQ(applied(index), 0.0f) << "index " << index;
        EXPECT_EQ(stored(index), 0.0f) << "index " << index;
    }
    EXPECT_EQ(applied(at::MeterMode), 0.5f);
    EXPECT_EQ(applied(at::RingLen), 352800.0f);
    EXPECT_EQ(applied(at::SampleRate), 44100.0f);
}

}  // namespace tessel8
