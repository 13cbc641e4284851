#include "presets/PresetStrip.h"

#include <map>

#include "resources/PanelLayout.h"
#include "widgets/CVTRockerSwitch.h"

namespace tessel8 {

namespace {

constexpr int32_t kFontSize = 9;
constexpr int32_t kProgramsPerColumn = 35;
constexpr CColor kInk{36, 36, 32}, kGround{189, 207, 218};

/// A field over the panel's background shows the part of it that it lies on.
template <typename Field>
Shared<CControl> onBackground(const Shared<Field>& field) {
    field->setBackOffset({field->getViewSize().left, field->getViewSize().top});
    field->setFont(kFontSize);
    field->setFontColor(kInk);
    field->setBackColor(kGround);
    field->setFrameColor(kInk);
    field->setHoriAlign(HoriAlign::Centre);
    return field;
}

Shared<CControl> makeControl(const PanelRow& row, CNewControlListener& listener, CBitmap* picture) {
    const PanelPlace& place = row.place;
    const CRect rect{double(place.left), double(place.top), double(place.right),
                     double(place.bottom)};
    CControlListener* const hearer = &listener;
    const int32_t height = picture->getHeight() / row.images;
    switch (row.kind) {
        case ControlKind::TextEdit:
            return onBackground(
                makeShared<CTextEdit>(rect, hearer, row.tag, std::string(), picture));
        case ControlKind::OptionMenu: {
            const auto menu = makeShared<COptionMenu>(rect, hearer, row.tag, picture, kBareStyle);
            menu->setNbItemsPerColumn(kProgramsPerColumn);
            return onBackground(menu);
        }
        case ControlKind::Rocker:
            return makeShared<CVTRockerSwitch>(rect, hearer, row.tag, height, picture, CPoint{});
        case ControlKind::SaveLoadButton:
            return makeShared<CSaveLoadButton>(rect, hearer, row.tag, height, picture);
        case ControlKind::StripKickButton:
        case ControlKind::StripDoubleClickButton:
            return makeShared<CVTKickButton>(rect, hearer, row.tag, height, picture, CPoint{},
                                             row.kind == ControlKind::StripDoubleClickButton);
        case ControlKind::StripOnOffButton:
            return makeShared<CVTOnOffButton>(rect, hearer, row.tag, picture);
        default:
            return {};
    }
}

}  // namespace

PresetStrip::PresetStrip(CFrame& frame, CNewControlListener& listener) {
    std::map<int32_t, Shared<CBitmap>> pictures;
    for (const PanelRow& row : presetStripRows()) {
        Shared<CBitmap>& picture = pictures[row.strip];
        if (!picture) {
            picture = makeShared<CBitmap>(row.strip);
        }
        if (const auto control = makeControl(row, listener, picture.get())) {
            controls.push_back(control);
            frame.addView(control.get());
        }
    }
}

void PresetStrip::showTitles(const std::vector<std::string>& titles) {
    COptionMenu* const list = programList();
    for (size_t i = 0; list && i < titles.size(); ++i) {
        const std::string* const shown = list->getEntry(int32_t(i));
        if (!shown) {
            list->addEntry(titles[i]);
        } else if (*shown != titles[i]) {
            list->setEntry(int32_t(i), titles[i]);
        }
    }
}

}  // namespace tessel8
