// What an open panel costs a host that only gives it its idle time: one pass in which nothing has
// changed, with the pointer on a control and with none. Such a pass asks the server for nothing.

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "editor/Tessel8Editor.h"
#include "parameters/Parameters.h"
#include "tests/support/FakeWindow.h"

namespace tessel8 {

namespace {

/// A window that counts what would go to the display's server.
struct CountingWindow : FakeWindow {
    CountingWindow(WindowListener& hearer, int64_t& count) : FakeWindow(hearer), requests(count) {}
    void invalidate(const PixelRect&) override { ++requests; }
    MouseState currentMouse() override { return ++requests, MouseState{}; }

    int64_t& requests;
};

struct SilentEffect : EffectLink {
    Engine engine;
    Parameters parameters{engine};

    SilentEffect() { parameters.resetToDefaults(); }
    float appliedValue(int32_t index) override { return parameters.applied(index); }
    float getParameter(int32_t index) override { return parameters.stored(index); }
    void setParameter(int32_t, float) override {}
    void setParameterAutomated(int32_t, float) override {}
    void beginEdit(int32_t) override {}
    void endEdit(int32_t) override {}
    void takeInputPeaks(float* left, float* right) override { *left = *right = 0.0f; }
    void takeOutputPeaks(float* left, float* right) override { *left = *right = 0.0f; }
    void restartTapFade(int32_t) override {}
    void requestPanic(bool) override {}
    int32_t controllerForParameter(int32_t) override { return 128; }
    void learnController(int32_t) override {}
    void clearControllerMap() override {}
    int32_t getVersion(char* text) override { return *text = 0, 0; }
};

class CountingEditor : public Tessel8Editor {
  public:
    using Tessel8Editor::Tessel8Editor;
    int64_t requests = 0;

  protected:
    Shared<NewFrame> makeFrame(void*) override {
        return makeShared<NewFrame>(
            CRect{0, 0, double(kPanelWidth), double(kPanelHeight)},
            [this](WindowListener& listener) {
                return std::make_unique<CountingWindow>(listener, requests);
            },
            static_cast<VSTGUIEditorInterface*>(this));
    }
};

void idlePass(benchmark::State& state, int32_t hover) {
    SilentEffect effect;
    CountingEditor editor(effect, nullptr);
    editor.open(nullptr);
    editor.hoverTag = hover;
    for (int i = 0; i < 3; ++i) {
        editor.idle();
    }
    editor.requests = 0;
    while (state.KeepRunning()) {
        editor.idle();
    }
    state.counters["requests"] = double(editor.requests);
}

}  // namespace

BENCHMARK_CAPTURE(idlePass, pointer_on_a_gain_knob, 48)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(idlePass, pointer_on_the_delay, 24)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(idlePass, pointer_on_a_width_knob, 56)->Unit(benchmark::kMicrosecond);

}  // namespace tessel8
