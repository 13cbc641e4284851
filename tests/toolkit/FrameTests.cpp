// Views on a frame: who hears of the mouse, what is painted again, who keeps whom alive.

#include <thread>

#include "editor/NewFrame.h"
#include "toolkit/AEffGUIEditor.h"
#include "toolkit/CMovieBitmap.h"
#include "toolkit/CNewFileSelector.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace {

/// Says which mouse calls it gets, and answers as it is told to.
class Probe : public CView {
  public:
    Probe(const CRect& rect, FakePanel<>& hearer, std::string itsName,
          MouseResult answer = MouseResult::Handled)
        : CView(rect), result(answer), panel(hearer), name(std::move(itsName)) {}

    MouseResult onMouseDown(const CPoint&, uint32_t) override { return say("down"); }
    MouseResult onMouseUp(const CPoint&, uint32_t) override { return say("up"); }
    MouseResult onMouseMoved(const CPoint&, uint32_t buttons) override {
        return say(std::string("moved").append(std::to_string(buttons)));
    }
    MouseResult onMouseEntered(const CPoint&, uint32_t) override { return say("in"); }
    MouseResult onMouseExited(const CPoint&, uint32_t) override { return say("out"); }
    bool onWheel(const CPoint&, float, uint32_t) override {
        return say("wheel") == MouseResult::Handled;
    }

    MouseResult result;
    std::function<void()> onCall;

  private:
    MouseResult say(const std::string& what) {
        panel.say(name + what);
        if (onCall) {
            onCall();
        }
        return result;
    }

    FakePanel<>& panel;
    std::string name;
};

constexpr CRect kLeft{0, 0, 50, 100}, kRight{50, 0, 100, 100};

}  // namespace

TEST(MouseRouting, SharedEdgesBelongToTheLaterView) {
    FakePanel panel;
    panel.add<Probe>(kLeft, panel, "a-");
    panel.add<Probe>(kRight, panel, "b-");
    panel.add<Probe>(CRect{60, 60, 70, 70}, panel, "none-", MouseResult::NotImplemented);
    panel.add<Probe>(kRight, panel, "hidden-")->setVisible(false);
    panel.add<Probe>(CRect{80, 0, 90, 100}, panel, "deaf-")->setMouseEnabled(false);
    struct Case {
        int32_t x, y;
        const char* told;
    };
    for (const Case& c : {Case{49, 5, "a-down a-up"},
                          {50, 5, "b-down b-up"},
                          {100, 100, "b-down b-up"},
                          {65, 65, "none-down b-down b-up"},
                          {85, 5, "b-down b-up"}}) {
        panel.down(c.x, c.y);
        panel.up(c.x, c.y);
        EXPECT_EQ(panel.told(), c.told) << c.x;
    }
}

TEST(MouseRouting, ADragStaysWithTheViewThatItBeganOn) {
    FakePanel panel;
    const auto a = panel.add<Probe>(kLeft, panel, "a-");
    panel.add<Probe>(kRight, panel, "b-");
    panel.move(10, 10, mouse::kShift);
    panel.down(10, 10);
    panel.move(90, 10);
    panel.window->listener.mouseLeft();
    panel.wheel(90, 10, 1.0f);
    panel.move(400, -20, mouse::kLeft | mouse::kShift);
    panel.up(90, 10);
    panel.move(90, 10, mouse::kAlt | mouse::kMiddle);
    EXPECT_EQ(panel.told(), "a-in a-moved16 a-down a-moved2 a-moved18 a-up a-out b-in b-moved64");
    panel.window->listener.mouseLeft();
    panel.wheel(10, 10, 1.0f);
    EXPECT_EQ(panel.told(), "b-out a-wheel");

    for (const auto answer : {MouseResult::NotHandled, MouseResult::DownHandledOnly}) {
        a->result = answer;
        panel.down(10, 10);
        panel.up(10, 10);
        EXPECT_EQ(panel.told(), "a-down");
    }
    a->result = MouseResult::Handled;
    std::vector<uint32_t> words;
    a->onCall = [&] { words.push_back(panel.frame->getCurrentMouseButtons()); };
    panel.window->mouse = {1, 2, mouse::kAlt};
    panel.down(10, 10, mouse::kLeft | mouse::kDoubleClick);
    panel.down(90, 10, mouse::kLeft | mouse::kRight);  // a second button ends the first's gesture
    panel.up(90, 10);
    EXPECT_EQ(panel.told(), "a-down a-up b-down b-up");
    words.push_back(panel.frame->getCurrentMouseButtons());
    EXPECT_EQ(words, (std::vector<uint32_t>{2, 10, 64})) << "two events' words, then the window's";
}

