// What the host sees of a parameter besides its value: index, name, label and neutral value.

#include "parameters/ParameterTable.h"

#include <climits>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

TEST_F(ParametersTest, EveryIndexHasItsNameLabelAndNeutralValueForEver) {
    EXPECT_EQ(kParameterCount, expected::kCount);
    for (int32_t index = 0; index < expected::kCount; ++index) {
        EXPECT_EQ(parameterName(index), expected::nameOf(index)) << "index " << index;
        EXPECT_STREQ(parameterLabel(index), expected::rowOf(index).label) << "index " << index;
        EXPECT_EQ(parameterDefault(index), expected::initialOf(index)) << "index " << index;
        EXPECT_EQ(applied(index), expected::initialOf(index)) << expected::nameOf(index);
    }
    for (const int32_t index : {INT_MIN, -1, 215, 332, 425, INT_MAX}) {
        EXPECT_STREQ(parameterName(index), "") << "index " << index;
        EXPECT_STREQ(parameterLabel(index), "") << "index " << index;
    }
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
    for (const int32_t index : {INT_MIN, -1, 215, 300, 378, 415, 420, 423, 426, INT_MAX}) {
        EXPECT_EQ(applied(index), 0.0f) << "index " << index;
        EXPECT_EQ(stored(index), 0.0f) << "index " << index;
    }
    EXPECT_EQ(applied(at::MeterMode), 0.5f);
    EXPECT_EQ(applied(at::RingLen), 352800.0f);
    EXPECT_EQ(applied(at::SampleRate), 44100.0f);
}

}  // namespace tessel8
