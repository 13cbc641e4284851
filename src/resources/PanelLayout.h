#pragma once

#include <cstdint>
#include <span>

namespace tessel8 {

// The panel as one table: every control's place, picture and kind, in the order in which they are
// made and lie upon each other. The editor builds the panel from it, and the artwork is painted by
// it, so that a control and its picture cannot drift apart.

constexpr int32_t kPanelWidth = 870, kPanelHeight = 565;

enum class ControlKind : uint8_t {
    OnOffButton,
    TapButton,  ///< on and off with either mouse button
    KickButton,
    QuickKickButton,  ///< reports at the press
    Knob,
    WidthKnob,  ///< a knob with three default values
    DelaySlider,
    LoopButton,
    FeedbackModeButton,
    VerticalSwitch,
    HorizontalSwitch,
    Movie,        ///< shows a picture by its value
    RangeButton,  ///< a movie that can be clicked
    DragArea,     ///< invisible, over digits
    Bar,
    WidthBar,  ///< a bar with three default values
    HorizontalBar,
    ColumnHead,  ///< invisible, over the words above the tap rows
    BigText,
    SmallText,
    TapView,
    // the preset strip
    TextEdit,
    OptionMenu,
    Rocker,
    SaveLoadButton,
    StripKickButton,
    StripDoubleClickButton,
    StripOnOffButton
};

/// When a control is on the panel.
enum class PanelMode : uint8_t { Both, Panel, Graph };

/// Pixels from the panel's top left; right and bottom lie outside what is drawn.
struct PanelPlace {
    int32_t left, top, right, bottom;
};

constexpr float kNoDefault = -1.0f;

/// One control, or a row of equal ones with tags that follow each other.
struct PanelRow {
    int32_t tag;
    ControlKind kind;
    PanelPlace place;             ///< of the first
    int32_t strip = 0;            ///< number of the picture, 0 for none
    int32_t images = 1;           ///< in the strip
    float standard = kNoDefault;  ///< default value
    PanelMode mode = PanelMode::Both;
    int32_t count = 1;
    int32_t stepX = 0, stepY = 0;  ///< from one to the next
    int32_t stripStep = 0;         ///< 1 where each has a picture of its own
    int32_t positions = 0;         ///< of a switch, or states of a loop button
    float wheelScale = 0.0f;       ///< of a drag area

    constexpr PanelPlace placeOf(int32_t i) const {
        return {place.left + i * stepX, place.top + i * stepY, place.right + i * stepX,
                place.bottom + i * stepY};
    }
};

/// All controls but the preset strip's.
std::span<const PanelRow> panelRows();
/// The row of controls along the bottom.
std::span<const PanelRow> presetStripRows();

constexpr int32_t kBackgroundPicture = 128;
constexpr int32_t kTapPadLit = 220;  ///< the tap pad's other picture
constexpr int32_t kBigTextGround = 244, kBigTextMarks = 246;

/// The bars' place, over which one drag paints all eight.
constexpr PanelPlace kBarSwipe{453, 51, 533, 132};
constexpr PanelPlace kDelaySwipe{245, 192, 465, 480};

}  // namespace tessel8
