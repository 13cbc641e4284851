// What a host prints of a value.

#include "parameters/ParameterTexts.h"

#include <climits>
#include <cstring>

#include "parameters/FamilyTable.h"
#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

struct Shown {
    float v;
    const char* text;
};

class Texts : public ParametersTest {
  protected:
    std::string text(int32_t index) const {
        char buffer[kTextBytes] = "untouched";
        writeDisplayText(parameters, index, buffer);
        return buffer;
    }
    /// The text of a value that the caller brings along behind the marker.
    std::string textOf(int32_t index, float v) const {
        char buffer[kTextBytes] = {0x31, 0x45, 0x41, 0x44};
        std::memcpy(buffer + 4, &v, sizeof v);
        writeDisplayText(parameters, index, buffer);
        return buffer;
    }
    /// All parameters of the family, with the values applied.
    void expectTexts(int32_t first, std::initializer_list<Shown> shown) {
        for (const Shown& s : shown) {
            for (int32_t tap = 0; tap < expected::rowOf(first).count; ++tap) {
                set(first + tap, s.v);
                EXPECT_EQ(text(first + tap), s.text)
                    << expected::nameOf(first + tap) << " = " << s.v;
            }
        }
    }
};

}  // namespace

TEST_F(Texts, SwitchesReadOffOrOn) {
    for (const int32_t first :
         {at::Power, at::ActMod, at::ActRev, at::ActFltT, at::ActDrvT, at::ActRevT, at::ActTap,
          at::ActFltFB, at::ActDrvFB, at::ActiveFB}) {
        expectTexts(first, {{0.0f, "OFF"}, {0.3f, "ON"}, {1.0f, "ON"}});
    }
    set(at::NoteMode, 1.0f);
    expectTexts(at::SyncMod, {{0.0f, "OFF"}, {0.3f, "ON"}});
    expectTexts(at::NoteMode, {{0.0f, ""}, {1.0f, ""}});
}

TEST_F(Texts, ChoicesReadAsTheirWords) {
    expectTexts(at::ModeRev, {{0.0f, "TAP"}, {0.1f, "OUT"}});
    expectTexts(at::TypeRev, {{0.0f, "SPRING"}, {0.3f, "PLATE"}, {1.0f, "PLATE"}});
    expectTexts(at::TapPad, {{0.0f, "Tap"}, {1.0f, "Tempo"}});
    expectTexts(at::PhaseFT, {{0.0f, "POS"}, {1.0f, "NEG"}});
    expectTexts(at::PreDrvT, {{0.0f, "POST"}, {1.0f, "PRE"}});
    expectTexts(at::LinkTap, {{0.0f, "NoLINK"}, {1.0f, "LINK"}});
    expectTexts(at::LinkPanFB, {{0.0f, "NoLink"}, {1.0f, "Link"}});
    expectTexts(at::TAPtoFB, {{0.0f, "OFF"}, {1.0f, "ToFB"}});
    for (int32_t tap = 0; tap < 8; ++tap) {
        set(at::DelayT + tap, 0.5f);
        set(at::ActTap + tap, 1.0f);
    }
    expectTexts(at::FBPostT, {{0.0f, "Post"}, {1.0f, "Pre"}});
    expectTexts(at::TimeMode, {{0.0f, "Time"}, {0.5f, "Tempo"}, {1.0f, "Sync"}});
    expectTexts(at::ModeFB, {{0.0f, "MultiEcho"}, {1.0f, "MultiTap"}, {2.0f, "MultiFB"}});
    expectTexts(at::TypeFT, {{0.0f, "LPF"},
                             {1.0f / 7, "BPF"},
                             {2.0f / 7, "HPF"},
                             {3.0f / 7, "PEAK"},
                             {4.0f / 7, "LSHB"},
                             {5.0f / 7, "LSHC"},
                             {6.0f / 7, "HSHB"},
                             {1.0f, "HSHC"},
                             {0.07f, "LPF"},
                             {0.08f, "BPF"}});
    expectTexts(at::TypeFFB, {{0.0f, "SVFLP"},
                              {0.2f, "SVFBP"},
                              {0.4f, "SVFHP"},
                              {0.6f, "BiquadLP"},
                              {0.8f, "BiquadBP"},
                              {1.0f, "BiquadHP"}});
    expectTexts(at::WaveMod, {{0.0f, "Sin"},
                              {0.25f, "Sqr"},
                              {0.5f, "Tri"},
                              {0.75f, "Saw"},
                              {1.0f, "Rnd"},
                              {1.3f, "OFF"},
                              {-1.0f, "OFF"}});
    expectTexts(
        at::SourceEF,
        {{0.0f, "In"}, {1.0f / 9, "Tap1"}, {0.5f, "Tap5"}, {8.0f / 9, "Tap8"}, {1.0f, "Out"}});
}

