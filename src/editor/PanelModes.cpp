// What stands on the panel in panel mode and in graph mode. Later added controls lie on top.

#include "editor/CDelayTimeVolume.h"
#include "editor/Panel.h"

namespace tessel8 {

namespace {

struct Part {
    int32_t tag;
    int32_t strip = 0;
    int32_t nth = 0;
};

constexpr Part kBigText{419}, kSmallText{420}, kRuler{7, 162};

// On the panel in panel mode only, behind texts and bars; the small tap switches stand between.
constexpr Part kKeysAndScales[] = {{4},   {425},      {332},         {333},        {334},
                                   {335}, {426, 190}, {426, 153, 0}, {426, 153, 1}};
constexpr int32_t kFirstTapSwitch = 176, kFirstTapSwitchStrip = 145;
constexpr Part kMeters[] = {{424},      {423},      {328, 163},    {328, 178, 0}, {328, 178, 1},
                            {328, 166}, {328, 165}, {328, 164, 0}, {328, 164, 1}};

// Share the ground with what comes and goes, so they are painted anew.
constexpr Part kNeighbours[] = {
    {426, 170}, {336},       {6, 185, 0}, {6, 185, 1}, {6, 185, 2}, {6, 185, 3}, {308}, {309},
    {6},        {5, 185, 0}, {5, 185, 1}, {5, 185, 2}, {5, 185, 3}, {311},       {310}, {5},
    {331},      {329},       {330},       {306},       {307},       {7, 157},
};

constexpr float kScaleImages = 21.0f;  // the last of the strip's 22

}  // namespace

void Panel::add(CControl* control) {
    if (control) {
        frame.addView(control);
        control->setDirty(true);
    }
}

void Panel::takeOff(CControl* control) {
    if (control) {
        frame.removeView(control, false);
    }
}

void Panel::removeBars(int32_t editParameter) {
    for (CControl* const bar : bars[size_t(editParameter)]) {
        takeOff(bar);
    }
}

void Panel::setGraphMode(bool graph, int32_t editParameter) {
    const auto at = [this](const Part& part) { return find(part.tag, part.strip, part.nth); };
    const auto tapSwitch = [this](int32_t tap) {
        return find(kFirstTapSwitch + tap, kFirstTapSwitchStrip);
    };
    const auto renewNeighbours = [&] {
        for (const Part& part : kNeighbours) {
            if (CControl* const control = at(part)) {
                control->setDirty(true);
            }
        }
    };
    if (graph) {
        takeOff(at(kBigText));
        takeOff(at(kSmallText));
        for (int32_t tap = 0; tap < kTaps; ++tap) {
            takeOff(tapSwitch(tap));
        }
        for (int32_t set = 0; set < kEditParameterCount; ++set) {
            removeBars(set);
        }
        for (const Part& part : kMeters) {
            takeOff(at(part));
        }
        for (const Part& part : kKeysAndScales) {
            takeOff(at(part));
        }
        renewNeighbours();
        add(at(kRuler));
        for (int32_t tap = kTaps - 1; tap >= 0; --tap) {
            add(tapViews[size_t(tap)]);
        }
        return;
    }
    for (int32_t tap = kTaps - 1; tap >= 0; --tap) {
        takeOff(tapViews[size_t(tap)]);
    }
    takeOff(at(kRuler));
    renewNeighbours();
    add(at(kBigText));
    add(at(kSmallText));
    shownBars = kNoBars;
    swapEditBars(editParameter, false);
    for (const Part& part : kKeysAndScales) {
        add(at(part));
    }
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        add(tapSwitch(tap));
    }
    for (const Part& part : kMeters) {
        add(at(part));
    }
}

void Panel::swapEditBars(int32_t editParameter, bool graph) {
    if (graph) {
        return;
    }
    if (editParameter >= 0 && editParameter < kEditParameterCount && editParameter != shownBars) {
        if (shownBars != kNoBars) {
            removeBars(shownBars);
        }
        for (CControl* const bar : bars[size_t(editParameter)]) {
            add(bar);
        }
    }
    shownBars = editParameter;
}

void Panel::showEditStrip(int32_t editParameter, bool graph) {
    if (CControl* const scale = find(426, 161)) {
        scale->setValue(float(editParameter + (graph ? kEditParameterCount : 0)) / kScaleImages);
    }
}

}  // namespace tessel8
