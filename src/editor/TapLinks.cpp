#include "editor/TapLinks.h"

#include <algorithm>
#include <array>

#include "parameters/ControlTags.h"
#include "parameters/ParameterTable.h"
#include "platform/MouseWord.h"

namespace tessel8 {

namespace {

constexpr uint32_t kLeftShift = mouse::kLeft | mouse::kShift;
constexpr uint32_t kLeftAlt = mouse::kLeft | mouse::kAlt;

/// The families with a rule, in the order of their indices.
constexpr struct {
    Family family;
    LinkRule rule;
} kRules[] = {
    {Family::DelayT, LinkRule::Delay},       {Family::AmtFBT, LinkRule::Continuous},
    {Family::FBPostT, LinkRule::Switch},     {Family::GainT, LinkRule::Continuous},
    {Family::WidthT, LinkRule::Continuous},  {Family::PanTap, LinkRule::Continuous},
    {Family::TypeFT, LinkRule::Switch},      {Family::FreqFT, LinkRule::Continuous},
    {Family::ResoFT, LinkRule::Continuous},  {Family::GainFT, LinkRule::Continuous},
    {Family::SourceF, LinkRule::Continuous}, {Family::DepthFT, LinkRule::Continuous},
    {Family::PhaseFT, LinkRule::Continuous}, {Family::ActFltT, LinkRule::Switch},
    {Family::PreDrvT, LinkRule::Switch},     {Family::DriveT, LinkRule::Continuous},
    {Family::ActDrvT, LinkRule::Switch},     {Family::RevTap, LinkRule::Continuous},
    {Family::ActRevT, LinkRule::Switch},     {Family::PanFBR, LinkRule::FeedbackPan},
    {Family::PanFBL, LinkRule::FeedbackPan},
};

/// 0 to 1; a NaN becomes 0.
float held(float x) {
    return x > 0.0f ? std::min(x, 1.0f) : 0.0f;
}

/// The linked taps but the touched one; none if that is not linked.
TapSet followersOf(EffectLink& effect, int32_t touched) {
    TapSet linked;
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        const int32_t link = parameterIndex(Family::LinkTap, tap);
        linked.set(size_t(tap), effect.appliedValue(link) != 0.0f);
    }
    if (!linked.test(size_t(touched))) {
        return {};
    }
    return linked.reset(size_t(touched));
}

template <typename Action>
void forEach(const TapSet& taps, const Action& action) {
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        if (taps.test(size_t(tap))) {
            action(tap);
        }
    }
}

/// How the touched delay has moved, and what that makes of others.
struct DelayMove {
    float from, to;
    bool scales;

    /// Where a follower goes that stands at `place`; its parameter reads `delay`.
    float follow(float place, float delay) const {
        if (!scales) {
            return held(place - (from - to));
        }
        return delay != 0.0f ? held(place * (from != 0.0f ? to / from : 1.0f)) : to;
    }
};

bool scalesDelays(EffectLink& effect, uint32_t buttons) {
    const bool timeMode = effect.appliedValue(parameterIndex(Family::TimeMode)) == 0.0f;
    return timeMode && buttons != kLeftShift;
}

}  // namespace

LinkRule linkRuleOf(int32_t parameter) {
    if (parameter < 0 || parameter >= kParameterCount) {
        return LinkRule::None;
    }
    const Family family = familyOf(parameter).family;
    const auto* row = std::find_if(std::begin(kRules), std::end(kRules),
                                   [family](const auto& r) { return r.family == family; });
    return row == std::end(kRules) ? LinkRule::None : row->rule;
}

void changeContinuous(EffectLink& effect, int32_t parameter, float value, uint32_t buttons) {
    const ParameterFamily& family = familyOf(parameter);
    const bool rests =
        family.family == Family::PhaseFT ? buttons == kLeftAlt : (buttons & mouse::kAlt) != 0;
    if (!rests) {
        const float old = effect.appliedValue(parameter);
        forEach(followersOf(effect, parameter - family.first), [&](int32_t tap) {
            const int32_t index = family.first + tap;
            effect.setParameterAutomated(
                index,
                buttons == kLeftShift ? old : held(effect.appliedValue(index) - (old - value)));
        });
    }
    effect.setParameterAutomated(parameter, value);
}

void changeSwitch(EffectLink& effect, int32_t parameter, float value, uint32_t buttons) {
    effect.setParameterAutomated(parameter, value);
    if (buttons == kLeftAlt) {
        return;
    }
    const int32_t first = familyOf(parameter).first;
    forEach(followersOf(effect, parameter - first),
            [&](int32_t tap) { effect.setParameterAutomated(first + tap, value); });
}

TapSet dragDelay(EffectLink& effect, int32_t tap, float sliderValue, float sliderStep,
                 uint32_t buttons) {
    const int32_t touched = parameterIndex(Family::DelayT, tap);
    const auto shown = [&effect](int32_t t) {
        return effect.appliedValue(reading::kDelayFrac + t);
    };
    effect.restartTapFade(touched);
    const float from = shown(tap);
    const float delay = sliderStep * sliderValue;
    // The tap moves first, so that the others follow where the grid lets it stand; the host hears
    // of it last.
    effect.setParameter(touched, delay);
    const DelayMove move{from, shown(tap), scalesDelays(effect, buttons)};
    TapSet moved;
    if (!(buttons & mouse::kAlt)) {
        moved = followersOf(effect, tap);
    }
    forEach(moved, [&](int32_t t) {
        const int32_t index = parameterIndex(Family::DelayT, t);
        effect.setParameterAutomated(index, move.follow(shown(t), effect.appliedValue(index)));
        effect.restartTapFade(index);
    });
    effect.setParameterAutomated(touched, delay);
    return moved.set(size_t(tap));
}

TapSet stepDelay(EffectLink& effect, int32_t tag, int32_t steps, uint32_t buttons) {
    const int32_t touched = parameterOfTag(tag);
    const int32_t tap = touched - parameterIndex(Family::DelayT);
    const float from = effect.appliedValue(touched);
    for (int32_t i = 0; i < steps; ++i) {
        effect.setParameter(tag, 1.0f);
    }
    const DelayMove move{from, effect.appliedValue(touched), scalesDelays(effect, buttons)};
    TapSet moved;
    if (buttons != kLeftAlt) {
        moved = followersOf(effect, tap);
    }
    forEach(moved, [&](int32_t t) {
        const int32_t index = parameterIndex(Family::DelayT, t);
        const float delay = effect.appliedValue(index);
        effect.setParameter(index, move.follow(delay, delay));
    });
    return moved.set(size_t(tap));
}

void changeFeedbackPan(EffectLink& effect, int32_t parameter, float value) {
    const int32_t right = parameterIndex(Family::PanFBR), left = parameterIndex(Family::PanFBL);
    const int32_t other = parameter == left ? right : left;
    const float moved = effect.appliedValue(other) - (effect.appliedValue(parameter) - value);
    effect.setParameterAutomated(parameter, value);
    if (effect.appliedValue(parameterIndex(Family::LinkPanFB)) != 0.0f) {
        effect.setParameterAutomated(other, held(moved));
    }
}

}  // namespace tessel8
