#pragma once

#include <string>

#include "support/Rig.h"

namespace tessel8::testing {

// Values of `ModeFB`.
constexpr float kMultiEcho = 0.0f;
constexpr float kMultiTap = 1.0f;
constexpr float kMultiFb = 2.0f;

/// One way through the sample loops: a feedback mode and a tap that this loop computes.
struct LoopCase {
    const char* name;
    float mode;
    int tap;
};
constexpr auto nameOf = [](const auto& info) { return std::string(info.param.name); };
constexpr LoopCase kLoops[] = {{"FourTaps", kMultiEcho, 0},
                               {"EightTaps", kMultiEcho, 5},
                               {"EightTapsFirstGroup", kMultiTap, 2},
                               {"GatedInput", kMultiFb, 7}};

/// Switches the loop of this case on, with its tap alone.
inline void select(Rig& rig, const LoopCase& loop) {
    rig.set(Family::ActTap, 0.0f, 0);
    rig.set(Family::ActTap, 1.0f, loop.tap);
    if (loop.tap == 2) {
        rig.set(Family::GainT, 0.0f, 7);
        rig.set(Family::ActTap, 1.0f, 7);
    }
    rig.set(Family::ModeFB, loop.mode);
}

/// Keeps the channels apart exactly; the width law's default leaves a leak of 1e-7 by rounding.
inline void plainStereo(Rig& rig, int tap) {
    rig.engine.widthDirect[size_t(tap)] = 2.0f;
    rig.engine.widthCross[size_t(tap)] = 0.0f;
}

/// What a tap makes of a signal that is the same on both channels, as its gains stand now.
inline double tapLevel(const Rig& rig, int tap) {
    const Engine& e = rig.engine;
    const auto t = size_t(tap);
    return double(e.tapGainSmooth[t]) * (double(e.widthDirect[t]) + double(e.widthCross[t])) *
           double(e.panGainSmoothL[t]);
}

/// Input gain times wet gain, as they stand now.
inline double wetLevel(const Rig& rig) {
    return double(rig.engine.mixSmooth[0]) * double(rig.engine.mixSmooth[1]);
}

/// Ten roundings to 24 bits between an input sample and an output sample at most.
constexpr double kRounding = 10.0 * 6.0e-8;

}  // namespace tessel8::testing
