// What a host prints of a value.

#include "parameters/ParameterTexts.h"

#include <climits>
#include <cstring>
#include <sstream>
#include <vector>

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
    const char* texts;  ///< value, space, text, bar and so on
};

const Shown kShown[] = {
    {{at::ActRev, at::ActFltT, at::ActiveFB, at::SyncMod}, "0 OFF|0.3 ON"},
    {{at::NoteMode}, "1 "},
    {{at::ModeRev}, "0 TAP|0.1 OUT"},
    {{at::FBPostT}, "0 Post|1 Pre"},
    {{at::TimeMode}, "0 Time|0.5 Tempo|1 Sync"},
    {{at::ModeFB}, "0 MultiEcho|1 MultiTap|2 MultiFB"},
    {{at::TypeFT}, "0.07 LPF|0.08 BPF|0.5 LSHB|1 HSHC"},
    {{at::WaveMod}, "0 Sin|1 Rnd|1.3 OFF|-1 OFF"},
    // 4 v^2 in dB, cut: -12.0412, -6.0206, 7.0437, 12.0412.
    {{at::Input, at::Output, at::GainT}, "0.004 -100.0|0.25 -12.0|0.35355338 -6.0|0.75 7.0|1 12.0"},
    {{at::GainFT}, "0 -18.0|0.5 0.000|0.75 9.000|1 18.00"},
    {{at::Mix, at::PanTap, at::PanFBR, at::SourceFB},
     "0.0098 100<>0|0.01 99<>1|0.3 70<>30|1 0<>100|1.5 0<>100"},
    {{at::DampRev, at::AmtFBT}, "0.1256 12.6|1.2 100.0"},
    {{at::ResoFT, at::DriveFB, at::GainFB}, "0.125 12.5|1.2 120.0"},
    {{at::DepthFT, at::DepthFB}, "0 -100.0|0.5 0.0|1.5 100.0"},
    // The side is 2.666667 v - 1.333333 in the middle; -1.995262 and 1.995262 at the ends.
    {{at::WidthT},
     "0 -200.0|0.125 -100.0|0.25 -66.7|0.498 -0.5|0.4985 0.0|0.5015 0.0|0.503 0.8|0.872 99.2|0.874 "
     "100.0|0.9 119.9|1 200.0"},
    {{at::Tempo}, "0 30.00|0.28125 120.0|0.21953125 100.2"},
    {{at::FreqMod}, "0 0.00|0.125 0.41|1 15.0"},
    {{at::SpeedEF}, "0 1|0.125 125|1 1000"},
    {{at::FreqFT, at::FreqFFB}, "0 20|0.5 632|1 20000"},
    {{at::Note}, "0.0 1|0.0631 1T|0.5625 16|0.9379 128|1 128T"},
    {{at::ZoomDel},
     "0 100 ms|6 1 beat|11.9 5 bars|18 8000 ms|19 untouched|-1 untouched|1e30 untouched"},
    {{at::DenomMod}, "0 Denom 1|0.41667 Denom 8|1 Denom 96"},
    {{at::SelectFB}, "0.3 Tap 2|1 Tap 8"},
    {{at::DelayT}, "0.1 800|0.00007 1|0.00006 0|1 8000"},
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
            std::istringstream texts(shown.texts);
            for (std::string part; std::getline(texts, part, '|');) {
                set(index, std::stof(part));
                EXPECT_EQ(text(index), part.substr(part.find(' ') + 1)) << index << ": " << part;
            }
        }
    }
}

TEST_F(Texts, AValueBehindTheMarkerIsPrintedInPlaceOfTheAppliedOne) {
    set(at::TimeMode, 1.0f);
    EXPECT_EQ(textOf(at::TimeMode, 0.5f), "Tempo");
    EXPECT_EQ(text(at::TimeMode), "Sync");
    set(at::ModeFB, 2.0f);
    EXPECT_EQ(text(at::SelectFB), "Tap -");
    EXPECT_EQ(textOf(at::ResoFT, 1.7f), "100.0");  // held within 0 and 1
    EXPECT_EQ(textOf(at::ResoFT, -3.0f), "0.0");
    EXPECT_EQ(textOf(at::WidthT, 0.5f), "50.0");     // is the level
    EXPECT_EQ(textOf(at::ZoomDel, 0.5f), "3 bars");  // 18 times the value: step 9
    for (const int32_t index : {INT_MIN, -1, 215, 379, INT_MAX}) {
        EXPECT_EQ(text(index), "") << "index " << index;
        EXPECT_EQ(textOf(index, 0.5f), "") << "index " << index;
    }
}

}  // namespace tessel8
