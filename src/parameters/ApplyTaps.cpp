// Master section and the taps' levels, widths, balances and saturators.

#include "parameters/Conversions.h"
#include "parameters/Parameters.h"
#include "parameters/TapLaws.h"

namespace tessel8 {

void Parameters::applyPower(int, float v) {
    keep(Family::Power, switched(v));
    engine.clearPending = v == 0.0f;
}

template <Family family>
void Parameters::applyMasterGain(int, float v) {
    keep(family, v);
    (family == Family::Input ? inputGain : outGain) = gainLaw(v);
    publishMix();
}
template void Parameters::applyMasterGain<Family::Input>(int, float);
template void Parameters::applyMasterGain<Family::Output>(int, float);

void Parameters::applyMix(int, float v) {
    keep(Family::Mix, v);
    publishMix();
}

void Parameters::publishMix() {
    const float mix = kept(Family::Mix);
    engine.mixTarget.publish(finite(inputGain), finite(mix * outGain),
                             finite((1.0f - mix) * outGain), 0.0f);
}

void Parameters::applyActTap(int tap, float v) {
    keep(Family::ActTap, switched(v), tap);
    engine.tapGate[size_t(tap)] = kept(Family::ActTap, tap);
    int32_t high = 0;
    for (int t = kTaps / 2; t < kTaps; ++t) {
        high |= kept(Family::ActTap, t) != 0.0f;
    }
    engine.anyTapHigh = high;
    // A tap that is off cannot feed back its output: its routing follows the switch.
    apply(command::kFBPostT + tap, paramMirror[size_t(parameterIndex(Family::FBPostT, tap))]);
}

void Parameters::applyAmtFBT(int tap, float v) {
    keep(Family::AmtFBT, v, tap);
    renewFeedbackAmounts();
}

void Parameters::applyGainT(int tap, float v) {
    keep(Family::GainT, v, tap);
    engine.tapGainTarget[size_t(tap)] = finite(gainLaw(v));
}

void Parameters::applyWidthT(int tap, float v) {
    keep(Family::WidthT, v, tap);
    Width& width = widths[size_t(tap)];
    width = widthLaw(v, width);
    engine.widthDirect[size_t(tap)] = finite(width.mid + width.side);
    engine.widthCross[size_t(tap)] = finite(width.mid - width.side);
}

void Parameters::applyPanTap(int tap, float v) {
    keep(Family::PanTap, v, tap);
    const PanGains gains = panLaw(v);
    engine.panGainTargetR[size_t(tap)] = finite(gains.right);
    engine.panGainTargetL[size_t(tap)] = finite(gains.left);
}

template <Family family>
void Parameters::applySaturator(int tap, float v) {
    keep(family, switched(v), tap);
    const bool on = kept(Family::ActDrvT, tap) != 0.0f;
    const bool pre = kept(Family::PreDrvT, tap) != 0.0f;
    engine.tapSaturatorPre[size_t(tap)] = on && pre ? 1.0f : 0.0f;
    engine.tapSaturatorPost[size_t(tap)] = on && !pre ? 1.0f : 0.0f;
}
template void Parameters::applySaturator<Family::ActDrvT>(int, float);
template void Parameters::applySaturator<Family::PreDrvT>(int, float);

void Parameters::applyDriveT(int tap, float v) {
    keep(Family::DriveT, v, tap);
    engine.tapCeiling[size_t(tap)] = finite(ceilingLaw(v));
}

}  // namespace tessel8
