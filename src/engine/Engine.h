#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "engine/AlignedBuffer.h"
#include "engine/Blocks.h"
#include "engine/DelayRing.h"
#include "engine/Modulation.h"
#include "engine/Reverb.h"
#include "engine/SampleLoops.h"

namespace tessel8 {

constexpr float kLowestRate = 44100.0f;
constexpr float kHighestRate = 192000.0f;
constexpr int kSecondsOfMemory = 8;
/// No signal inside the effect exceeds this absolute value behind a clamp.
constexpr float kSignalLimit = 16.0f;

/// Where a tap's feedback is taken: nowhere, from its raw read, or behind its processing.
enum class FeedbackSource : int32_t { None, BeforeTap, AfterTap };

/// What feeds the master feedback: the raw read of the selected tap, or the sum of the taps.
enum class FeedbackInput : int32_t { SelectedTap, Bus };

/// Coefficient set of a tap's filter. Peak and shelves come as cut and boost.
enum class TapFilterKind : int32_t {
    LowPass,
    BandPass,
    HighPass,
    PeakCut,
    PeakBoost,
    LowShelfBoost,
    LowShelfCut,
    HighShelfBoost,
    HighShelfCut
};

/// Type of the master feedback's filter: state-variable or biquad.
enum class FbFilterType : int32_t { SvfLow, SvfBand, SvfHigh, BiquadLow, BiquadBand, BiquadHigh };

/// A one-pole smoother's two factors: y = take * target + keep * y, once per sample.
struct Smoothing {
    float keep = 0.0f;
    float take = 1.0f;
};

/// Input and output history of a second-order filter in direct form I.
template <typename Values>
struct Biquad {
    Values x1{}, x2{}, y1{}, y2{};
};

/// Memory of the state-variable filter; lanes left, right, left, right.
struct StateVariable {
    Quad in, low, high, band;
};

/// The whole state of the signal path as one flat record. It knows nothing but sound: no
/// parameter index, no host, no panel.
///
/// Fields of the first half are written by parameter application, on any thread, while a block
/// may run; each is one aligned word (a `Quad` is one 16-byte store) and the loops read it afresh
/// for every stretch of frames. Fields of the second half belong to the block.
struct Engine {
    // --- set from outside -------------------------------------------------------------------

    /// Delay of each tap in whole samples. May stand at or above `ringLen`; a read uses the
    /// smaller of it and `ringLen` - 1.
    int32_t delaySamples[kTaps] = {};

    TapBlock tapGate;          ///< 1 where the tap is on, else 0
    TapBlock tapFbAmount;      ///< own feedback, 0 to 1; 0 where the tap is not sent
    TapBlock tapGainTarget;    ///< linear gain
    TapBlock widthDirect;      ///< width matrix: same channel
    TapBlock widthCross;       ///< width matrix: other channel
    TapBlock panGainTargetL;   ///< linear gain
    TapBlock panGainTargetR;   ///< linear gain
    TapBlock revSend;          ///< part of the tap's output that goes to the reverb
    TapBlock revDirect{1.0f};  ///< part that goes to the tap sum

    Quad mixTarget;    ///< input gain, wet gain, dry gain, 0
    Quad fbGain;       ///< master feedback gain in all lanes
    Quad fbPanMatrix;  ///< left to left, right to left, left to right, right to right

    FeedbackSource tapFbSrc[kTaps] = {};  ///< what each tap adds to its own lines
    FeedbackSource busFbSrc[kTaps] = {};  ///< what each tap gives to the bus, never None
    FeedbackInput fbInputSrc = FeedbackInput::SelectedTap;
    int32_t selectedTap = 0;  ///< 0 to 7
    int32_t masterFbOn = 0;   ///< the master feedback runs
    int32_t gateAtInput = 0;  ///< the taps' switches gate their lines' input (MultiFB)
    int32_t anyTapHigh = 0;   ///< any of taps 5 to 8 is on
    int32_t fadeHoldLen = 0;  ///< silence after a delay change, samples
    float fadeStep = 0.0f;    ///< fade-in per sample behind that silence
    Smoothing smooth30;       ///< gains
    Smoothing smooth250;      ///< filter frequencies

