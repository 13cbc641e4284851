#include "parameters/ParameterTexts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "parameters/Conversions.h"
#include "parameters/DelayRanges.h"
#include "parameters/ModulationLaws.h"
#include "parameters/NoteTable.h"
#include "parameters/Parameters.h"

namespace tessel8 {

namespace {

constexpr size_t kFloatCharacters = 8;

/// A value on its way to a text.
struct Shown {
    float v;
    bool given;  ///< the caller's own value, not the applied one
    int32_t index;
    const Parameters& parameters;
};

template <typename... Args>
void print(char* text, const char* format, Args... args) {
    std::snprintf(text, kTextBytes, format, args...);
}

void write(char* text, const char* words) {
    print(text, "%s", words);
}

template <size_t N>
void writeStep(char* text, float v, const char* const (&names)[N]) {
    const int32_t step = nearestStep(v, int32_t(N));
    write(text, step >= 0 && step < int32_t(N) ? names[step] : "");
}

void writeTenth(char* text, float x) {
    print(text, "%.01f", double(std::clamp(x, -1.0e9f, 1.0e9f)));
}

void cutBehindPoint(char* text, int32_t digits) {
    char* const point = std::strchr(text, '.');
    if (point && digits <= 0) {
        *point = 0;
    } else if (point && std::strlen(point) > size_t(digits) + 1) {
        point[digits + 1] = 0;
    }
}

constexpr float kLowestShownGain = 0.0001f;

void writeDecibelsAbove(float gain, char* text, int32_t decimals) {
    float2string(20.0 * std::log10(double(gain)), text, kFloatCharacters);
    cutBehindPoint(text, decimals);
}

void append(char* text, const char* unit) {
    const size_t length = std::strlen(text);
    std::snprintf(text + length, kTextBytes - length, "%s", unit);
}

void onOff(const Shown& s, char* text) {
    write(text, s.v == 0.0f ? "OFF" : "ON");
}

template <const char* Off, const char* On>
void either(const Shown& s, char* text) {
    write(text, s.v == 0.0f ? Off : On);
}

void decibel(const Shown& s, char* text) {
    writeDecibels(gainLaw(s.v), text, 1);
}

void pair(const Shown& s, char* text) {
    const int32_t right = std::min(truncated(std::floor(101.0 * double(s.v))), 100);
    print(text, "%lld<>%d", 100LL - right, right);
}

void percent(const Shown& s, char* text) {
    writeTenth(text, 100.0f * s.v);
}

void percentAtMost100(const Shown& s, char* text) {
    writeTenth(text, std::min(100.0f * s.v, 100.0f));
}

void bipolarPercent(const Shown& s, char* text) {
    writeTenth(text, std::min(200.0f * s.v, 200.0f) - 100.0f);
}

void timeMode(const Shown& s, char* text) {
    write(text, s.v <= 0.1f ? "Time" : s.v < 0.9f ? "Tempo" : "Sync");
}

void tempo(const Shown& s, char* text) {
    float2string(320.0f * s.v + 30.0f, text, 5);
}

void note(const Shown& s, char* text) {
    write(text, noteRow(s.v).hostText);
}

void delayRange(const Shown& s, char* text) {
    const int32_t step = truncated(s.given ? 18.0f * s.v : s.v);
    if (step >= 0 && step < int32_t(kDelayRanges.size())) {
        write(text, kDelayRanges[size_t(step)].text);
    }
}

void nothing(const Shown& /*s*/, char* text) {
    *text = 0;
}

template <size_t N>
int32_t entry(const std::array<float, N>& table, float v, int32_t steps) {
    const int32_t step = truncated(std::floor(float(steps - 1) * v + 0.5f));
    return int32_t(table[size_t(std::clamp(step, 0, int32_t(N) - 1))]);
}

void numerator(const Shown& s, char* text) {
    print(text, "Num %d", entry(kLfoNumerators, s.v, int32_t(kLfoNumerators.size())));
}

void denominator(const Shown& s, char* text) {
    print(text, "Denom %d", entry(kLfoDenominators, s.v, kLfoDenominatorSteps));
}

void lfoFrequency(const Shown& s, char* text) {
    float2string(std::pow(16.0, double(s.v)) - 1.0, text, 4);
}

void lfoPhase(const Shown& s, char* text) {
    float2string((s.v - 0.5f) * 180.0f, text, 5);
}

void followerSource(const Shown& s, char* text) {
    writeStep(text, s.v,
              {"In", "Tap1", "Tap2", "Tap3", "Tap4", "Tap5", "Tap6", "Tap7", "Tap8", "Out"});
}

void followerSpeed(const Shown& s, char* text) {
    print(text, "%d", truncated(999.0f * s.v + 1.0f));
    text[5] = 0;
}

void wave(const Shown& s, char* text) {
    writeStep(text, s.v, {"Sin", "Sqr", "Tri", "Saw", "Rnd"});
    if (!*text) {
        write(text, "OFF");
    }
}

void delay(const Shown& s, char* text) {
    writeDelayMs(s.parameters, s.v, text, 0);
}

void width(const Shown& s, char* text) {
    const int32_t tap = s.index - parameterIndex(Family::WidthT);
    const float side = s.given ? s.v : s.parameters.applied(reading::kSideLevel + tap);
    float x = 100.0f * side;
    // The law's constants miss the round figures by a hair.
    const auto snap = [&x](float low, float high, float to) { x = x > low && x < high ? to : x; };
    snap(-0.5f, 0.5f, 0.0f);
    snap(99.5f, 100.5f, 100.0f);
    snap(-100.5f, -99.5f, -100.0f);
    x = x < -199.5f ? -200.0f : x > 199.5f ? 200.0f : x;
    writeTenth(text, x);
}

void tapFilterType(const Shown& s, char* text) {
    writeStep(text, s.v, {"LPF", "BPF", "HPF", "PEAK", "LSHB", "LSHC", "HSHB", "HSHC"});
}

void fbFilterType(const Shown& s, char* text) {
    writeStep(text, s.v, {"SVFLP", "SVFBP", "SVFHP", "BiquadLP", "BiquadBP", "BiquadHP"});
}

void filterFrequency(const Shown& s, char* text) {
    print(text, "%d", truncated(20.0 * std::exp2(9.965784 * double(s.v)) + 0.5));
}

void filterGain(const Shown& s, char* text) {
    dB2string(std::pow(10.0, (36.0 * double(s.v) - 18.0) / 20.0), text, 5);
}

void feedbackMode(const Shown& s, char* text) {
    write(text, s.v == 0.0f ? "MultiEcho" : s.v < 2.0f ? "MultiTap" : "MultiFB");
}

void feedbackTap(const Shown& s, char* text) {
    if (s.parameters.applied(parameterIndex(Family::ModeFB)) == 0.0f) {
        print(text, "Tap %d", truncated(8.0f * s.v));
    } else {
        write(text, "Tap -");
    }
}

constexpr char kTap[] = "TAP", kOut[] = "OUT", kSpring[] = "SPRING", kPlate[] = "PLATE";
constexpr char kPadTap[] = "Tap", kPadTempo[] = "Tempo", kFbPost[] = "Post", kFbPre[] = "Pre";
constexpr char kPos[] = "POS", kNeg[] = "NEG", kDrvPost[] = "POST", kDrvPre[] = "PRE";
constexpr char kNoLink[] = "NoLINK", kLink[] = "LINK", kOff[] = "OFF", kToFb[] = "ToFB";
constexpr char kNoPanLink[] = "NoLink", kPanLink[] = "Link";

using Writer = void (*)(const Shown&, char*);

// One writer a family, in the order of `Family`.
constexpr std::array<Writer, size_t(Family::Count)> kWriters{
    onOff,                         // Power
    decibel,                       // Input
    decibel,                       // Output
    pair,                          // Mix
    timeMode,                      // TimeMode
    tempo,                         // Tempo
    note,                          // Note
    delayRange,                    // ZoomDel
    nothing,                       // NoteModeLfo
    numerator,                     // NumMod
    denominator,                   // DenomMod
    lfoFrequency,                  // FreqMod
    lfoPhase,                      // PhaseMod
    followerSource,                // SourceEF
    followerSpeed,                 // SpeedEF
    onOff,                         // SyncMod
    wave,                          // WaveMod
    onOff,                         // ActMod
    either<kTap, kOut>,            // ModeRev
    either<kSpring, kPlate>,       // TypeRev
    percentAtMost100,              // DampRev
    pair,                          // AmtRev
    onOff,                         // ActRev
    either<kPadTap, kPadTempo>,    // TapPad
    delay,                         // DelayT
    percentAtMost100,              // AmtFBT
    either<kFbPost, kFbPre>,       // FBPostT
    decibel,                       // GainT
    width,                         // WidthT
    pair,                          // PanTap
    tapFilterType,                 // TypeFT
    filterFrequency,               // FreqFT
    percent,                       // ResoFT
    filterGain,                    // GainFT
    pair,                          // SourceF
    bipolarPercent,                // DepthFT
    either<kPos, kNeg>,            // PhaseFT
    onOff,                         // ActFltT
    either<kDrvPost, kDrvPre>,     // PreDrvT
    percent,                       // DriveT
    onOff,                         // ActDrvT
    pair,                          // RevTap
    onOff,                         // ActRevT
    onOff,                         // ActTap
    either<kNoLink, kLink>,        // LinkTap
    feedbackMode,                  // ModeFB
    either<kOff, kToFb>,           // TAPtoFB
    feedbackTap,                   // SelectFB
    percent,                       // GainFB
    pair,                          // PanFBR
    pair,                          // PanFBL
    either<kNoPanLink, kPanLink>,  // LinkPanFB
    fbFilterType,                  // TypeFFB
    filterFrequency,               // FreqFFB
    percent,                       // ResoFFB
    pair,                          // SourceFB
    bipolarPercent,                // DepthFB
    onOff,                         // ActFltFB
    percent,                       // DriveFB
    onOff,                         // ActDrvFB
    onOff,                         // ActiveFB
};

/// True if the caller left a value of its own in the buffer.
bool takeGivenValue(const char* text, float& v) {
    constexpr char kMarker[] = {0x31, 0x45, 0x41, 0x44};
    if (std::memcmp(text, kMarker, sizeof kMarker) != 0) {
        return false;
    }
    std::memcpy(&v, text + sizeof kMarker, sizeof v);
    v = v > 0.0f ? std::min(v, 1.0f) : 0.0f;
    return true;
}

}  // namespace

void float2string(double value, char* text, int32_t length) {
    const double size = std::min(std::fabs(value), 1.0e9);
    char digits[kTextBytes];
    // Ten places are exact enough to cut at the sixth without rounding up into it.
    print(digits, "%s%.10f", value < 0.0 ? "-" : "", size == size ? size : 0.0);
    const size_t end = std::min({std::strlen(digits), kFloatCharacters, size_t(length)});
    std::memcpy(text, digits, end);
    text[end] = 0;
}

void dB2string(double gain, char* text, int32_t length) {
    if (gain > 0.0) {
        float2string(20.0 * std::log10(gain), text, length);
    } else {
        write(text, "-oo");
    }
}

void writeDelayMs(const Parameters& parameters, float value, char* text, int32_t decimals) {
    const float ringLen = parameters.applied(reading::kRingLen);
    const float rate = parameters.applied(reading::kSampleRate);
    float2string(value * ringLen * 1000.0f / rate + 0.5f, text, kFloatCharacters);
    cutBehindPoint(text, decimals);
}

void writeSamplesAsMs(const Parameters& parameters, float value, char* text, int32_t decimals) {
    const float rate = parameters.applied(reading::kSampleRate);
    float2string(value * 1000.0f / rate, text, kFloatCharacters);
    cutBehindPoint(text, decimals);
    append(text, " ms");
}

void writeDecibels(float gain, char* text, int32_t decimals) {
    if (gain > kLowestShownGain) {
        writeDecibelsAbove(gain, text, decimals);
    } else {
        write(text, "-100.0");
    }
}

void writeDecibelsWithUnit(float gain, char* text, int32_t decimals) {
    if (gain > kLowestShownGain) {
        writeDecibelsAbove(gain, text, decimals);
        append(text, "dB");
    } else {
        write(text, "-100dB");
    }
}

void writeDisplayText(const Parameters& parameters, int32_t index, char* text) {
    if (index < 0 || index >= kParameterCount) {
        *text = 0;
        return;
    }
    Shown shown{parameters.applied(index), false, index, parameters};
    shown.given = takeGivenValue(text, shown.v);
    kWriters[size_t(familyOf(index).family)](shown, text);
}

}  // namespace tessel8
