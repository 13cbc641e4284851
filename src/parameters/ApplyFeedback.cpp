// The three feedback topologies, the taps' own feedback and the master feedback path.

#include <algorithm>

#include "parameters/Conversions.h"
#include "parameters/Parameters.h"
#include "parameters/TapLaws.h"

namespace tessel8 {

namespace {

/// Post-tap feedback needs 100 ms of the 8 second memory.
constexpr float kShortestPostDelay = 0.0125f;
constexpr float kFirstSelection = 0.125f;

}  // namespace

bool Parameters::isMultiTap() const {
    const float mode = kept(Family::ModeFB);
    return mode > 0.0f && mode <= 1.0f;
}

bool Parameters::staysPost(int tap) const {
    return kept(Family::FBPostT, tap) != 0.0f && kept(Family::ActTap, tap) != 0.0f;
}

/// Points one tap's feedback at the place that mode, switch and `FBPostT` leave it. In MultiTap
/// the taps feed the bus, in the other modes their own lines.
void Parameters::routeTap(int tap) {
    const FeedbackSource source =
        staysPost(tap) ? FeedbackSource::AfterTap : FeedbackSource::BeforeTap;
    if (isMultiTap()) {
        engine.tapFbSrc[tap] = FeedbackSource::None;
        engine.busFbSrc[tap] = source;
    } else {
        engine.tapFbSrc[tap] = source;
    }
}

void Parameters::applyFBPostT(int tap, float v) {
    keep(Family::FBPostT, switched(v), tap);
    if (kept(Family::DelayT, tap) < kShortestPostDelay) {
        keep(Family::FBPostT, 0.0f, tap);
    }
    for (int t = 0; t < kTaps; ++t) {
        routeTap(t);
        if (!staysPost(t)) {
            keep(Family::FBPostT, 0.0f, t);
        }
    }
}

void Parameters::applyModeFB(int, float v) {
    keep(Family::ModeFB, v > 1.0f ? 2.0f : v > 0.0f ? 1.0f : 0.0f);
    const bool multiFb = kept(Family::ModeFB) > 1.0f;
    engine.gateAtInput = multiFb;
    if (multiFb) {
        apply(command::kActiveFB, 0.0f);
    }
    const bool multiTap = isMultiTap();
    engine.fbInputSrc = multiTap ? FeedbackInput::Bus : FeedbackInput::SelectedTap;
    for (int t = 0; t < kTaps; ++t) {
        routeTap(t);
        if (!staysPost(t)) {
            apply(command::kFBPostT + t, 0.0f);
        }
    }
    if (!multiTap) {
        apply(command::kSelectFB, rememberedSelection);
        return;
    }
    apply(command::kSelectFB, 0.0f);
    for (int first = 0; first < kTaps; ++first) {
        if (kept(Family::TAPtoFB, first) == 0.0f) {
            continue;
        }
        for (int other = 0; other < kTaps; ++other) {
            if (other != first) {
                apply(command::kTAPtoFB + other, 0.0f);
            }
        }
    }
}

void Parameters::applyTAPtoFB(int tap, float v) {
    keep(Family::TAPtoFB, switched(v), tap);
    if (isMultiTap() && kept(Family::TAPtoFB, tap) != 0.0f) {
        for (int t = 0; t < kTaps; ++t) {
            if (t != tap) {
                keep(Family::TAPtoFB, 0.0f, t);
            }
        }
    }
    renewFeedbackAmounts();
}

void Parameters::renewFeedbackAmounts() {
    for (int t = 0; t < kTaps; ++t) {
        engine.tapFbAmount[size_t(t)] = finite(kept(Family::AmtFBT, t) * kept(Family::TAPtoFB, t));
    }
}

void Parameters::applySelectFB(int, float v) {
    if (isMultiTap()) {
        keep(Family::SelectFB, 0.0f);
    } else {
        keep(Family::SelectFB, v < kFirstSelection ? kFirstSelection : v);
        rememberedSelection = kept(Family::SelectFB);
    }
    engine.selectedTap = std::clamp(truncated(8.0f * kept(Family::SelectFB)), 1, kTaps) - 1;
}

void Parameters::applyGainFB(int, float v) {
    keep(Family::GainFB, v);
    engine.fbGain.fill(finite(v));
}

template <Family family>
void Parameters::applyPanFB(int, float v) {
    keep(family, v);
    const float left = finite(kept(Family::PanFBL));
    const float right = finite(kept(Family::PanFBR));
    engine.fbPanMatrix.publish(1.0f - left, 1.0f - right, left, right);
}
template void Parameters::applyPanFB<Family::PanFBR>(int, float);
template void Parameters::applyPanFB<Family::PanFBL>(int, float);

void Parameters::applyDriveFB(int, float v) {
    keep(Family::DriveFB, v);
    engine.fbCeiling.fill(finite(ceilingLaw(v)));
}

void Parameters::applyActDrvFB(int, float v) {
    keep(Family::ActDrvFB, switched(v));
    engine.fbSaturatorOn = kept(Family::ActDrvFB) != 0.0f;
}

void Parameters::applyActiveFB(int, float v) {
    keep(Family::ActiveFB, kept(Family::ModeFB) > 1.0f ? 0.0f : switched(v));
    engine.masterFbOn = kept(Family::ActiveFB) != 0.0f;
}

}  // namespace tessel8
