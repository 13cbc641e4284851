// What a host prints of a value.

#include "parameters/ParameterTexts.h"

#include <climits>
#include <cstring>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

struct Texts : ParametersTest {
    /// The text over what the buffer holds.
    std::string text(int32_t index, const char* before = "untouched") const {
        char buffer[kTextBytes];
        std::memcpy(buffer, before, 10);
        writeDisplayText(parameters, index, buffer);
        return buffer;
    }
    /// The text of a value that the caller brings along behind the marker.
    std::string textOf(int32_t index, float v) const {
        char before[10] = {0x31, 0x45, 0x41, 0x44};
        std::memcpy(before + 4, &v, sizeof v);
        return text(index, before);
    }
};

struct Shown {
    std::vector<int32_t> families;
    std::vector<std::pair<float, const char*>> texts;
};

const Shown kShown[] = {
    {{at::ActRev, at::ActFltT, at::ActiveFB, at::SyncMod}, {{0, "OFF"}, {0.3f, "ON"}}},
    {{at::NoteMode}, {{1, ""}}},
    {{at::ModeRev}, {{0, "TAP"}, {0.1f, "OUT"}}},
    {{at::FBPostT}, {{0, "Post"}, {1, "Pre"}}},
    {{at::TimeMode}, {{0, "Time"}, {0.5f, "Tempo"}, {1, "Sync"}}},
    {{at::ModeFB}, {{0, "MultiEcho"}, {1, "MultiTap"}, {2, "MultiFB"}}},
    {{at::TypeFT}, {{0.07f, "LPF"}, {0.08f, "BPF"}, {0.5f, "LSHB"}, {1, "HSHC"}}},
    {{at::WaveMod}, {{0, "Sin"}, {1, "Rnd"}, {1.3f, "OFF"}, {-1, "OFF"}}},
    // 4 v^2 in dB, cut: -12.0412, -6.0206, 7.0437, 12.0412.
    {{at::Input, at::Output, at::GainT},
     {{0.004f, "-100.0"}, {0.25f, "-12.0"}, {0.35355338f, "-6.0"}, {0.75f, "7.0"}, {1, "12.0"}}},
    {{at::GainFT}, {{0, "-18.0"}, {0.5f, "0.000"}, {0.75f, "9.000"}, {1, "18.00"}}},
    {{at::Mix, at::PanTap, at::PanFBR, at::SourceFB},
     {{0.0098f, "100<>0"}, {0.01f, "99<>1"}, {0.3f, "70<>30"}, {1, "0<>100"}, {1.5f, "0<>100"}}},
    {{at::DampRev, at::AmtFBT}, {{0.1256f, "12.6"}, {1.2f, "100.0"}}},
    {{at::ResoFT, at::DriveFB, at::GainFB}, {{0.125f, "12.5"}, {1.2f, "120.0"}}},
    {{at::DepthFT, at::DepthFB}, {{0, "-100.0"}, {0.5f, "0.0"}, {1.5f, "100.0"}}},
    // The side is 2.666667 v - 1.333333 in the middle; -1.995262 and 1.995262 at the ends.
    {{at::WidthT},
     {{0, "-200.0"},
      {0.125f, "-100.0"},
      {0.25f, "-66.7"},
      {0.498f, "-0.5"},
      {0.4985f, "0.0"},
      {0.5015f, "0.0"},
      {0.503f, "0.8"},
      {0.872f, "99.2"},
      {0.874f, "100.0"},
      {0.9f, "119.9"},
      {1, "200.0"}}},
    {{at::Tempo}, {{0, "30.00"}, {0.28125f, "120.0"}, {0.21953125f, "100.2"}}},
    {{at::FreqMod}, {{0, "0.00"}, {0.125f, "0.41"}, {1, "15.0"}}},
    {{at::SpeedEF}, {{0, "1"}, {0.125f, "125"}, {1, "1000"}}},
    {{at::FreqFT, at::FreqFFB}, {{0, "20"}, {0.5f, "632"}, {1, "20000"}}},
    {{at::Note}, {{0.0f, "1"}, {0.0631f, "1T"}, {0.5625f, "16"}, {0.9379f, "128"}, {1, "128T"}}},
    {{at::ZoomDel},
     {{0, "100 ms"},
      {6, "1 beat"},
      {11.9f, "5 bars"},
      {18, "8000 ms"},
      {19, "untouched"},
      {-1, "untouched"},
      {1e30f, "untouched"}}},
    {{at::DenomMod}, {{0, "Denom 1"}, {5 / 12.0f, "Denom 8"}, {1, "Denom 96"}}},
    {{at::DelayT}, {{0.1f, "800"}, {0.00007f, "1"}, {0.00006f, "0"}, {1, "8000"}}},
};

}  // namespace

TEST_F(Texts, ReadAsTheTableSays) {
    for (const Shown& shown : kShown) {
        parameters.resetToDefaults();
        set(at::DelayT, 0.5f);
        if (shown.families.back() == at::SyncMod) {
            set(at::NoteMode, 1.0f);
        }
        for (const int32_t index : shown.families) {
            for (const auto& [v, wanted] : shown.texts) {
                set(index, v);
                EXPECT_EQ(text(index), wanted) << expected::nameOf(index) << " = " << v;
            }
        }
    }
}

TEST_F(Texts, OfTheSelectedTapAndOfACutDependOnOtherValues) {
    set(at::SelectFB, 0.3f);
    EXPECT_EQ(text(at::SelectFB), "Tap 2");
    set(at::ModeFB, 2.0f);
    EXPECT_EQ(text(at::SelectFB), "Tap -");
    set(at::GainFT, 1.0f, at::TypeFT, 5.0f / 7);  // the inverse law prints the same figure
    EXPECT_EQ(text(at::GainFT), "18.00");
}

TEST_F(Texts, AValueBehindTheMarkerIsPrintedInPlaceOfTheAppliedOne) {
    set(at::TimeMode, 1.0f);
    EXPECT_EQ(textOf(at::TimeMode, 0.5f), "Tempo");
    EXPECT_EQ(text(at::TimeMode), "Sync");
    EXPECT_EQ(textOf(at::ResoFT, 1.7f), "100.0");  // held within 0 and 1
    EXPECT_EQ(textOf(at::ResoFT, -3.0f), "0.0");
    EXPECT_EQ(textOf(at::WidthT, 0.5f), "50.0");     // is the level
    EXPECT_EQ(textOf(at::ZoomDel, 0.5f), "3 bars");  // 18 times the value: step 9
    for (const int32_t index : {INT_MIN, -1, 215, 379, INT_MAX}) {
        EXPECT_EQ(text(index), "") << "index " << index;
        EXPECT_EQ(textOf(index, 0.5f), "") << "index " << index;
    }
}

TEST(NumberTexts, CutDigitsAndNeverRoundThem) {
    char text[kTextBytes];
    float2string(99.96, text, 4);
    EXPECT_STREQ(text, "99.9");
    float2string(-6.0205999, text, 8);
    EXPECT_STREQ(text, "-6.02059");
    float2string(-0.05, text, 8);
    EXPECT_STREQ(text, "-0.05000");
    dB2string(0.0, text, 5);
    EXPECT_STREQ(text, "-oo");
    dB2string(10.0, text, 4);
    EXPECT_STREQ(text, "20.0");
}

}  // namespace tessel8
