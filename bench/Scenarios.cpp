#include "bench/Scenarios.h"

namespace tessel8::bench {

namespace {

void set(Parameters& p, Family family, float value, int tap = 0) {
    p.apply(parameterIndex(family, tap), value);
}

void onlyInTime(Parameters& p) {
    set(p, Family::TimeMode, 0.0f);
}

/// Taps a quarter of a second apart, each feeding itself.
void soundingTaps(Parameters& p, int count) {
    onlyInTime(p);
    for (int tap = 0; tap < count; ++tap) {
        set(p, Family::ActTap, 1.0f, tap);
        set(p, Family::DelayT, 0.03125f * float(tap + 1), tap);
        set(p, Family::AmtFBT, 0.4f, tap);
        set(p, Family::TAPtoFB, 1.0f, tap);
    }
}

/// Every processor at work on every tap.
void everything(Parameters& p) {
    soundingTaps(p, kTaps);
    for (int tap = 0; tap < kTaps; ++tap) {
        set(p, Family::ActFltT, 1.0f, tap);
        set(p, Family::TypeFT, float(tap) / 7.0f, tap);
        set(p, Family::DepthFT, 0.7f, tap);
        set(p, Family::SourceF, 0.0f, tap);
        set(p, Family::ActDrvT, 1.0f, tap);
        set(p, Family::DriveT, 0.5f, tap);
        set(p, Family::ActRevT, 1.0f, tap);
    }
    set(p, Family::ActMod, 1.0f);
    set(p, Family::FreqMod, 0.3f);
    set(p, Family::TypeRev, 1.0f);
    set(p, Family::ActRev, 1.0f);
    set(p, Family::ActiveFB, 1.0f);
    set(p, Family::GainFB, 0.2f);
    set(p, Family::ActFltFB, 1.0f);
    set(p, Family::DepthFB, 0.7f);
    set(p, Family::ActDrvFB, 1.0f);
}

}  // namespace

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all{
        {"default", 1, [](Parameters&) {}},
        {"one_tap", 1, [](Parameters& p) { soundingTaps(p, 1); }},
        {"four_taps", 4, [](Parameters& p) { soundingTaps(p, 4); }},
        {"eight_taps", 8, [](Parameters& p) { soundingTaps(p, 8); }},
        {"multi_fb", 8,
         [](Parameters& p) {
             soundingTaps(p, 8);
             set(p, Family::ModeFB, 2.0f);
         }},
        {"everything", 8, everything},
    };
    return all;
}

}  // namespace tessel8::bench
