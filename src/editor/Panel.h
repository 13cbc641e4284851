#pragma once

#include <array>
#include <map>
#include <tuple>
#include <vector>

#include "editor/EditParameters.h"
#include "engine/Blocks.h"
#include "parameters/ParameterTable.h"
#include "resources/PanelLayout.h"
#include "toolkit/CFrame.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

class CDelayTimeVolume;
class EffectLink;

/// All controls of the panel, made from the layout's table. Those of the mode that is not shown
/// stay off the frame and are kept up to date all the same.
class Panel {
  public:
    /// Makes all controls with the effect's present values and puts those of both modes, and the
    /// big text, onto the frame.
    Panel(CFrame& frame, CNewControlListener& listener, EffectLink& effect);
    ~Panel();

    /// A control by its tag, its picture where several share the tag, and its place among those
    /// that share both. Null if there is none.
    CControl* find(int32_t tag, int32_t strip = 0, int32_t nth = 0) const;
    template <typename Control>
    Control* get(int32_t tag, int32_t strip = 0, int32_t nth = 0) const {
        return dynamic_cast<Control*>(find(tag, strip, nth));
    }
    CDelayTimeVolume* tapView(int32_t tap) const { return tapViews[size_t(tap)]; }
    CControl* slider(int32_t tap) const;

    /// A picture by its number, null for 0. The panel owns it.
    CBitmap* picture(int32_t number);

    /// Gives a value to every control that shows the parameter; nobody hears of it.
    void show(int32_t index, float value);
    /// Asks for a repaint of those controls that are dirty.
    void invalidateDirty(int32_t index);
    static void invalidateDirty(CControl* control);

    /// Takes the controls of the other mode off the frame and puts those of this one on.
    void setGraphMode(bool graph, int32_t editParameter);
    /// In panel mode: puts the bars of an edit parameter on the frame in place of those there.
    void swapEditBars(int32_t editParameter, bool graph);
    /// The scale of the edit parameter beside its bars or the graph.
    void showEditStrip(int32_t editParameter, bool graph);

  private:
    static constexpr int32_t kNoBars = kEditParameterCount;

    void make(const PanelRow& row, int32_t i, CNewControlListener& listener, EffectLink& effect);
    void add(CControl* control);
    void takeOff(CControl* control);
    void removeBars(int32_t editParameter);

    CFrame& frame;
    std::map<int32_t, Shared<CBitmap>> pictures;
    std::vector<Shared<CControl>> controls;  ///< in the order of the table
    std::map<std::tuple<int32_t, int32_t>, std::vector<CControl*>> byTagAndStrip;
    /// Controls that show a parameter: knob and bar, or two buttons.
    std::array<std::vector<CControl*>, kParameterCount> byParameter;
    std::array<CDelayTimeVolume*, kTaps> tapViews{};
    std::array<std::array<CControl*, kTaps>, kEditParameterCount> bars{};
    int32_t shownBars = kNoBars;
};

}  // namespace tessel8
