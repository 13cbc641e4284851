#include "editor/Panel.h"

#include "editor/CDelayTimeVolume.h"
#include "editor/ControlFactory.h"
#include "editor/EffectLink.h"
#include "parameters/ControlTags.h"
#include "widgets/CLoopButton.h"

namespace tessel8 {

namespace {

/// Whether a control shows the value of the parameter that its tag stands for. Displays and keys
/// are given theirs by what moves them.
bool showsParameter(ControlKind kind) {
    switch (kind) {
        case ControlKind::KickButton:
        case ControlKind::QuickKickButton:
        case ControlKind::DelaySlider:
        case ControlKind::Movie:
        case ControlKind::RangeButton:
        case ControlKind::ColumnHead:
        case ControlKind::BigText:
        case ControlKind::SmallText:
        case ControlKind::TapView:
            return false;
        default:
            return true;
    }
}

void showValue(CControl& control, float value) {
    if (auto* const loop = dynamic_cast<CLoopButton*>(&control)) {
        loop->setStateFromValue(value);
    } else {
        control.setValue(value);
    }
}

}  // namespace

Panel::Panel(CFrame& panelFrame, CNewControlListener& listener, EffectLink& effect)
    : frame(panelFrame) {
    for (const PanelRow& row : panelRows()) {
        for (int32_t i = 0; i < row.count; ++i) {
            make(row, i, listener, effect);
        }
    }
}

Panel::~Panel() = default;

CBitmap* Panel::picture(int32_t number) {
    if (number == 0) {
        return nullptr;
    }
    Shared<CBitmap>& picture = pictures[number];
    if (!picture) {
        picture = makeShared<CBitmap>(number);
    }
    return picture.get();
}

void Panel::make(const PanelRow& row, int32_t i, CNewControlListener& listener,
                 EffectLink& effect) {
    const auto control =
        makeControl(row, i, listener, [this](int32_t number) { return picture(number); });
    if (!control) {
        return;
    }
    const int32_t tag = control->getTag();
    controls.push_back(control);
    byTagAndStrip[{tag, row.strip}].push_back(control.get());
    if (row.kind == ControlKind::TapView) {
        const auto view = static_cast<CDelayTimeVolume*>(control.get());
        tapViews[size_t(tapOfView(i))] = view;
    }
    const int32_t index = parameterOfTag(tag);
    if (showsParameter(row.kind) && index >= 0) {
        // The feedback filter's type shows what was asked for until the first block has run.
        constexpr int32_t kTypeFFB = 206;
        showValue(*control,
                  tag == kTypeFFB ? effect.getParameter(tag) : effect.appliedValue(index));
        if (index < kParameterCount) {
            byParameter[size_t(index)].push_back(control.get());
        }
        if (row.kind == ControlKind::Bar || row.kind == ControlKind::WidthBar) {
            bars[size_t(editParameterOf(index))][size_t(i)] = control.get();
        }
    }
    if (row.mode == PanelMode::Both || row.kind == ControlKind::BigText) {
        frame.addView(control.get());
    }
}

CControl* Panel::find(int32_t tag, int32_t strip, int32_t nth) const {
    const auto at =
        strip != 0 ? byTagAndStrip.find({tag, strip}) : byTagAndStrip.lower_bound({tag, 0});
    if (at == byTagAndStrip.end() || std::get<0>(at->first) != tag ||
        nth >= int32_t(at->second.size())) {
        return nullptr;
    }
    return at->second[size_t(nth)];
}

CControl* Panel::slider(int32_t tap) const {
    return find(parameterIndex(Family::DelayT, tap));
}

void Panel::show(int32_t index, float value) {
    for (CControl* const control : byParameter[size_t(index)]) {
        showValue(*control, value);
    }
}

void Panel::invalidateDirty(CControl* control) {
    if (control && control->isDirty()) {
        control->invalid();
    }
}

void Panel::invalidateDirty(int32_t index) {
    for (CControl* const control : byParameter[size_t(index)]) {
        invalidateDirty(control);
    }
}

}  // namespace tessel8
