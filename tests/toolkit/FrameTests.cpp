// Views on a frame: who hears of the mouse, what is painted again, who keeps whom alive.

#include <thread>

#include "editor/NewFrame.h"
#include "toolkit/AEffGUIEditor.h"
#include "toolkit/CMovieBitmap.h"
#include "toolkit/CNewFileSelector.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace {

constexpr CRect kLeft{0, 0, 50, 100}, kRight{50, 0, 100, 100};

/// Says which mouse calls it gets, and answers as it is told to.
struct Probe : CView {
    Probe(const CRect& rect, FakePanel<>& hearer, const char* itsName,
          MouseResult answer = MouseResult::Handled)
        : CView(rect), result(answer), panel(hearer), name(itsName) {}

    MouseResult onMouseDown(const CPoint&, uint32_t) override { return say("down"); }
    MouseResult onMouseUp(const CPoint&, uint32_t) override { return say("up"); }
    MouseResult onMouseMoved(const CPoint&, uint32_t word) override {
        return say(std::string("moved").append(std::to_string(word)));
    }
    MouseResult onMouseEntered(const CPoint&, uint32_t) override { return say("in"); }
    MouseResult onMouseExited(const CPoint&, uint32_t) override { return say("out"); }
    bool onWheel(const CPoint&, float, uint32_t) override {
        return say("wheel") == MouseResult::Handled;
    }
    MouseResult say(const std::string& what) {
        panel.say(name + what);
        onCall();
        return result;
    }

    MouseResult result;
    std::function<void()> onCall = [] {};
    FakePanel<>& panel;
    std::string name;
};

}  // namespace

