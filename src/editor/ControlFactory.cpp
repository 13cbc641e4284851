#include "editor/ControlFactory.h"

#include "editor/CDelayTimeVolume.h"
#include "engine/Blocks.h"
#include "widgets/CBarHorizintalKnob.h"
#include "widgets/CBigText_2.h"
#include "widgets/CInvisableKnob.h"
#include "widgets/CLoopButton.h"
#include "widgets/CNewKickButton.h"
#include "widgets/CNewOnOffButton.h"
#include "widgets/CSmallText_2.h"
#include "widgets/RoundKnobs.h"
#include "widgets/StripWidgets.h"
#include "widgets/SwipeKnobs.h"

namespace tessel8 {

namespace {

constexpr float kWidthDefaults[] = {0.125f, 0.5f, 0.875f};  // reversed, mono, plain stereo
constexpr int32_t kSliderMargin = 12;                       // pixels at both ends of a delay slider

CRect rectOf(const PanelPlace& place) {
    return {double(place.left), double(place.top), double(place.right), double(place.bottom)};
}

template <typename Control>
void giveWidthDefaults(Control& control) {
    uint8_t place = 0;
    for (const float value : kWidthDefaults) {
        control.setDefaultList(value, place++);
    }
}

Shared<CControl> make(const PanelRow& row, int32_t i, CNewControlListener& listener,
                      const PictureSource& picture) {
    const PanelPlace place = row.placeOf(i);
    const CRect rect = rectOf(place);
    CControlListener* const hearer = &listener;
    const int32_t tag = row.kind == ControlKind::TapView ? row.tag : row.tag + i;
    CBitmap* const strip = picture(row.strip == 0 ? 0 : row.strip + i * row.stripStep);
    const int32_t height = strip ? strip->getHeight() / row.images : place.bottom - place.top;
    switch (row.kind) {
        case ControlKind::OnOffButton:
            return makeShared<CNewOnOffButton>(rect, hearer, tag, strip);
        case ControlKind::TapButton:
            return makeShared<COnOffButtonRight>(rect, hearer, tag, strip,
                                                 OnOffStyle::TellBeforeIdle);
        case ControlKind::KickButton:
            return makeShared<CNewKickButton>(rect, hearer, tag, height, strip);
        case ControlKind::QuickKickButton:
            return makeShared<CQuickKickButton>(rect, hearer, tag, height, strip);
        case ControlKind::Knob:
            return makeShared<CNewAnimKnob>(rect, hearer, tag, row.images, height, strip);
        case ControlKind::WidthKnob: {
            auto knob = makeShared<CAnimKnob4>(rect, hearer, tag, row.images, height, strip);
            giveWidthDefaults(*knob);
            return knob;
        }
        case ControlKind::DelaySlider:
            return makeShared<CFocusHorizintalKnob>(rect, hearer, tag, row.images, height, strip,
                                                    CPoint{}, kSliderMargin, rectOf(kDelaySwipe));
        case ControlKind::LoopButton:
            return makeShared<CLoopButton>(rect, hearer, tag, strip, row.positions);
        case ControlKind::FeedbackModeButton:
            return makeShared<CLoopButtonFB>(rect, hearer, tag, strip);
        case ControlKind::VerticalSwitch:
            return makeShared<CNewVerticalSwitch>(rect, hearer, tag, row.images, height,
                                                  row.positions, strip);
        case ControlKind::HorizontalSwitch:
            return makeShared<CNewHorizontalSwitch>(rect, hearer, tag, row.images, height,
                                                    row.positions, strip);
        case ControlKind::Movie:
            return makeShared<CNewMovieBitmap>(rect, hearer, tag, row.images, height, strip);
        case ControlKind::RangeButton:
            return makeShared<CMovieBitmapButton>(rect, hearer, tag, row.images, height, strip);
        case ControlKind::DragArea: {
            auto area = makeShared<CInvisableKnob>(rect, hearer, tag);
            area->setWheelScale(row.wheelScale);
            return area;
        }
        case ControlKind::Bar:
            return makeShared<CBarAnimKnob>(rect, hearer, tag, row.images, height, strip, CPoint{},
                                            rectOf(kBarSwipe));
        case ControlKind::WidthBar: {
            auto bar = makeShared<CBarAnimKnobValue>(rect, hearer, tag, row.images, height, strip,
                                                     CPoint{}, rectOf(kBarSwipe));
            giveWidthDefaults(*bar);
            return bar;
        }
        case ControlKind::HorizontalBar:
            return makeShared<CBarHorizintalKnob>(rect, hearer, tag, row.images, height, strip);
        case ControlKind::ColumnHead:
            return makeShared<CInvisableKickButton>(rect, hearer, tag);
        case ControlKind::BigText:
            return makeShared<CBigText_2>(rect, hearer, tag, picture(kBigTextGround), strip,
                                          picture(kBigTextMarks));
        case ControlKind::SmallText:
            return makeShared<CSmallText_2>(rect, hearer, tag, strip);
        case ControlKind::TapView: {
            // Only the lowest view has a ground.
            const bool isLowest = i == 0;
            return makeShared<CDelayTimeVolume>(rect, hearer, tag, isLowest ? strip : nullptr,
                                                isLowest ? row.images : 1, tapOfView(i) + 1);
        }
        default:
            return {};
    }
}

}  // namespace

int32_t tapOfView(int32_t i) {
    return i == 0 ? kTaps - 1 : i - 1;
}

Shared<CControl> makeControl(const PanelRow& row, int32_t i, CNewControlListener& listener,
                             const PictureSource& picture) {
    Shared<CControl> control = make(row, i, listener, picture);
    if (control && row.standard != kNoDefault) {
        control->setDefaultValue(row.standard);
    }
    return control;
}

}  // namespace tessel8
