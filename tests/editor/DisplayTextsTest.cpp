// What the display says of every control, and what runs through it while there is none.

#include <limits>

#include "editor/FakeEffect.h"
#include "editor/ScrollingTexts.h"
#include "editor/StatusTexts.h"

namespace tessel8 {
namespace {

// Tag and name, then what the effect holds and the value line, again and again. 900 and 901 are the
// editor's delay range and edit parameter; a tag of 2000 and more is asked for its controller.
const char* const kLines = R"(
0 Tessel8 Power|0=1|Plugin:    ON;14 EF Attack/Release Time|14=0|EF:     1.0 ms|14=1|EF:  1000.0 ms;
1 Master Input Gain|1=0.25|IN:   -12.0 dB;4 Delay Setup Mode :             Note|4=0.9|TIME:    NOTE;
2 Master Output Gain|2=1|OUT:  +12.0 dB;121 Tap 2 LFO Phase|121=1|PHASE2:   NEG|121=0|PHASE2:   POS;
3 Master Mix :        Dry         Wet|3=0.3|MIX:  70%: 30%;22 Reverb Main On/Off|22=0|REVERB:   OFF;
4 Delay Setup Mode :      miliseconds|4=0|TIME:    TIME;20 Reverb Main Damp|20=0.125|DAMP:   12.5 %;
4 Delay Setup Mode: Note + Tempo Sync|4=1|TIME:    SYNC;133 Tap 6 Filter On/Off|133=1|TAP6: FLT  ON;
5 Current Tempo|5=0.28125 23=1|    120.0 BPM;23 Tap Pad Mode|23=0|PAD:      TAP|23=1|PAD:    TEMPO;
7 Delay Range|900=1|TIME:  500 ms|900=2|TIME: 1000 ms|900=18|TIME: 8000 ms|900=19|;
9 LFO Freq  3.00 Hz in Note Mode|11=0.5 379=0.5 9=0.5 10=0.25|Num:3/Denom: 4;
10 LFO Freq  0.01 Hz in Note Mode|10=1|Num:1/Denom:96|379=10|NOTE Disable;
11 LFO Frequency|11=0|LFO:   0.01 Hz;218 Tap 1 Input Gain|48=0.5|OUT:   +0.0 dB|48=0|OUT: -100.0 dB;
12 LFO Phase|12=0.25|LFO:   -45.0 ?;204 FB Left Pan :      Left       Right|204=0.25|PanL: 75%: 25%;
13 EF Signal Source|13=0.04|EF: MASTER IN|13=0.33|EF:  IN TAP 3|13=1|EF:MASTER OUT;
15 LFO Song Position Synchronization|15=0|SYNC LFO: OFF;168 Tap 1 Reverb On/Off|168=1|TAP1: REV  ON;
16 LFO Waveform|16=0.75|LFO WAVE: SAW|16=1.3|;210 Feedback Modulation Depth|210=0.5|FB:     +0.0 %;
17 On/Off LFO & Envelope Follower Mod|17=1|LFO/EF:    ON;75 Tap 4 Filter Type|75=0.7|TAP4:    LSHC;
18 Reverb Main Mode|18=0|MODE:     TAP|18=1|MODE:     OUT;205 Feedback Pan Link|205=0|LINK PAN: OFF;
19 Reverb Main Type|19=0|TYPE:  SPRING|19=1|TYPE:   PLATE;202 Feedback Gain|202=0.5|FB:    50.00 %;
21 Reverb Main Amt :   Dry         Wet|21=0.25|AMT:  75%: 25%;183 Tap 8 On/Off|183=1|TAP8:      ON;
40 Tap 1 Pre/Post Tap Feedback|40=1|TAP1:    POST|40=0|TAP1:     PRE;
57 Tap 2 Stereo Width|408=0.004|TAP2:    MONO|408=0.006|TAP2:   +0.6 %|408=-1.004|TAP2: -STEREO;
64 Tap 1 Balance :    Left       Right|64=0.75|TAP1: 51%:100%;334 MIDI CC  setings load||MIDI LOAD;
136 Tap 1 Saturation Insert|136=1| PRE FILTER1|136=0|POST FILTER1;
152 Tap 1 Saturation On/Off|152=0|TAP1: DRV OFF;2120 MIDI Impossible for This Control||MIDI Disable;
184 Tap 1 Parameter Link|184=1|LINK 1:    ON;212 Feedback Saturation Drive|212=0.1|FB:    10.00 %;
192 Feedback Mode|192=1|        M U L T I T A B;207 Feedback Filter Frequency|207=0|FB:      20 Hz;
192 Feedback Mode|192=0|    M U L T I E C H O|192=2|          M U L T I F B;
195 Send Tap 3 to Feedback|195=1|TAP3:->FB:  ON;208 Feedback Filter Resonance|208=1|FB:   100.00 %;
201 Feedback Tap Select|201=0.375|T A P   3   t o   F B|201=0|T A P   -   t o   F B;
203 FB Right Pan :     Left       Right|203=1|PanR:  0%:100%;333 MIDI CC  setings reset||MIDI RESET;
206 Feedback Filter Type|206=0.6|FB:    BiQLPF;213 Feedback Saturation On/Off|213=0|FB: DRV   OFF;
209 Feedback Mod Source :LFO         EF|209=0|FB:  100%:  0%;335 MIDI CC  setings save||MIDI SAVE;
211 Feedback Filter On/Off|211=1|FB: FLT    ON;216 Tap Pad Mode: Set Tempo|5=0 23=1|     30.0 BPM;
214 Feedback On/Off|214=1|FB:        ON;2218 MIDI ControlChange not Assigned|1048=128|NotConnected;
216 Tap Pad Mode: Set Taps Delay Time|5=1|    350.0 BPM;336 Graph Mode Display Switch||GRAPH;
233 Tap 8 Amount Feedback|39=0.5|TAP8:  50.00 %;258 Tap 1 Filter Resonance|88=0.125|TAP1:  12.50 %;
235 Tap 2 Stereo Width|408=0.996|TAP2: +STEREO|408=1.996|TAP2: +200.0 %|408=-2.1|TAP2: -200.0 %;
249 Tap 8 Balance :    Left       Right|71=0|TAP8:100%:  0%|71=0.5|TAP8:100%:100%|71=1|TAP8:  0%:100%;
250 Tap 1 Filter Frequency|80=0|TAP1:    20 Hz|80=1|TAP1: 20000 Hz;
266 Tap 1 Filter Gain|96=0.25|TAP1:  -9.0 dB;290 Tap 1 Saturation Drive|144=1|TAP1: 100.00 %;
274 Tap 1 Mod Source :  LFO          EF|104=0.29|TAP1: 71%: 29%;332 MIDI CC  easy learn||MIDI LEARN;
282 Tap 1 Modulation Depth|112=1.2|TAP1: +100.0 %|112=0.25|TAP1:  -50.0 %;
298 Tap 1 Reverb Mix :  Dry         Wet|160=1|TAP1:  0%:100%;
307 Delay Range|900=6|NOTE:  1 Beat|900=7|NOTE:   1 Bar|900=17|NOTE: 11 Bars;
308 Delay Time Quantize Type|6=0.0625|NOTE:       1|6=0.0627|NOTE:      T.1|6=1|NOTE:    T.128;
310 Current Tempo from Host Application|5=0.21889094|    100.1 BPM;
314 Tap 3 Delay Time:                ms|385=1500.9|DEL3: 1500 ms;
327 Tap 8 Delay Time: Value        Note|4=0.5 398=6 6=0.5625|DEL8:   6:  16;
328 Meter Mode|328=0|METER:  INPUT|328=0.5|METER: OUTPUT|328=1|METER:COMPARE;
329 Select Edit Parameter|901=0|    TAP GAIN|901=3|    FLT FREQ|901=-1|;
331 Select Edit Parameter|901=7|   MOD DEPTH|901=10|  TAP FB AMT|901=11|;
337 Feedback overload PANIC !!!||<<<PANIC>>>;
2010 MIDI ControlChange is Assigned|1011=7|MIDI CC#   7)";

TEST(StatusTexts, SayValueAndNameOfEveryControl) {
    std::istringstream lines(kLines);
    for (std::string line; std::getline(lines, line, ';');) {
        std::istringstream cases(line);
        int32_t tag, index;
        std::string name, values, big;
        std::getline(cases >> tag >> std::ws, name, '|');
        name.resize(35, ' ');
        FakeEffect effect;
        while (std::getline(cases, values, '|')) {
            std::getline(cases, big, '|');
            std::istringstream held(values);
            while (held >> index && held.ignore() >> effect.values[index]) {
            }
            const int32_t zoom = int32_t(effect.values[900]), edit = int32_t(effect.values[901]);
            const StatusText text = tag < 2000 ? statusText(effect, tag, zoom, edit)
                                               : midiAssignmentText(effect, tag - 2000);
            EXPECT_EQ(text.bigLine, big) << tag << " at " << values;
            EXPECT_EQ(text.smallLine, name) << tag;
            EXPECT_EQ(text.raw, tag == 192 || tag == 201) << tag;
        }
    }
}

TEST(StatusTexts, AnyValueStaysWithinTheLines) {
    for (const float v : {1e38f, -1e38f, std::numeric_limits<float>::quiet_NaN()}) {
        FakeEffect effect;
        for (int32_t i = 0; i < 426; ++i) {
            effect.values[i] = v;
        }
        for (int32_t tag = -2; tag < 430; ++tag) {
            const bool none = tag < 0 || tag == 8 || tag == 215 || tag == 217 || tag >= 338;
            const StatusText text = statusText(effect, tag, INT32_MAX, INT32_MIN);
            EXPECT_EQ(text.shown, !none) << tag;
            EXPECT_TRUE(std::memchr(text.bigLine, 0, sizeof text.bigLine)) << tag;
            EXPECT_EQ(strnlen(text.smallLine, sizeof text.smallLine), none ? 0u : 35u) << tag;
        }
    }
}

/// All but the last letter was in the window before.
void runOn(std::string& run, const std::string& window) {
    EXPECT_TRUE(run.empty() || run.ends_with(window.substr(0, window.size() - 1))) << window;
    run += run.empty() ? window : window.substr(window.size() - 1);
}

TEST(ScrollingTexts, RunAroundAtTheirOwnPaceInAllPanelsAtOnce) {
    FakeEffect effect;
    ScrollingTexts panels[2] = {ScrollingTexts(effect), ScrollingTexts(effect)};
    panels[0].composeCredits(effect);
    std::string banner, credits;
    EXPECT_EQ(panels[0].nextBanner(350), nullptr);
    for (uint32_t step = 0; step < 80; ++step) {
        const std::string line = panels[step % 2].nextBanner(400 + 200 * step);
        std::string letters;
        for (size_t i = 0; i < line.size(); i += 2) {
            letters += line[i];
            EXPECT_TRUE(i == 22 || line[i + 1] == ' ');
        }
        EXPECT_EQ(letters.size(), 12u);
        runOn(banner, letters);
    }
    EXPECT_NE(banner.find("  Vantor Tessel Echo 1.6.1        Vantor Tessel"), std::string::npos);
    for (uint32_t tick = 0xFFFFFF00u, step = 0; step < 1100; ++step, tick += 201) {  // wraps
        runOn(credits, panels[0].nextCredit(tick));
        EXPECT_EQ(panels[0].nextCredit(tick + 200), nullptr);
    }
    EXPECT_EQ(credits.size(), 35u + 1099u);
    const std::string start = std::string(20, ' ') + "Vantor Tessel Echo 1.6.1 build 349 ";
    const size_t first = credits.find(start, 1), second = credits.find(start, first + 1);
    EXPECT_NE(credits.at(first - 1), ' ');
    EXPECT_LE(second - first, 1023u);
    EXPECT_LT(credits.find("eight taps, three feedback topologies", first), second);
}

}  // namespace
}  // namespace tessel8
