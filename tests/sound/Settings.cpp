#include "Settings.h"

#include "presets/factory/FactoryBank.h"

namespace tessel8::test {

namespace {

void set(Parameters& p, Family family, float value, int tap = 0) {
    p.apply(parameterIndex(family, tap), value);
}

void setAll(Parameters& p, Family family, float value) {
    for (int tap = 0; tap < kTaps; ++tap) {
        set(p, family, value, tap);
    }
}

/// `count` taps at spread delays (fractions of 8 s), levels and places, each feeding itself.
void taps(Parameters& p, int count, float spacing = 0.0031f) {
    set(p, Family::TimeMode, 0.0f);
    for (int tap = 0; tap < count; ++tap) {
        const auto t = float(tap);
        set(p, Family::ActTap, 1.0f, tap);
        set(p, Family::DelayT, spacing * (t + 1.0f), tap);
        set(p, Family::GainT, 0.5f - 0.03f * t, tap);
        set(p, Family::WidthT, 0.1f + 0.11f * t, tap);
        set(p, Family::PanTap, t / 7.0f, tap);
        set(p, Family::AmtFBT, 0.6f - 0.05f * t, tap);
        set(p, Family::TAPtoFB, 1.0f, tap);
    }
}

void filters(Parameters& p, float resonance, float gain) {
    for (int tap = 0; tap < kTaps; ++tap) {
        set(p, Family::TypeFT, float(tap) / 7.0f, tap);
        set(p, Family::FreqFT, 0.3f + 0.08f * float(tap), tap);
        set(p, Family::ResoFT, resonance, tap);
        set(p, Family::GainFT, gain, tap);
        set(p, Family::ActFltT, 1.0f, tap);
    }
}

void modulation(Parameters& p, float wave, float source) {
    set(p, Family::FreqMod, 0.6f);
    set(p, Family::PhaseMod, 0.3f);
    set(p, Family::WaveMod, wave);
    set(p, Family::ActMod, 1.0f);
    for (int tap = 0; tap < kTaps; ++tap) {
        set(p, Family::DepthFT, 0.9f - 0.1f * float(tap), tap);
        set(p, Family::SourceF, source, tap);
        set(p, Family::PhaseFT, float(tap % 2), tap);
    }
}

void saturators(Parameters& p) {
    for (int tap = 0; tap < kTaps; ++tap) {
        set(p, Family::ActDrvT, 1.0f, tap);
        set(p, Family::DriveT, 0.4f + 0.06f * float(tap), tap);
        set(p, Family::PreDrvT, float(tap % 2), tap);
    }
}

void reverb(Parameters& p, float type, float mode) {
    set(p, Family::TypeRev, type);
    set(p, Family::ModeRev, mode);
    set(p, Family::DampRev, 0.6f);
    set(p, Family::AmtRev, 0.8f);
    set(p, Family::ActRev, 1.0f);
    for (int tap = 0; tap < kTaps; tap += 2) {
        set(p, Family::ActRevT, 1.0f, tap);
        set(p, Family::RevTap, 0.2f + 0.1f * float(tap), tap);
    }
}

void masterFeedback(Parameters& p, float type, float filterOn) {
    set(p, Family::ActiveFB, 1.0f);
    set(p, Family::GainFB, 0.35f);
    set(p, Family::PanFBL, 0.3f);
    set(p, Family::PanFBR, 0.8f);
    set(p, Family::SelectFB, 0.375f);
    set(p, Family::TypeFFB, type);
    set(p, Family::FreqFFB, 0.6f);
    set(p, Family::ResoFFB, 0.7f);
    set(p, Family::DepthFB, 0.8f);
    set(p, Family::ActFltFB, filterOn);
    set(p, Family::ActDrvFB, 1.0f);
    set(p, Family::DriveFB, 0.45f);
}

void multiTap(Parameters& p, int busTap, float post) {
    set(p, Family::ModeFB, 1.0f);
    set(p, Family::TAPtoFB, 1.0f, busTap);
    set(p, Family::AmtFBT, 0.9f, busTap);
    set(p, Family::FBPostT, post, busTap);
}

std::vector<Setting> build() {
    std::vector<Setting> all{
        {"neutral", [](Parameters&) {}},
        {"four taps", [](Parameters& p) { taps(p, 4); }},
        {"eight taps with post feedback",
         [](Parameters& p) {
             taps(p, 8, 0.013f);
             setAll(p, Family::FBPostT, 1.0f);
         }},
        {"delays of a few samples", [](Parameters& p) { taps(p, 8, 0.0000071f); }},
        {"all taps without delay",
         [](Parameters& p) {
             taps(p, 8, 0.0f);
             masterFeedback(p, 0.0f, 0.0f);
         }},
        {"MultiFB",
         [](Parameters& p) {
             taps(p, 8);
             set(p, Family::ModeFB, 2.0f);
             set(p, Family::ActTap, 0.0f, 2);
         }},
        {"MultiTap, bus before the tap, from a tap that is off",
         [](Parameters& p) {
             taps(p, 4);
             masterFeedback(p, 0.0f, 1.0f);
             multiTap(p, 6, 0.0f);
         }},
        {"MultiTap, bus behind the tap",
         [](Parameters& p) {
             taps(p, 8, 0.013f);
             masterFeedback(p, 0.8f, 1.0f);
             multiTap(p, 3, 1.0f);
         }},
        {"note grid at the tempo",
         [](Parameters& p) {
             taps(p, 8, 0.03f);
             set(p, Family::TimeMode, 0.5f);
             set(p, Family::Note, 0.5f);
         }},
        {"filters at rest, boost",
         [](Parameters& p) {
             taps(p, 8);
             filters(p, 0.3f, 0.7f);
         }},
        {"filters at rest, cut",
         [](Parameters& p) {
             taps(p, 8);
             filters(p, 0.5f, 0.2f);
         }},
        {"first three filter types alone",
         [](Parameters& p) {
             taps(p, 3);
             filters(p, 0.6f, 0.6f);
         }},
        {"saturators around filters",
         [](Parameters& p) {
             taps(p, 8);
             filters(p, 0.4f, 0.6f);
             saturators(p);
         }},
        {"spring on the taps",
         [](Parameters& p) {
             taps(p, 8);
             reverb(p, 0.0f, 0.0f);
         }},
        {"plate across the output",
         [](Parameters& p) {
             taps(p, 8);
             reverb(p, 1.0f, 1.0f);
         }},
        {"everything",
         [](Parameters& p) {
             taps(p, 8);
             filters(p, 0.5f, 0.6f);
             saturators(p);
             modulation(p, 0.0f, 0.3f);
             reverb(p, 1.0f, 0.0f);
             masterFeedback(p, 0.0f, 1.0f);
         }},
    };
    constexpr const char* kWaves[] = {"sine", "square", "triangle", "saw", "random"};
    for (int wave = 0; wave < 5; ++wave) {
        all.push_back({std::string("LFO ") + kWaves[wave], [wave](Parameters& p) {
                           taps(p, 8);
                           filters(p, 0.5f, 0.6f);
                           modulation(p, float(wave) / 4.0f, 0.0f);
                       }});
    }
    for (const int source : {0, 2, 6, 9}) {
        for (const int count : {4, 8}) {
            all.push_back({"follower of source " + std::to_string(source) + ", " +
                               std::to_string(count) + " taps",
                           [source, count](Parameters& p) {
                               taps(p, count);
                               filters(p, 0.5f, 0.6f);
                               modulation(p, 0.0f, 0.8f);
                               set(p, Family::SourceEF, float(source) / 9.0f);
                           }});
        }
    }
    for (int type = 0; type < 6; ++type) {
        all.push_back({"feedback filter type " + std::to_string(type), [type](Parameters& p) {
                           taps(p, 4);
                           masterFeedback(p, float(type) / 5.0f, 1.0f);
                           modulation(p, 0.0f, 0.5f);
                       }});
    }
    return all;
}

}  // namespace

const std::vector<Setting>& soundSettings() {
    static const std::vector<Setting> all = build();
    return all;
}

namespace {

/// A program that is being loaded, as the parameters see it.
struct LoadingProgram : ProgramSink {
    bool isLoadingProgram() const override { return true; }
    void storeValue(int32_t, float) override {}
    void storeAllValues(const float*) override {}
};

void applyProgram(Parameters& parameters, const ProgramRecord& program) {
    LoadingProgram loading;
    parameters.connect(&loading, nullptr);
    for (int32_t index = 0; index < kParameterCount; ++index) {
        parameters.apply(index, program.values[size_t(index)]);
    }
    parameters.connect(nullptr, nullptr);
}

}  // namespace

std::vector<Setting> factorySettings() {
    std::vector<ProgramRecord> bank(kProgramCount);
    writeFactoryBank(bank);
    std::vector<Setting> settings;
    for (size_t i = 0; i < bank.size(); ++i) {
        if (bank[i].values != bank[0].values) {
            settings.push_back({"program " + std::to_string(i) + " " + bank[i].name.data(),
                                [=](Parameters& p) { applyProgram(p, bank[i]); }});
        }
    }
    return settings;
}

}  // namespace tessel8::test