    TapBlock tapSaturatorPre;   ///< 1 where the saturator stands before the filter
    TapBlock tapSaturatorPost;  ///< 1 where it stands behind the filter
    TapBlock tapCeiling;        ///< the saturator's ceiling, linear
    TapBlock tapFilterOn;       ///< 1 or 0
    TapFilterKind tapFltKind[kTaps] = {};
    TapBlock tapFreqBase;       ///< Hz before modulation
    TapBlock tapQ;              ///< plain ratio
    TapBlock tapFltGainTarget;  ///< plain ratio
    TapBlock tapFltRootTarget;  ///< sqrt(2 gain)
    TapBlock tapLfoAmount{1.0f};
    TapBlock tapEfAmount;
    int32_t tapLfoNegative[kTaps] = {};  ///< the tap follows the LFO's second output

    int32_t fbFilterOn = 0;
    FbFilterType fbFltType = FbFilterType::SvfLow;
    float fbFreqBase = 0.0f;  ///< Hz before modulation
    float fbReso = 0.0f;      ///< damping of the state-variable types, Q of the biquads
    float fbLfoAmount = 0.0f;
    float fbEfAmount = 0.0f;
    int32_t fbSaturatorOn = 0;
    Quad fbCeiling;

    Lfo lfo;
    Follower follower;
    Reverb reverb;

    // --- life cycle, shared between the control side and the block ---------------------------

    std::atomic<bool> ready{false};           ///< the engine may process
    std::atomic<bool> inProcess{false};       ///< a block runs
    std::atomic<bool> clearPending{false};    ///< the next pass-through block calls `clear` first
    std::atomic<bool> panicRequested{false};  ///< the next block passes through

    // --- memory -----------------------------------------------------------------------------

    std::array<DelayRing, 2> ringL;  ///< left lines of taps 1 to 4 and 5 to 8
    std::array<DelayRing, 2> ringR;  ///< right lines
    int32_t ringLen = kSecondsOfMemory * int32_t(kLowestRate);
    int32_t writePos = 0;
    int32_t readPos[kTaps] = {};

    AlignedBuffer octaveTable, sineTable, squareTable;  // independent of the rate
    AlignedBuffer tanTable, svfTable;                   // for the present rate

    // --- the block's own --------------------------------------------------------------------

    int32_t readDelay[kTaps] = {};  ///< `delaySamples` as this block reads it
    int32_t fadeHoldCount = 0;      ///< frames since the last delay change, stops at its maximum
    TapBlock tapFade{1.0f};
    TapBlock tapGainSmooth;
    TapBlock panGainSmoothL, panGainSmoothR;
    TapBlock tapReadL, tapReadR;  ///< the tap's read after the fade
    /// Taps that nobody heard in the last block: their `tapRead` is still to be taken from their
    /// lines, should somebody ask for it.
    uint32_t unsettledReads = 0;
    TapBlock preFbL, preFbR;    ///< raw read * amount, last sample
    TapBlock postFbL, postFbR;  ///< the tap's direct output * amount, last sample
    Quad mixSmooth;
    float inL = 0.0f, inR = 0.0f;    ///< input after the input gain, last sample
    float outL = 0.0f, outR = 0.0f;  ///< last output sample
    float fbSignalL = 0.0f, fbSignalR = 0.0f;

    TapBlock tapFreqSmooth{0.5f};  ///< filter frequency in use, Hz
    TapBlock tapFltGainSmooth, tapFltRootSmooth;
    Biquad<TapBlock> tapBqL, tapBqR;
    float fbFreqSmooth = 0.0f;
    Biquad<Quad> fbBq;  ///< lanes left, right, left, right
    StateVariable fbSvf;