TEST_F(Texts, AGainIsCutBehindItsFirstDecimal) {
    for (const int32_t first : {at::Input, at::Output, at::GainT}) {
        // 4 v^2 in dB: -12.0412, -6.0206, 3.5218, 7.0437, 12.0412.
        expectTexts(first, {{0.0f, "-100.0"},
                            {0.004f, "-100.0"},
                            {0.25f, "-12.0"},
                            {0.35355338f, "-6.0"},
                            {0.5f, "0.0"},
                            {0.75f, "7.0"},
                            {1.0f, "12.0"}});
    }
    expectTexts(at::GainFT, {{0.0f, "-18.0"}, {0.5f, "0.000"}, {0.75f, "9.000"}, {1.0f, "18.00"}});
    set(at::TypeFT, 5.0f / 7);  // the inverse law prints the same figure
    EXPECT_EQ(text(at::GainFT), "18.00");
}

TEST_F(Texts, APairAlwaysAddsUpToAHundred) {
    for (const int32_t first : {at::Mix, at::AmtRev, at::PanTap, at::SourceF, at::RevTap,
                                at::PanFBR, at::PanFBL, at::SourceFB}) {
        expectTexts(first, {{0.0f, "100<>0"},
                            {0.0098f, "100<>0"},
                            {0.01f, "99<>1"},
                            {0.3f, "70<>30"},
                            {0.5f, "50<>50"},
                            {0.9999f, "0<>100"},
                            {1.0f, "0<>100"},
                            {1.5f, "0<>100"}});
    }
}

TEST_F(Texts, PercentagesHaveOneRoundedDecimal) {
    for (const int32_t first : {at::DampRev, at::AmtFBT}) {
        expectTexts(first, {{0.0f, "0.0"}, {0.1256f, "12.6"}, {1.0f, "100.0"}, {1.2f, "100.0"}});
    }
    for (const int32_t first : {at::ResoFT, at::ResoFFB, at::DriveT, at::DriveFB, at::GainFB}) {
        expectTexts(first, {{0.0f, "0.0"}, {0.125f, "12.5"}, {1.0f, "100.0"}, {1.2f, "120.0"}});
    }
    for (const int32_t first : {at::DepthFT, at::DepthFB}) {
        expectTexts(
            first,
            {{0.0f, "-100.0"}, {0.5f, "0.0"}, {0.75f, "50.0"}, {1.0f, "100.0"}, {1.5f, "100.0"}});
    }
}

TEST_F(Texts, AWidthIsItsSideLevelSnappedToRoundFigures) {
    // The side is 2.666667 v - 1.333333 in the middle; -1.995262 and 1.995262 at the ends.
    expectTexts(at::WidthT, {{0.0f, "-200.0"},
                             {0.125f, "-100.0"},
                             {0.25f, "-66.7"},
                             {0.498f, "-0.5"},
                             {0.4985f, "0.0"},
                             {0.5f, "0.0"},
                             {0.5015f, "0.0"},
                             {0.503f, "0.8"},
                             {0.6f, "26.7"},
                             {0.872f, "99.2"},
                             {0.874f, "100.0"},
                             {0.875f, "100.0"},
                             {0.8755f, "100.0"},
                             {0.9f, "119.9"},
                             {1.0f, "200.0"}});
    EXPECT_EQ(textOf(at::WidthT, 0.5f), "50.0");  // a value that is brought along is the level
    EXPECT_EQ(textOf(at::WidthT, 0.996f), "100.0");
}

TEST_F(Texts, FiguresAreCutToTheirLength) {
    expectTexts(at::Tempo,
                {{0.0f, "30.00"}, {0.28125f, "120.0"}, {0.21953125f, "100.2"}, {1.0f, "350.0"}});
    expectTexts(at::FreqMod, {{0.0f, "0.00"}, {0.125f, "0.41"}, {0.5f, "3.00"}, {1.0f, "15.0"}});
    expectTexts(at::PhaseMod,
                {{0.0f, "-90.0"}, {0.25f, "-45.0"}, {0.5f, "0.000"}, {1.0f, "90.00"}});
    expectTexts(at::SpeedEF, {{0.0f, "1"}, {0.125f, "125"}, {0.5f, "500"}, {1.0f, "1000"}});
    for (const int32_t first : {at::FreqFT, at::FreqFFB}) {
        expectTexts(first, {{0.0f, "20"}, {0.5f, "632"}, {1.0f, "20000"}});
    }
}

