#pragma once

// The panel on a window worked by hand, with the effect's own parameters behind it and a clock
// that stands still.

#include <gtest/gtest.h>

#include <sstream>

#include "editor/Tessel8Editor.h"
#include "parameters/Parameters.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

/// The effect as far as the panel sees it. The log reads "(7" and "7)" for a gesture's begin and
/// end, "7=0.5" for a value that the host hears of, "7:0.5" for one that it does not.
struct PanelEffect : EffectLink {
    Engine engine;
    Parameters parameters{engine};
    std::ostringstream log;
    float peaks[4] = {};  ///< input left and right, output left and right
    std::vector<int32_t> learnt;
    int panics = 0, fades = 0;

    PanelEffect() {
        engine.ringLen = 48000 * 8;
        parameters.setSampleRate(48000.0f);
        parameters.recalculateForRate();
        parameters.resetToDefaults();
        parameters.apply(command::kMeterMode, 0.5f);
    }
    std::string told() {
        const std::string text = log.str();
        log.str("");
        return text.substr(text.empty() ? 0 : 1);
    }

    float appliedValue(int32_t index) override { return parameters.applied(index); }
    float getParameter(int32_t index) override { return parameters.stored(index); }
    void setParameter(int32_t index, float value) override {
        log << ' ' << index << ':' << value;
        parameters.apply(index, value);
    }
    void setParameterAutomated(int32_t index, float value) override {
        log << ' ' << index << '=' << value;
        parameters.apply(index, value);
    }
    void beginEdit(int32_t tag) override { log << " (" << tag; }
    void endEdit(int32_t tag) override { log << ' ' << tag << ')'; }
    void takeInputPeaks(float* left, float* right) override {
        *left = std::exchange(peaks[0], 0.0f);
        *right = std::exchange(peaks[1], 0.0f);
    }
    void takeOutputPeaks(float* left, float* right) override {
        *left = std::exchange(peaks[2], 0.0f);
        *right = std::exchange(peaks[3], 0.0f);
    }
    void restartTapFade(int32_t) override { ++fades; }
    void requestPanic(bool) override { ++panics; }
    int32_t controllerForParameter(int32_t index) override { return index == 48 ? 6 : 128; }
    void learnController(int32_t tag) override {
        learnt.push_back(tag);
        parameters.endMidiLearn();
    }
    void clearControllerMap() override { log << " cleared"; }
    int32_t getVersion(char* text) override {
        std::snprintf(text, 16, "1.6.1 build 349");
        return 0;
    }
};

class FakeWindowEditor : public Tessel8Editor {
  public:
    using Tessel8Editor::getPanel;
    using Tessel8Editor::Tessel8Editor;

    FakeWindow* window = nullptr;

  protected:
    Shared<NewFrame> makeFrame(void* /*parent*/) override {
        return makeShared<NewFrame>(
            CRect{0, 0, double(kPanelWidth), double(kPanelHeight)},
            [this](WindowListener& listener) {
                auto made = std::make_unique<FakeWindow>(listener);
                window = made.get();
                return made;
            },
            static_cast<VSTGUIEditorInterface*>(this), clock);
    }
};

struct EditorTest : testing::Test {
    PanelEffect effect;
    FakeClock clock;
    FakeWindowEditor editor{effect, nullptr, clock};

    EditorTest() {
        effect.parameters.connect(static_cast<EditorLink*>(&editor));
        editor.open(nullptr);
        editor.idle();
    }

    /// Lets time pass in idle passes of 20 ms.
    void wait(int32_t milliseconds) {
        for (; milliseconds > 0; milliseconds -= 20) {
            clock.tick = clock.tick + 20;
            editor.idle();
        }
    }
    void mouseTo(int32_t x, int32_t y) { editor.window->listener.mouseMoved({x, y, 0}); }
    void press(int32_t x, int32_t y, uint32_t buttons = mouse::kLeft) {
        mouseTo(x, y);
        editor.window->mouse = {x, y, buttons};
        editor.window->listener.mouseDown({x, y, buttons});
    }
    void drag(int32_t x, int32_t y, uint32_t buttons = mouse::kLeft) {
        editor.window->mouse = {x, y, buttons};
        editor.window->listener.mouseMoved({x, y, buttons});
    }
    void release(int32_t x, int32_t y, uint32_t buttons = mouse::kLeft) {
        editor.window->mouse = {x, y, 0};
        editor.window->listener.mouseUp({x, y, buttons});
    }
    void click(int32_t x, int32_t y, uint32_t buttons = mouse::kLeft) {
        press(x, y, buttons);
        release(x, y, buttons);
    }
    float value(int32_t tag, int32_t strip = 0, int32_t nth = 0) {
        return editor.getPanel()->find(tag, strip, nth)->getValue();
    }
    bool isOnPanel(int32_t tag, int32_t strip = 0) {
        return editor.getPanel()->find(tag, strip)->isAttached();
    }
};

}  // namespace tessel8
