#pragma once

#include "toolkit/CControl.h"
#include "toolkit/Relaxed.h"

namespace tessel8 {

/// One tap on the graph: a stem at its delay, as high as the edit parameter, and a flag with the
/// tap's number. Eight of them lie over each other on one rectangle, the lowest (tap 8) paints the
/// level scale and the grid under all. Display only. The setters may run on any thread; those of
/// time, level and marks make the view dirty even if nothing differs, the others never do.
class CDelayTimeVolume : public CControl {
  public:
    /// `background`, if any, is a strip of `frames` pictures of the view's size; `tap` is 1 to 8.
    CDelayTimeVolume(const CRect& rect, CControlListener* hearer, int32_t identity,
                     CBitmap* background, int32_t frames, int32_t tap);
    bool isTypeOf(std::string_view name) const override;
    CBaseObject* newCopy() const override;

    void draw(CDrawContext& context) override;

    /// Part of the axis, held within 0 and 1.
    void setTapTime(float time);
    /// Normalised value of the edit parameter, held within 0 and 1.
    void setTapLevel(float level);
    /// 0 for a tap that is off: its flag is light.
    void setTapActive(float on);
    /// Other than 0 for a tap that feeds the feedback bus: its stem has a light core.
    void setTapToFeedback(float on);
    /// Stems start in the middle of the view (0) or at its foot.
    void setBaseline(int32_t fromFloor);
    /// The delay range, 0 to 18, whose divisions the grid shows; 0 is read as 1, and 19 is the
    /// most.
    void setGridScale(int32_t range);
    /// The level scale, from 1; one that the strip does not have changes nothing.
    void setBackgroundFrame(int32_t frame);

  private:
    void drawGrid(CDrawContext& context) const;
    void drawFlag(CDrawContext& context) const;
    void drawNumber(CDrawContext& context, const CColor& colour) const;
    void drawStem(CDrawContext& context) const;

    int32_t tapNumber;
    int32_t backgroundFrames;
    // Pixels of the frame.
    int32_t axisLeft, axisBottom;
    int32_t timeSpan, levelSpan;
    Relaxed<int32_t> stemX, levelY, baselineY;
    Relaxed<int32_t> backgroundY = 0;
    Relaxed<int32_t> grid = 1;
    Relaxed<float> active = 0.0f, toFeedback = 0.0f;
};

}  // namespace tessel8