TEST_F(Texts, NotesAndRangesReadAsTheirRows) {
    const char* const kNoteTexts[] = {"1",  "1T",  "2",  "2T",  "4",  "4T",  "8",   "8T",
                                      "16", "16T", "32", "32T", "64", "64T", "128", "128T"};
    const double kThresholds[] = {0.063, 0.126, 0.188, 0.251, 0.313, 0.376, 0.438, 0.501,
                                  0.563, 0.626, 0.688, 0.751, 0.813, 0.876, 0.938, 2.0};
    for (int row = 1; row <= 16; ++row) {
        expectTexts(at::Note, {{float(row) / 16.0f, kNoteTexts[row - 1]},
                               {float(kThresholds[row - 1] - 1e-4), kNoteTexts[row - 1]}});
    }
    expectTexts(at::ZoomDel, {{0.0f, "100 ms"},
                              {1.0f, "500 ms"},
                              {2.0f, "1000 ms"},
                              {3.0f, "2000 ms"},
                              {4.0f, "4000 ms"},
                              {5.0f, "8000 ms"},
                              {6.0f, "1 beat"},
                              {7.0f, "1 bar"},
                              {8.0f, "2 bars"},
                              {11.9f, "5 bars"},
                              {17.0f, "11 bars"},
                              {18.0f, "8000 ms"}});
    for (const float step : {19.0f, -1.0f, 1e30f}) {
        set(at::ZoomDel, step);
        EXPECT_EQ(text(at::ZoomDel), "untouched");
    }
    EXPECT_EQ(textOf(at::ZoomDel, 0.5f), "3 bars");  // 18 times the value: step 9
    expectTexts(
        at::NumMod,
        {{0.0f, "Num 1"}, {0.25f, "Num 2"}, {0.5f, "Num 3"}, {0.75f, "Num 4"}, {1.0f, "Num 8"}});
    const int kDenominators[] = {1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 48, 64, 96};
    for (int den = 0; den < 13; ++den) {
        set(at::DenomMod, float(den) / 12.0f);
        EXPECT_EQ(text(at::DenomMod), "Denom " + std::to_string(kDenominators[den]));
    }
}

TEST_F(Texts, ADelayReadsInWholeMillisecondsAsItWasGiven) {
    expectTexts(at::DelayT, {{0.0f, "0"},
                             {0.1f, "800"},
                             {0.5f, "4000"},
                             {0.00007f, "1"},
                             {0.00006f, "0"},
                             {1.0f, "8000"}});
}

TEST_F(Texts, TheSelectedTapHasANumberInMultiEchoOnly) {
    set(at::SelectFB, 1.0f);
    EXPECT_EQ(text(at::SelectFB), "Tap 8");
    set(at::SelectFB, 0.3f);
    EXPECT_EQ(text(at::SelectFB), "Tap 2");
    for (const float mode : {1.0f, 2.0f}) {
        set(at::ModeFB, mode);
        EXPECT_EQ(text(at::SelectFB), "Tap -");
    }
}

TEST_F(Texts, AValueBehindTheMarkerIsPrintedInPlaceOfTheAppliedOne) {
    set(at::TimeMode, 1.0f);
    EXPECT_EQ(textOf(at::TimeMode, 0.5f), "Tempo");
    EXPECT_EQ(applied(at::TimeMode), 1.0f);
    EXPECT_EQ(text(at::TimeMode), "Sync");
    EXPECT_EQ(textOf(at::TimeMode, 0.0f), "Time");
    EXPECT_EQ(textOf(at::ResoFT, 1.7f), "100.0");  // held within 0 and 1
    EXPECT_EQ(textOf(at::ResoFT, -3.0f), "0.0");
    EXPECT_EQ(textOf(at::ModeFB, 0.5f), "MultiTap");
    EXPECT_EQ(textOf(at::DelayT, 0.25f), "2000");
    EXPECT_EQ(applied(at::DelayT), 0.0f);
}

TEST_F(Texts, OutsideTheHostsParametersThereIsNone) {
    for (const int32_t index : {INT_MIN, -1, 215, 216, 332, 379, 425, INT_MAX}) {
        EXPECT_EQ(text(index), "") << "index " << index;
        EXPECT_EQ(textOf(index, 0.5f), "") << "index " << index;
    }
}

TEST(NumberTexts, CutDigitsAndNeverRoundThem) {
    const struct {
        double value;
        int32_t length;
        const char* text;
    } kPoints[] = {{120.0, 5, "120.0"},         {120.0, 8, "120.0000"},  {99.96, 4, "99.9"},
                   {-6.0205999, 8, "-6.02059"}, {12.0411998, 4, "12.0"}, {0.0, 3, "0.0"},
                   {-0.05, 8, "-0.05000"}};
    for (const auto& p : kPoints) {
        char text[kTextBytes];
        float2string(p.value, text, p.length);
        EXPECT_STREQ(text, p.text) << p.value << " in " << p.length;
    }
    char text[kTextBytes];
    for (const double gain : {0.0, -1.0}) {
        dB2string(gain, text, 5);
        EXPECT_STREQ(text, "-oo");
    }
    dB2string(10.0, text, 4);
    EXPECT_STREQ(text, "20.0");
}

}  // namespace tessel8
