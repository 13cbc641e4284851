#pragma once

#include <vector>

#include "toolkit/CControlListener.h"
#include "toolkit/CView.h"

namespace tessel8 {

/// The word of the click that asks for a control's default value.
constexpr uint32_t kDefaultGesture = mouse::kLeft | mouse::kControl;

/// A view with a value, and a listener that hears of the user's changes. Value and dirty state may
/// be written on any thread; all else belongs to the user interface's.
class CControl : public CView {
  public:
    /// The tag is the control's identity for its listener; the offset is where in the bitmap the
    /// control's picture begins.
    CControl(const CRect& rect, CControlListener* hearer, int32_t identity,
             CBitmap* bitmap = nullptr, const CPoint& bitmapOffset = {});
    bool isTypeOf(std::string_view name) const override;

    /// Stores the value, clipped to the range. Only the further listeners hear of it, if asked.
    virtual void setValue(float newValue, bool updateSubListeners = false);
    virtual float getValue() const { return value; }
    /// 0 to 1, clipped, over the whole range.
    virtual void setValueNormalized(float newValue);
    virtual float getValueNormalized() const;
    virtual void setMin(float newMin) { min = newMin; }
    virtual float getMin() const { return min; }
    virtual void setMax(float newMax) { max = newMax; }
    virtual float getMax() const { return max; }
    /// The old value is the one last shown; a control whose value differs is dirty.
    virtual void setOldValue(float newValue) { oldValue = newValue; }
    virtual float getOldValue() const { return oldValue; }
    virtual void setDefaultValue(float newValue) { defaultValue = newValue; }
    virtual float getDefaultValue() const { return defaultValue; }
    /// Clips the value to the range.
    virtual void bounceValue();
    /// Takes the default value as a gesture of its own if the word asks for it.
    virtual bool checkDefaultValue(uint32_t buttons);
    /// Tells the listener and the further listeners.
    virtual void valueChanged();

    virtual void setTag(int32_t newTag);
    virtual int32_t getTag() const { return tag; }
    virtual void beginEdit();
    virtual void endEdit();
    virtual CControlListener* getListener() const { return listener; }
    virtual void setListener(CControlListener* hearer) { listener = hearer; }
    virtual void addListener(CControlListener* hearer) { subListeners.push_back(hearer); }
    virtual void removeListener(CControlListener* hearer);
    /// What one notch of the wheel adds to the value.
    virtual void setWheelInc(float step) { wheelInc = step; }
    virtual float getWheelInc() const { return wheelInc; }
    virtual void doIdleStuff();
    void setBackOffset(const CPoint& bitmapOffset) { backOffset = bitmapOffset; }

    bool isDirty() const override;
    void setDirty(bool state = true) override;

  protected:
    /// `valueChanged` inside a gesture of its own.
    void tellAsGesture();
    /// Takes the default value as a gesture, whatever the word.
    void takeDefaultValue();
    /// Asks for a repaint if dirty.
    void invalidIfDirty();

    /// Draws the part of the background that starts at `place` behind the offset.
    void drawBackground(CDrawContext& context, const CPoint& place = {}) const;

    Relaxed<float> value = 0.0f;

  private:
    CControlListener* listener;
    int32_t tag;
    Relaxed<float> oldValue = 1.0f;
    float defaultValue = 0.5f;
    float min = 0.0f, max = 1.0f;
    float wheelInc = 0.1f;
    std::vector<CControlListener*> subListeners;
    CPoint backOffset;
};

}  // namespace tessel8