    std::array<std::atomic<float>, 4> meters{};  ///< peaks: input L, R, output L, R

    // --- operations -------------------------------------------------------------------------

    /// Builds the tables that no rate changes and chooses the loops. Throws std::bad_alloc
    /// without memory. The set must be one that this processor has.
    explicit Engine(InstructionSet set = bestInstructionSet());

    /// Allocates and zeroes rings, reverb lines and frequency tables for `rate` (44.1 to
    /// 192 kHz) and starts at the rings' beginning. False where memory is missing; what was got
    /// so far stays until the next call.
    bool allocateForRate(float rate);
    bool hasMemory() const;
    void releaseMemory();

    /// The two smoothers and the fade for `rate`.
    void setSmoothingRate(float rate);

    /// Silences the processors' short memories: filters, feedback signals, follower, LFO, meters.
    /// Rings, reverb lines, smoothed gains and positions stay.
    void resetState();
    void clearRings();
    /// Writes go on at the rings' beginning; what they hold stays.
    void rewind();
    /// All taps at full level, whatever was asked for.
    void endFades();
    /// Silences processors and reverb; the rings keep their signal. Ready afterwards, if there
    /// is memory.
    void clear();

    // What parameter application wants done to the block's own fields. A request may come on any
    // thread; it is carried out at the start of the next block, so no write of either side can
    // undo the other's.

    /// Silences the tap and lets it fade in again. To be called before the delay itself is
    /// changed, so that no block can see the new delay without the fade.
    void restartFade(int tap) { request(kFadeRequests, tap); }
    void clearTapFilter(int tap) { request(kTapFilterRequests, tap); }
    /// The smoothed gain of the tap's filter jumps to what is its target now.
    void snapTapFilterGain(int tap) {
        snappedGain[size_t(tap)] = tapFltGainTarget[size_t(tap)];
        snappedRoot[size_t(tap)] = tapFltRootTarget[size_t(tap)];
        request(kGainSnapRequests, tap);
    }
    void clearFbBiquad() { request(kFbRequests, 0); }
    /// Clears the feedback signals of taps and master and the memories of the master's filter.
    void clearFeedback() { request(kFbRequests, 1); }
    /// The LFO's outputs take their distance from the master phase anew.
    void respreadLfo() { request(kOtherRequests, 0); }
    /// Reads the reverb's lines at the distances of this type; `rate` in Hz.
    void setReverbType(bool plate, float rate) {
        reverb.nextPlate = plate;
        reverb.nextRate = rate;
        request(kOtherRequests, 1);
    }

    /// A position up to one turn past the ring's end, brought back into it.
    int32_t ringIndex(int32_t position) const {
        return position < ringLen ? position : position - ringLen;
    }

    /// Takes over requests and delays for the block that follows.
    void beginBlock();
    /// Runs the loop that the switches select. Needs `hasMemory`.
    void process(const float* const* inputs, float* const* outputs, int32_t frames);
    /// Copies input to output and records silence. Works without memory.
    void passThrough(const float* const* inputs, float* const* outputs, int32_t frames);

    /// The peak since the last call, and back to zero.
    float takeMeter(size_t lane) { return meters[lane].exchange(0.0f, std::memory_order_relaxed); }
    void clearMeters();
    void raiseMeters(float inputL, float inputR, float outputL, float outputR);

  private:
    static constexpr int kFadeRequests = 0;
    static constexpr int kTapFilterRequests = 8;
    static constexpr int kGainSnapRequests = 16;
    static constexpr int kFbRequests = 24;
    static constexpr int kOtherRequests = 26;

    void request(int first, int which) {
        requests.fetch_or(1u << (first + which), std::memory_order_release);
    }
    void carryOut(uint32_t wanted);
    void settleReads(uint32_t taps);

    SampleLoops loops;
    TapBlock snappedGain, snappedRoot;
    std::atomic<uint32_t> requests{0};
};

}  // namespace tessel8