TEST(MouseRouting, AViewMayLeaveAndTheFrameMayCloseFromWithin) {
    FakePanel panel;
    auto view = panel.add<Probe>(kLeft, panel, "a-");
    Probe* const raw = view.get();
    raw->onCall = [&, raw] { panel.frame->removeView(raw, false); };
    view.reset();
    panel.down(10, 10);
    panel.move(20, 20);
    EXPECT_EQ(panel.told(), "a-down");

    const auto closing = panel.add<Probe>(kLeft, panel, "c-");
    closing->onCall = [&] { panel.frame->close(); };
    panel.window->events.emplace_back([&] { panel.down(10, 10); });
    panel.window->events.emplace_back([&] { panel.move(20, 20); });
    panel.frame->idle();
    EXPECT_EQ(panel.told(), "c-down");
    EXPECT_FALSE(panel.frame->isOpen());
}

TEST(Views, ArePaintedFromTheFirstToTheLastWithinTheirRectangles) {
    FakePanel panel;
    const FakeStrip strip(5, 100);
    const auto low = panel.add<CMovieBitmap>(kLeft, &panel, 1, 5, 100, strip.get());
    const auto high = panel.add<CMovieBitmap>(CRect{2, 0, 6, 9}, &panel, 2, 5, 100, strip.get());
    low->setValue(0.25f);
    high->setValue(1.0f);
    EXPECT_EQ(panel.pixelAt(1, 8), 1u);
    EXPECT_EQ(panel.pixelAt(2, 8), 4u);
    EXPECT_EQ(panel.pixelAt(2, 9), 1u) << "below the upper view";
    EXPECT_EQ(panel.pixelAt(70, 8), 0xabcdefu) << "no view";
    high->setVisible(false);
    EXPECT_EQ(panel.pixelAt(2, 8), 1u);
}

TEST(Views, AskForRepaintsByTheirRectanglesWhenDirty) {
    FakePanel panel;
    const auto a = panel.add<CControl>(CRect{1, 2, 3, 4}, &panel, 1);
    const auto b = panel.add<CControl>(CRect{10, 20, 30, 40}, &panel, 2);
    const auto damageOf = [&](const std::function<void()>& change) {
        panel.frame->idle();
        panel.window->damage = {};
        change();
        panel.frame->idle();
        const PixelRect d = panel.window->damage;
        return std::vector<int32_t>{d.left, d.top, d.right, d.bottom};
    };
    using Edges = std::vector<int32_t>;
    EXPECT_EQ(damageOf([] {}), (Edges{0, 0, 0, 0}));
    EXPECT_EQ(damageOf([&] { b->setValue(0.5f); }), (Edges{10, 20, 30, 40}));
    EXPECT_EQ(damageOf([&] { b->setValue(0.5f); }), (Edges{0, 0, 0, 0}));
    EXPECT_EQ(damageOf([&] { a->setDirty(), b->setDirty(); }), (Edges{1, 2, 30, 40}));
    a->setMin(-1.0f);
    EXPECT_EQ(damageOf([&] { a->setValue(-7.0f); }), (Edges{1, 2, 3, 4}));
    EXPECT_EQ(damageOf([&] { a->setDirty(); }), (Edges{1, 2, 3, 4})) << "at the value -1";
    EXPECT_EQ(damageOf([&] { panel.frame->removeView(a.get(), false); }), (Edges{1, 2, 3, 4}));
    EXPECT_EQ(damageOf([&] { a->setDirty(); }), (Edges{0, 0, 0, 0})) << "off the frame";
}

TEST(Views, CountTheirOwners) {
    FakePanel panel;
    auto* const view = new CView(kLeft);
    const Shared<CView> keeper(view);
    EXPECT_TRUE(panel.frame->addView(view));
    EXPECT_EQ(view->getNbReference(), 3);
    panel.add<CView>(kLeft);
    EXPECT_FALSE(panel.frame->addView(view)) << "stands there already";
    EXPECT_FALSE(panel.frame->addView(nullptr));
    EXPECT_EQ(panel.frame->getView(0), view) << "has kept its place";
    EXPECT_TRUE(panel.frame->removeView(view, false));
    EXPECT_FALSE(panel.frame->removeView(view, false));
    EXPECT_EQ(view->getNbReference(), 2);
    panel.frame->addView(view);
    panel.frame->removeAll(false);
    EXPECT_TRUE(panel.frame->addView(view));
    panel.frame->removeView(view, true);
    EXPECT_EQ(view->getNbReference(), 1);
    EXPECT_FALSE(view->isAttached());
}

