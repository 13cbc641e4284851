// Views on a frame: who hears of the mouse, what is painted again, who keeps whom alive.

#include <array>
#include <thread>

#include "toolkit/AEffGUIEditor.h"
#include "toolkit/CMovieBitmap.h"
#include "toolkit/FakePanel.h"

namespace tessel8 {

namespace {

constexpr CRect kLeft{0, 0, 50, 100}, kRight{50, 0, 100, 100};

/// Says which mouse calls it gets, and answers as it is told to.
struct Probe : CView {
    Probe(const CRect& rect, FakePanel& hearer, const char* itsName,
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
    FakePanel& panel;
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
    EXPECT_EQ(panel.act("d2@49,5 u"), "a-down a-up");
    EXPECT_EQ(panel.act("d2@50,5 u d2@100,100 u"), "b-down b-up b-down b-up");
    EXPECT_EQ(panel.act("d2@65,65 u d2@85,5 u"), "none-down b-down b-up b-down b-up");
}

TEST(MouseRouting, ADragStaysWithTheViewThatItBeganOn) {
    FakePanel panel;
    const auto a = panel.add<Probe>(kLeft, panel, "a-");
    panel.add<Probe>(kRight, panel, "b-");
    EXPECT_EQ(panel.act("m16 d m2@90,10 l +2@90,10 m18@400,-9 u2@90,10"),
              "a-in a-moved16 a-down a-moved2 a-moved18 a-up");
    EXPECT_EQ(panel.act("m68@90,10 l +"), "a-out b-in b-moved64 b-out a-wheel");
    std::vector<uint32_t> words;
    a->onCall = [&] { words.push_back(panel.frame->getCurrentMouseButtons()); };
    panel.window->mouse = {1, 2, mouse::kAlt};
    EXPECT_EQ(panel.act("d1026 d10@90,10 u"), "a-down a-up b-down b-up") << "a second button";
    words.push_back(panel.frame->getCurrentMouseButtons());
    EXPECT_EQ(words, (std::vector<uint32_t>{2, 10, 64})) << "two events' words, then the window's";
    a->result = MouseResult::DownHandledOnly;
    EXPECT_EQ(panel.act("d m u"), "a-down a-in a-moved0") << "hovers only";
}

TEST(MouseRouting, AViewMayLeaveAndTheFrameMayCloseFromWithin) {
    FakePanel panel;
    Probe* const leaving = panel.add<Probe>(kLeft, panel, "a-").get();
    leaving->onCall = [&] { panel.frame->removeView(leaving, false); };
    EXPECT_EQ(panel.act("d m"), "a-down");
    panel.add<Probe>(kLeft, panel, "c-")->onCall = [&] { panel.frame->close(); };
    panel.window->events.emplace_back([&] { EXPECT_EQ(panel.act("d m"), "c-down"); });
    panel.frame->idle();
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
    const std::pair<std::function<void()>, CRect> kChanges[] = {
        {[] {}, nothing},
        {[&] { b->setValue(0.5f); }, second},
        {[&] { b->setValue(0.5f); }, nothing},
        {[&] { a->setDirty(), b->setDirty(); }, both},
        {[&] { a->setValue(-7.0f); }, first},
        {[&] { a->setDirty(); }, first},  // at the value -1
        {[&] { panel.frame->removeView(a.get(), false); }, first},
        {[&] { a->setDirty(); }, nothing}};
    panel.frame->idle();
    for (const auto& [change, damage] : kChanges) {
        panel.window->damage = {};
        change();
        panel.frame->idle();
        EXPECT_EQ(toRect(panel.window->damage), damage);
    }
}

TEST(Views, CountTheirOwners) {
    FakePanel panel;
    const Shared<CView> keeper(new CView(kLeft));  // which keeps a reference of its own as well
    CView* const view = keeper.get();
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

TEST(Editor, RunsOnePassInAHundredMilliseconds) {
    struct Editor : AEffGUIEditor {
        using AEffGUIEditor::AEffGUIEditor, AEffGUIEditor::frame;
    };
    FakePanel panel;
    Editor editor(nullptr, panel.clock);
    EXPECT_FALSE(editor.onKeyDown({'a', 0, 0})) << "no window";
    editor.frame = panel.frame;
    // When it is called, how many passes there were then, and when it returns. The first pass
    // sets the stamp to 100; 46 + 4 is 50 before it and goes ahead.
    const std::array<int, 3> kCalls[] = {
        {0, 1, 0}, {45, 1, 49}, {46, 2, 50}, {149, 3, 153}, {253, 4, 253}};
    panel.window->events.emplace_back([&] {
        for (const auto& [at, passes, until] : kCalls) {
            panel.clock.tick = 1000 + uint32_t(at);
            editor.doIdleStuff();
            EXPECT_EQ(panel.window->paints, passes) << at;
            EXPECT_EQ(panel.clock.tick, 1000u + uint32_t(until));
        }
    });
    panel.frame->idle();
    EXPECT_EQ(panel.window->deepest, 1) << "no event within an event";
}

}  // namespace tessel8
