#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>

#include "engine/Engine.h"
#include "parameters/DelayGrid.h"
#include "parameters/Links.h"
#include "parameters/ParameterTable.h"
#include "parameters/TapLaws.h"

namespace tessel8 {

/// The one door through which a value reaches the engine: host automation, programs, the panel
/// and MIDI all come through `apply`. Nothing is refused: a value outside its range goes through
/// the law, an unknown index runs the common steps.
///
/// Every host parameter has a stored value (as it came, what the host reads back) and an applied
/// value (as the engine took it). After a block the applied values replace the stored ones.
class Parameters {
  public:
    explicit Parameters(Engine& engine);

    void connect(ProgramSink* programs, HostClock* clock);
    void connect(EditorLink* editor);

    void apply(int32_t index, float value);

    float applied(int32_t index) const;
    float stored(int32_t index) const;

    /// Copies all applied values over the stored ones, if anything was applied since last time.
    void mirrorAppliedValues();
    bool isDirty() const { return paramDirty.load(std::memory_order_relaxed); }
    void markDirty() { paramDirty.store(true, std::memory_order_relaxed); }

    /// Applies the neutral value of every parameter.
    void resetToDefaults();

    /// The rate as the host gave it, in range or not.
    void setSampleRate(float rate) { sampleRate = rate; }
    /// Works out anew what depends on the rate: grid, LFO, follower. Ends MIDI learn in silence.
    void recalculateForRate();

    /// Before each block: takes over the host's tempo and song position, holds the delays within
    /// the grid.
    void beginBlock();

    bool isPowered() const { return kept(Family::Power) != 0.0f; }

    // MIDI learn is switched on by the command 332 and off by any other value that is applied.
    bool isMidiLearnActive() const { return midiLearnActive.load(kRelaxed) != 0.0f; }
    /// The controller heard last since then, 128 for none.
    uint8_t heardController() const { return midiLearnController.load(kRelaxed); }
    void hearController(uint8_t controller) { midiLearnController.store(controller, kRelaxed); }
    void endMidiLearn();
    /// The editor's tick at the last MIDI event, for its lamp.
    void stampMidi(uint32_t tick) { lastMidiTick.store(tick, kRelaxed); }

  private:
    using Action = void (Parameters::*)(int tap, float v);
    static const std::array<Action, size_t(Family::Count)> kActions;

    void runCommand(int32_t index, float v, int32_t& reported);
    float reading(int32_t index) const;

    float kept(Family family, int32_t tap = 0) const {
        return appliedValues[size_t(parameterIndex(family, tap))];
    }
    void keep(Family family, float v, int32_t tap = 0) {
        appliedValues[size_t(parameterIndex(family, tap))] = v;
    }
    bool loading() const { return programs && programs->isLoadingProgram(); }
    void tellEditor(int32_t index, float value) const;

    template <Family family>
    void keepValue(int tap, float v);
    template <Family family>
    void keepSwitch(int tap, float v);

    // master
    void applyPower(int tap, float v);
    void applyMix(int tap, float v);
    template <Family family>
    void applyMasterGain(int tap, float v);
    void publishMix();

    // taps
    void applyActTap(int tap, float v);
    void applyAmtFBT(int tap, float v);
    void applyGainT(int tap, float v);
    void applyWidthT(int tap, float v);
    void applyPanTap(int tap, float v);
    template <Family family>
    void applySaturator(int tap, float v);
    void applyDriveT(int tap, float v);

    // feedback
    void applyFBPostT(int tap, float v);
    void applyModeFB(int tap, float v);
    void applyTAPtoFB(int tap, float v);
    void applySelectFB(int tap, float v);
    void applyGainFB(int tap, float v);
    template <Family family>
    void applyPanFB(int tap, float v);
    void applyDriveFB(int tap, float v);
    void applyActDrvFB(int tap, float v);
    void applyActiveFB(int tap, float v);
    bool isMultiTap() const;
    bool staysPost(int tap) const;
    void routeTap(int tap);
    void renewFeedbackAmounts();

