#pragma once

// What a block has to compute: a tap that nobody hears is not read, and a stretch is as long as
// the delays that are heard allow. The plan is made once, so that a switch which is turned while
// the block runs cannot leave one stage expecting what another did not make.

#include <algorithm>
#include <cstdint>

#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

struct BlockPlan {
    uint32_t read = 0;       ///< taps whose lines are read, one bit a tap
    uint32_t bus = 0;        ///< taps that give something to the master feedback's bus
    uint32_t zeroDelay = 0;  ///< read taps that hear what their lines get in the same frame
    uint32_t own = 0;        ///< taps that feed their own lines
    uint32_t ownAfter = 0;   ///< those that do it from behind themselves
    uint32_t busAfter = 0;   ///< taps that give to the bus from behind themselves
    uint32_t filtered = 0;   ///< taps whose filter is on
    bool postUsed = false;   ///< somebody needs the taps' feedback from behind them
    bool busWaits = false;   ///< the bus needs the taps' outputs of the same stretch
    bool singleFrames = false;
    bool masterFb = false;
    int selectedTap = 0;
    LfoWave wave = LfoWave::Off;
    bool followerHeard = false;  ///< a filter takes something of the follower
    int32_t followerSource = Follower::kMasterIn;

    template <int Lanes, bool GateAtInput>
    static BlockPlan of(const Engine& e) {
        BlockPlan plan;
        plan.masterFb = e.masterFbOn != 0;
        plan.selectedTap = std::clamp(e.selectedTap, 0, kTaps - 1);
        const bool busHeard = plan.masterFb && e.fbInputSrc == FeedbackInput::Bus;
        plan.followerSource = e.follower.source;
        plan.wave = e.lfo.wave;
        bool followed = plan.masterFb && e.fbEfAmount != 0.0f;
        for (int t = 0; t < kTaps; ++t) {
            const uint32_t bit = 1u << t;
            const size_t lane = size_t(t);
            const bool sent = e.tapFbAmount[lane] != 0.0f;
            const bool inLoop = t < Lanes;
            if (busHeard && sent) {
                plan.bus |= bit;
                plan.busAfter |= e.busFbSrc[t] == FeedbackSource::AfterTap ? bit : 0;
            }
            // A feedback amount that has just become zero leaves one sample behind.
            const bool feeds = inLoop && e.tapFbSrc[t] != FeedbackSource::None &&
                               (sent || e.postFbL[lane] != 0.0f || e.postFbR[lane] != 0.0f);
            plan.own |= feeds ? bit : 0;
            plan.ownAfter |= feeds && e.tapFbSrc[t] == FeedbackSource::AfterTap ? bit : 0;
            plan.filtered |= inLoop && e.tapFilterOn[lane] != 0.0f ? bit : 0;
            const bool selected = plan.masterFb && !busHeard && t == plan.selectedTap;
            followed |= inLoop && e.tapEfAmount[lane] != 0.0f;
            // A filter goes on filtering while its tap is off.
            const bool sounds = e.tapGate[lane] != 0.0f || plan.isFiltered(t);
            const bool heard =
                inLoop && (GateAtInput || sounds || feeds || plan.followerSource == t + 1);
            if (heard || selected || (plan.bus & bit)) {
                plan.read |= bit;
                plan.zeroDelay |= e.readDelay[t] == 0 ? bit : 0;
            }
        }
        plan.busWaits = (plan.busAfter & ((1u << Lanes) - 1u)) != 0;
        plan.postUsed = plan.busWaits || plan.ownAfter != 0;
        plan.followerHeard = plan.wave != LfoWave::Off && followed;
        plan.singleFrames =
            (plan.postUsed && plan.zeroDelay != 0) || (plan.followerHeard && plan.followerWaits());
        return plan;
    }

    bool followsZeroDelay() const {
        return followerSource > Follower::kMasterIn && followerSource < Follower::kMasterOut &&
               readsAtZero(followerSource - 1);
    }
    /// The follower's source is worked out later in the stretch than the LFO.
    bool followerWaits() const {
        return followerSource == Follower::kMasterOut || followsZeroDelay();
    }

    bool isFiltered(int tap) const { return filtered >> tap & 1u; }
    bool feedsItself(int tap) const { return own >> tap & 1u; }
    bool reads(int tap) const { return read >> tap & 1u; }
    bool readsAtZero(int tap) const { return zeroDelay >> tap & 1u; }

    /// Frames that can be computed together from the present positions on.
    int stretch(const Engine& e, int32_t framesLeft) const {
        int32_t n = std::min({framesLeft, int32_t(kStretch), e.ringLen - e.writePos});
        if (e.reverb.on) {
            n = std::min(n, e.reverb.shortest);
        }
        for (int t = 0; t < kTaps; ++t) {
            if (reads(t) && !readsAtZero(t)) {
                n = std::min({n, e.readDelay[t], e.ringLen - e.readPos[t]});
            }
        }
        return singleFrames ? 1 : n;
    }
};

}  // namespace TESSEL8_ISA
}  // namespace tessel8