TEST(Views, TakeValuesFromAnotherThread) {
    FakePanel panel;
    const FakeStrip strip(2, 100);
    const auto view = panel.add<CMovieBitmap>(kLeft, &panel, 1, 2, 100, strip.get());
    std::thread host([&] {
        for (int32_t i = 0; i <= 1000; ++i) {
            view->setValue(float(i % 2));
            view->setDirty();
        }
        view->setValue(1.0f);
    });
    for (int32_t i = 0; i < 20; ++i) {
        panel.frame->idle();
        panel.pixelAt(0, 0);
    }
    host.join();
    EXPECT_EQ(panel.pixelAt(0, 0), 1u);
}

TEST(NativePieces, AnswerThroughTheListenerAndTheSelector) {
    FakePanel panel;
    const auto selector = CNewFileSelector::create(panel.frame.get(), FileDialogKind::Save);
    EXPECT_FALSE(CNewFileSelector::create(nullptr, FileDialogKind::Save));
    selector->setDefaultExtension({"Bank", "vbk"});
    std::vector<int32_t> counts;
    const auto note = [&](CNewFileSelector& s) { counts.push_back(s.getNumSelectedFiles()); };
    for (const char* const path : {"/a/b.vbk", ""}) {
        ASSERT_TRUE(selector->run(note));
        const auto end = panel.window->endText;
        end(path);
        end("once more");  // is not heard
    }
    EXPECT_EQ(counts, (std::vector<int32_t>{1, 0}));
    EXPECT_EQ(panel.window->offered, "vbk");
    selector->run(note);
    panel.frame->close();
    EXPECT_FALSE(selector->run(note));
    EXPECT_EQ(selector->getNbReference(), 1) << "the open dialog has let go of it";
}

TEST(NewFrame, KnowsTheEditedControlAndTakesTheFocus) {
    FakePanel<NewFrame> panel;
    panel.down(1, 1);
    EXPECT_EQ(panel.window->focusTaken, 1);
    panel.frame->setKeyboardFocus(false);
    panel.down(1, 1);
    EXPECT_EQ(panel.window->focusTaken, 1);
    panel.frame->setKeyboardFocus(true);
    EXPECT_EQ(panel.window->focusTaken, 2);
    panel.frame->beginEdit(24);
    EXPECT_TRUE(panel.frame->getEditedTag().isEditing);
    panel.frame->endEdit(24);
    EXPECT_FALSE(panel.frame->getEditedTag().isEditing);
    EXPECT_EQ(panel.frame->getEditedTag().tag, 24);
    EXPECT_EQ(panel.told(), "(24 24)");
}

TEST(Editor, RunsOnePassInAHundredMilliseconds) {
    struct Editor : AEffGUIEditor {
        explicit Editor(TickClock& time) : AEffGUIEditor(nullptr, time) {}
        void stand(CFrame* on) { frame = Shared<CFrame>(on); }
        void idle() override { ++passes, AEffGUIEditor::idle(); }
        int passes = 0;
    };
    FakePanel panel;
    Editor editor(panel.clock);
    EXPECT_FALSE(editor.onKeyDown({'a', 0, 0})) << "no window";
    editor.stand(panel.frame.get());
    struct Call {
        uint32_t at;  ///< milliseconds after the first
        int passes;
        uint32_t until;
    };
    // The first pass at 0 sets the stamp to 100; 46 + 4 is 50 before it and goes ahead.
    panel.window->events.emplace_back([&] {
        for (const Call& c :
             {Call{0, 1, 0}, {1, 1, 5}, {45, 1, 49}, {46, 2, 50}, {149, 3, 153}, {253, 4, 253}}) {
            panel.clock.tick = 1000 + c.at;
            editor.doIdleStuff();
            EXPECT_EQ(editor.passes, c.passes) << c.at;
            EXPECT_EQ(panel.window->paints, c.passes) << c.at;
            EXPECT_EQ(panel.clock.tick, 1000 + c.until) << c.at;
        }
    });
    panel.frame->idle();
    EXPECT_EQ(panel.window->deepest, 1) << "no event within an event";
}

}  // namespace tessel8