TEST(MouseRouting, SharedEdgesBelongToTheLaterView) {
    FakePanel panel;
    panel.add<Probe>(kLeft, panel, "a-");
    panel.add<Probe>(kRight, panel, "b-");
    panel.add<Probe>(CRect{60, 60, 70, 70}, panel, "none-", MouseResult::NotImplemented);
    panel.add<Probe>(kRight, panel, "hidden-")->setVisible(false);
    panel.add<Probe>(CRect{80, 0, 90, 100}, panel, "deaf-")->setMouseEnabled(false);
    const std::pair<CPoint, const char*> kCases[] = {{{49, 5}, "a-down a-up"},
                                                     {{50, 5}, "b-down b-up"},
                                                     {{100, 100}, "b-down b-up"},
                                                     {{65, 65}, "none-down b-down b-up"},
                                                     {{85, 5}, "b-down b-up"}};
    for (const auto& [point, told] : kCases) {
        panel.down(int32_t(point.x), int32_t(point.y));
        panel.up(0, 0);
        EXPECT_EQ(panel.told(), told) << point.x;
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

    std::vector<uint32_t> words;
    a->onCall = [&] { words.push_back(panel.frame->getCurrentMouseButtons()); };
    panel.window->mouse = {1, 2, mouse::kAlt};
    panel.down(10, 10, mouse::kLeft | mouse::kDoubleClick);
    panel.down(90, 10, mouse::kLeft | mouse::kRight);  // a second button ends the first's gesture
    panel.up(90, 10);
    words.push_back(panel.frame->getCurrentMouseButtons());
    EXPECT_EQ(words, (std::vector<uint32_t>{2, 10, 64})) << "two events' words, then the window's";
    a->result = MouseResult::DownHandledOnly;
    panel.down(10, 10);
    panel.up(10, 10);
    EXPECT_EQ(panel.told(), "a-down a-up b-down b-up a-down");
}

TEST(MouseRouting, AViewMayLeaveAndTheFrameMayCloseFromWithin) {
    FakePanel panel;
    Probe* const leaving = panel.add<Probe>(kLeft, panel, "a-").get();
    leaving->onCall = [&] { panel.frame->removeView(leaving, false); };
    panel.down(10, 10);
    panel.move(20, 20);
    panel.add<Probe>(kLeft, panel, "c-")->onCall = [&] { panel.frame->close(); };
    panel.window->events.emplace_back([&] { panel.down(10, 10); });
    panel.window->events.emplace_back([&] { panel.move(20, 20); });
    panel.frame->idle();
    EXPECT_EQ(panel.told(), "a-down c-down");
    EXPECT_FALSE(panel.frame->isOpen());
}

TEST(Views, ArePaintedFromTheFirstToTheLastWhileAnotherThreadSetsThem) {
    FakePanel panel;
    const FakeStrip strip(5, 100);
    const auto low = panel.add<CMovieBitmap>(kLeft, &panel, 1, 5, 100, strip.get());
    const auto high = panel.add<CMovieBitmap>(CRect{2, 0, 6, 9}, &panel, 2, 5, 100, strip.get());
    std::thread host([&] {
        for (int32_t i = 0; i <= 1000; ++i) {
            low->setValue(i < 1000 ? float(i % 2) : 0.25f);
            high->setValue(1.0f);
            high->setDirty();
        }
    });
    for (int32_t i = 0; i < 20; ++i) {
        panel.frame->idle();
        panel.pixelAt(0, 0);
    }
    host.join();
    EXPECT_EQ(panel.pixelAt(1, 8), 1u);
    EXPECT_EQ(panel.pixelAt(2, 8), 4u);
    EXPECT_EQ(panel.pixelAt(2, 9), 1u) << "below the upper view";
    EXPECT_EQ(panel.pixelAt(70, 8), 0xabcdefu) << "no view";
}

TEST(Views, AskForRepaintsByTheirRectanglesWhenDirty) {
    FakePanel panel;
    const CRect first{1, 2, 3, 4}, second{10, 20, 30, 40}, both{1, 2, 30, 40}, nothing;
    const auto a = panel.add<CControl>(first, &panel, 1);
    const auto b = panel.add<CControl>(second, &panel, 2);
    a->setMin(-1.0f);
    struct Case {
        const char* name;
        std::function<void()> change;
        CRect damage;
    };
    const Case kCases[] = {
        {"nothing", [] {}, nothing},
        {"a value", [&] { b->setValue(0.5f); }, second},
        {"the same value", [&] { b->setValue(0.5f); }, nothing},
        {"two marks", [&] { a->setDirty(), b->setDirty(); }, both},
        {"a clipped value", [&] { a->setValue(-7.0f); }, first},
        {"a mark at -1", [&] { a->setDirty(); }, first},
        {"leaving", [&] { panel.frame->removeView(a.get(), false); }, first},
        {"a mark off the frame", [&] { a->setDirty(); }, nothing},
    };
    for (const Case& c : kCases) {
        panel.frame->idle();
        panel.window->damage = {};
        c.change();
        panel.frame->idle();
        EXPECT_EQ(toRect(panel.window->damage), c.damage) << c.name;
    }
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
    EXPECT_TRUE(panel.frame->addView(view));
    panel.frame->removeView(view, true);
    EXPECT_EQ(view->getNbReference(), 1);
}

TEST(FileSelector, AnswersOnceAndLetsGoWhenTheFrameCloses) {
    FakePanel panel;
    const auto selector = CNewFileSelector::create(panel.frame.get(), FileDialogKind::Save);
    selector->setDefaultExtension({"Bank", "vbk"});
    std::vector<int32_t> counts;
    const auto note = [&](CNewFileSelector& s) { counts.push_back(s.getNumSelectedFiles()); };
    for (const char* const path : {"/a/b.vbk", ""}) {
        ASSERT_TRUE(selector->run(note));
        panel.window->endText(path);
        panel.window->endText("once more");
    }
    EXPECT_EQ(counts, (std::vector<int32_t>{1, 0}));
    EXPECT_EQ(panel.window->offered, "vbk");
    selector->run(note);
    panel.window->endText = {};
    panel.frame->close();
    EXPECT_FALSE(selector->run(note));
    EXPECT_EQ(selector->getNbReference(), 1);
}

TEST(NewFrame, KnowsTheEditedControlAndTakesTheFocus) {
    FakePanel<NewFrame> panel;
    panel.down(1, 1);
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
}

TEST(Editor, RunsOnePassInAHundredMilliseconds) {
    struct Editor : AEffGUIEditor {
        explicit Editor(TickClock& time) : AEffGUIEditor(nullptr, time) {}
        void stand(CFrame* on) { frame = Shared<CFrame>(on); }
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
             {Call{0, 1, 0}, {45, 1, 49}, {46, 2, 50}, {149, 3, 153}, {253, 4, 253}}) {
            panel.clock.tick = 1000 + c.at;
            editor.doIdleStuff();
            EXPECT_EQ(panel.window->paints, c.passes) << c.at;
            EXPECT_EQ(panel.clock.tick, 1000 + c.until) << c.at;
        }
    });
    panel.frame->idle();
    EXPECT_EQ(panel.window->deepest, 1) << "no event within an event";
}

}  // namespace tessel8