    // delay time, tempo, notes
    void applyTimeMode(int tap, float v);
    void applyTempo(int tap, float v);
    void applyNote(int tap, float v);
    void applyDelayT(int tap, float v);
    void stepDelay(int tap, int direction);
    bool isOnGrid() const { return kept(Family::TimeMode) != 0.0f; }
    bool followsHost() const { return kept(Family::TimeMode) > 0.9f; }
    std::optional<float> askHostTempo();
    bool takeHostTempo(std::optional<float> bpm);
    void recalculateGrid();
    void requantise(int tap);
    void limitZoomToGrid();
    void setDelay(int tap, int32_t samples);
    int32_t roundedMs(int32_t samples) const;
    int32_t cutMs(int32_t samples) const;
    float ringFraction(int32_t samples) const;
    void followHostTempo();
    void holdDelaysWithinGrid();

    // filters
    void applyTypeFT(int tap, float v);
    void applyFreqFT(int tap, float v);
    void applyResoFT(int tap, float v);
    void applyGainFT(int tap, float v);
    void applyActFltT(int tap, float v);
    void applyTypeFFB(int tap, float v);
    void applyFreqFFB(int tap, float v);
    void applyResoFFB(int tap, float v);
    void applyActFltFB(int tap, float v);
    void setTapFilterGain(int tap, float gain);
    void setFbResonance();

    // reverb
    void applyActRev(int tap, float v);
    void applyModeRev(int tap, float v);
    void applyTypeRev(int tap, float v);
    void applyDampRev(int tap, float v);
    void applyAmtRev(int tap, float v);
    void applyActRevT(int tap, float v);
    void applyRevTap(int tap, float v);
    void renewReverbSend(int tap);

    // modulation
    template <Family family>
    void applyTapModulation(int tap, float v);
    void applyPhaseFT(int tap, float v);
    template <Family family>
    void applyFbModulation(int tap, float v);
    void applyWaveMod(int tap, float v);
    void applyActMod(int tap, float v);
    void applySyncMod(int tap, float v);
    void applyFreqMod(int tap, float v);
    void applyPhaseMod(int tap, float v);
    void applyNoteModeLfo(int tap, float v);
    void applyNumMod(int tap, float v);
    void applyDenomMod(int tap, float v);
    void applySourceEF(int tap, float v);
    void applySpeedEF(int tap, float v);
    void setLfoHz(float freqMod);
    void setFollowerSpeed();
    void lfoFrequencyFromNote(bool inApply);
    void noteModeChanged();
    void selectWave();
    void followSongPosition();

    Engine& engine;
    EditorLink* editor = nullptr;
    ProgramSink* programs = nullptr;
    HostClock* clock = nullptr;

    std::array<float, kParameterCount> appliedValues{};
    std::array<float, kParameterCount> paramMirror{};
    std::atomic<bool> paramDirty{true};
    std::atomic<bool> processSeen{false};

    float sampleRate = kLowestRate;
    float meterModeValue = 0.5f;
    static constexpr auto kRelaxed = std::memory_order_relaxed;
    static constexpr uint8_t kNothingHeard = 128;
    std::atomic<float> midiLearnActive{0.0f};
    std::atomic<uint8_t> midiLearnController{kNothingHeard};
    std::atomic<uint32_t> lastMidiTick{0};

    // master
    float inputGain = 0.0f, outGain = 0.0f;

    // taps
    std::array<Width, kTaps> widths{};

    // feedback
    float rememberedSelection = 1.0f;

    // delay time
    float tempoBpm = 120.0f;
    float hostTempo = 120.0f;
    int32_t noteDivisor = 16;
    DelayGrid grid;
    std::array<int32_t, kTaps> delayMs{};
    std::array<float, kTaps> delayFrac{};
    std::array<int32_t, kTaps> delaySteps{};

    // filters: the last step, 10 while none was applied
    static constexpr int32_t kNoType = 10;
    std::array<int32_t, kTaps> tapFltTypeIdx{};
    int32_t fbFltTypeIdx = kNoType;

    // modulation
    float lfoHz = 0.01f;
    float lastFreqMod = 0.0f;
    float lastPpqPos = 0.0f;
    size_t lfoNumIdx = 0, lfoDenIdx = 0;
};

}  // namespace tessel8
