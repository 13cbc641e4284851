// What an open panel costs a host that only gives it its idle time: one pass in which nothing has
// changed, with the pointer on a control and with none. Such a pass asks for no repaint.

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "editor/Tessel8Editor.h"
#include "parameters/Parameters.h"

namespace tessel8 {

namespace {

/// A window that only counts.
struct CountingWindow : Window {
    using TextEnd = std::function<void(const std::string&)>;

    explicit CountingWindow(WindowListener& hearer, int64_t& count)
        : listener(hearer), repaints(count) {}
    bool processEvents() override { return true; }
    void processPaints() override {}
    void invalidate(const PixelRect&) override { ++repaints; }
    MouseState currentMouse() override { return ++repaints, MouseState{}; }
    void takeKeyboardFocus() override {}
    std::unique_ptr<LineEdit> openLineEdit(const LineEditSettings&, TextEnd) override {
        return nullptr;
    }
    std::unique_ptr<PopupMenu> openPopupMenu(const PopupMenuSettings&,
                                             std::function<void(int32_t)>) override {
        return nullptr;
    }
    std::unique_ptr<Dialog> openFileDialog(const FileDialogSettings&, TextEnd) override {
        return nullptr;
    }
    std::unique_ptr<Dialog> openMessage(const std::string&, const std::string&,
                                        std::function<void()>) override {
        return nullptr;
    }
    bool closeAsked() const override { return false; }

    WindowListener& listener;
    int64_t& repaints;
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
    int64_t repaints = 0;

  protected:
    Shared<NewFrame> makeFrame(void*) override {
        return makeShared<NewFrame>(
            CRect{0, 0, double(kPanelWidth), double(kPanelHeight)},
            [this](WindowListener& listener) {
                return std::make_unique<CountingWindow>(listener, repaints);
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
    editor.repaints = 0;
    for (auto _ : state) {
        editor.idle();
    }
    state.counters["repaints"] = double(editor.repaints);
}

}  // namespace

BENCHMARK_CAPTURE(idlePass, pointer_on_a_gain_knob, 48)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(idlePass, pointer_on_the_delay, 24)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(idlePass, pointer_on_a_width_knob, 56)->Unit(benchmark::kMicrosecond);

}  // namespace tessel8
