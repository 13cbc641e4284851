#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string>

#include "engine/Engine.h"
#include "parameters/Links.h"
#include "parameters/Parameters.h"

namespace tessel8 {

/// Parameter indices as projects know them; of a family of eight, the first.
namespace at {
// clang-format off
enum : int32_t {
    Power = 0, Input, Output, Mix, TimeMode, Tempo, Note, ZoomDel, NoteMode, NumMod, DenomMod,
    FreqMod, PhaseMod, SourceEF, SpeedEF, SyncMod, WaveMod, ActMod, ModeRev, TypeRev, DampRev,
    AmtRev, ActRev, TapPad, DelayT = 24, AmtFBT = 32, FBPostT = 40, GainT = 48, WidthT = 56,
    PanTap = 64, TypeFT = 72, FreqFT = 80, ResoFT = 88, GainFT = 96, SourceF = 104, DepthFT = 112,
    PhaseFT = 120, ActFltT = 128, PreDrvT = 136, DriveT = 144, ActDrvT = 152, RevTap = 160,
    ActRevT = 168, ActTap = 176, LinkTap = 184, ModeFB = 192, TAPtoFB = 193, SelectFB = 201,
    GainFB, PanFBR, PanFBL, LinkPanFB, TypeFFB, FreqFFB, ResoFFB, SourceFB, DepthFB, ActFltFB,
    DriveFB, ActDrvFB, ActiveFB, StepDown = 312, StepUp = 320, MeterMode = 328, MidiLearn = 332,
    NoteFreqMod = 379, RingFracUsed, WholeNotesInRing, TempoBpm, DelayMs = 383, DelaySteps = 391,
    DelayFrac = 399, SideLevel = 407, RingLen = 421, SampleRate,
};
// clang-format on
}  // namespace at

/// Editor, current program and host in one.
struct Outside final : EditorLink, ProgramSink, HostClock {
    /// What it is told, in the order of the calls: " index=value" as the editor, behind a letter as
    /// the editor's digits or knob or as the program, " all" for the whole program.
    std::string told;
    std::array<float, 215> program{};
    bool loading = false;
    std::optional<double> tempo, position;
    int tempoQuestions = 0;

    static std::string line(const char* what, int32_t index, float value) {
        char text[64];
        std::snprintf(text, sizeof text, " %s%d=%.7g", what, int(index), double(value));
        return text;
    }
    void setParameter(int32_t index, float value) override { told += line("", index, value); }
    void showTempo(float value) override { told += line("d", at::Tempo, value); }
    void showLfoFrequency(float value) override { told += line("k", at::FreqMod, value); }
    int32_t editedParameter() override { return 215; }
    void markMidiChange() override {}
    uint32_t tick() const override { return 0; }
    bool isLoadingProgram() const override { return loading; }
    void storeValue(int32_t index, float value) override {
        program.at(size_t(index)) = value;
        told += line("p", index, value);
    }
    void storeAllValues(const float* values) override {
        std::copy_n(values, program.size(), program.begin());
        told += " all";
    }
    static bool give(const std::optional<double>& from, double& to) {
        to = from.value_or(-1.0);
        return from.has_value();
    }
    bool hostTempo(double& bpm) override { return ++tempoQuestions, give(tempo, bpm); }
    bool songPosition(double& quarterNotes) override { return give(position, quarterNotes); }
};

/// Parameters over an engine without memory, at 44100 Hz with the neutral values applied:
/// Tempo mode, 120 BPM, sixteenths.
struct ParametersTest : testing::Test {
    ParametersTest() {
        parameters.connect(&outside, &outside);
        parameters.connect(&outside);
        parameters.resetToDefaults();
        block();
        outside.told.clear();
    }

    /// Applies values in turns: index, value, index, value, ...
    void set() {}
    template <typename... More>
    void set(int32_t index, float value, More... more) {
        parameters.apply(index, value);
        set(more...);
    }
    float applied(int32_t index) const { return parameters.applied(index); }
    float stored(int32_t index) const { return parameters.stored(index); }

    void block() {
        parameters.beginBlock();
        engine.beginBlock();
        if (parameters.isDirty()) {
            parameters.mirrorAppliedValues();
        }
    }

    /// Applies one value; what the outside is told of it.
    std::string toldBy(int32_t index, float value) {
        outside.told.clear();
        set(index, value);
        return outside.told;
    }

    Engine engine;
    Parameters parameters{engine};
    Outside outside;
};

constexpr double kPi = 3.14159265358979323846;

}  // namespace tessel8
