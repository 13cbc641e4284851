// Drag laws, wheels and default gestures, in numbers worked out by hand.

#include "toolkit/FakePanel.h"
#include "widgets/CBarHorizintalKnob.h"
#include "widgets/CInvisableKnob.h"
#include "widgets/RoundKnobs.h"
#include "widgets/SwipeKnobs.h"

namespace tessel8 {

namespace {

constexpr uint32_t kLeft = mouse::kLeft, kFine = mouse::kLeft | mouse::kShift;
constexpr uint32_t kAlt = mouse::kLeft | mouse::kAlt;
constexpr CRect kPlace{0, 0, 100, 100};

struct Step {
    int32_t x, y;
    uint32_t buttons;
    float value;
};

/// Presses at the first step, moves through the others and compares the value at each.
void expectDrag(FakePanel<>& panel, CControl& knob, const std::vector<Step>& steps) {
    knob.setValue(0.5f);
    panel.down(steps[0].x, steps[0].y, steps[0].buttons);
    for (const Step& step : steps) {
        panel.move(step.x, step.y, step.buttons);
        EXPECT_NEAR(knob.getValue(), step.value, 1e-6f) << step.x << ", " << step.y;
    }
    panel.up(steps[0].x, steps[0].y, steps[0].buttons);
}

}  // namespace

TEST(Drag, RoundKnobsGoByTheWayOrByTheAngle) {
    FakePanel panel;
    const auto knob = panel.add<CNewAnimKnob>(kPlace, &panel, 7, 101, 4, nullptr);
    expectDrag(panel, *knob,
               {{50, 50, kLeft, 0.5f},
                {60, 40, kLeft, 0.6f},
                {60, 30, kFine, 0.65f},
                {60, 10, kFine, 0.66f},
                {60, 10, kLeft, 0.66f},
                {60, 9, kLeft, 0.6605f},
                {60, 300, kLeft, 0.0f},
                {999, 0, kLeft, 1.0f}});
    expectDrag(panel, *knob,
               {{50, 0, kAlt, 0.5f},
                {0, 50, kAlt, 1.0f / 6},
                {100, 50, kAlt, 5.0f / 6},
                {49, 100, kAlt, 0.0f},
                {51, 100, kAlt, 1.0f},
                {0, 99, kAlt, 0.0021434f}});
}

TEST(Drag, InvisibleKnobsAccelerate) {
    FakePanel panel;
    const auto knob = panel.add<CInvisableKnob>(kPlace, &panel, 7);
    expectDrag(panel, *knob,
               {{50, 50, kLeft, 0.5f},
                {50, 46, kLeft, 0.509f},
                {50, 45, kLeft, 0.51f},
                {50, 49, kLeft, 0.5005f},
                {54, 49, kLeft, 0.5035f}});
    expectDrag(panel, *knob, {{50, 50, kFine, 0.5f}, {50, 46, kFine, 0.50225f}});
    expectDrag(panel, *knob,
               {{50, 50, kLeft, 0.5f},
                {50, 46, kLeft, 0.509f},
                {50, 45, kFine, 0.51f},
                {50, 44, kFine, 0.5102f}});
}

TEST(Drag, BarsAndSlidersTakeThePlacePointedAt) {
    FakePanel panel;
    const CRect everywhere{0, 0, 100, 100};
    const auto across =
        panel.add<CBarHorizintalKnob>(CRect{11, 0, 61, 9}, &panel, 1, 37, 12, nullptr);
    expectDrag(panel, *across, {{35, 5, kLeft, 0.5f}, {60, 5, kLeft, 1.0f}, {10, 5, kLeft, 0.0f}});
    expectDrag(panel, *across,
               {{35, 5, kLeft, 0.5f},
                {45, 5, kFine, 0.52f},
                {55, 5, kFine, 0.54f},
                {55, 5, kLeft, 0.54f},
                {56, 5, kLeft, 0.92f}});
    const auto slider = panel.add<CFocusHorizintalKnob>(CRect{11, 20, 85, 29}, &panel, 2, 201, 36,
                                                        nullptr, CPoint{}, 12, everywhere);
    expectDrag(panel, *slider,
               {{47, 25, kLeft, 0.5f}, {72, 25, kFine, 1.0f}, {12, 25, kLeft, 0.0f}});
}

TEST(Drag, ASwipePassesFromBarToBar) {
    FakePanel panel;
    const CRect row{10, 10, 30, 60};
    std::vector<Shared<CBarAnimKnob>> bars;
    for (int32_t i = 0; i < 2; ++i) {
        const CRect place{10.0 + 10 * i, 10, 20.0 + 10 * i, 60};
        bars.push_back(panel.add<CBarAnimKnob>(place, &panel, i, 41, 81, nullptr, CPoint{}, row));
    }
    panel.down(12, 34);  // 25 of 50 pixels below the line above the bar
    EXPECT_EQ(panel.told(), "(0 0=0.5 ~");
    panel.move(20, 19);
    EXPECT_EQ(panel.told(), "0) ~ (1 1=0.8 ~") << "a shared edge is the later bar's";
    EXPECT_EQ(panel.hoverTag, 1);
    panel.move(25, 61);
    EXPECT_EQ(panel.told(), "~") << "outside of the row";
    panel.move(25, 60);
    EXPECT_EQ(panel.told(), "1=0 ~");
    panel.up(25, 60);
    EXPECT_EQ(panel.told(), "1) ~");

    panel.frame->removeView(bars[1].get(), false);
    panel.down(12, 58);
    panel.move(25, 19);
    panel.move(12, 19);
    panel.up(12, 19);
    EXPECT_EQ(panel.told(), "(0 0=0.02 ~ 0)") << "over a gap the drag is over";
    EXPECT_EQ(bars[1]->getValue(), 0.0f);
}

TEST(Knobs, DefaultGesturesAndWheelsTellTheirListener) {
    FakePanel panel;
    const CRect swipe{0, 0, 100, 100};
    struct Case {
        const char* name;
        Shared<CControl> knob;
        const char *control, *controlAlt, *up, *fineDown;
    };
    const CPoint origin;
    const auto invisible = makeShared<CInvisableKnob>(kPlace, &panel, 7);
    invisible->setWheelScale(0.6f);
    const Case kCases[] = {
        {"round", makeShared<CNewAnimKnob>(kPlace, &panel, 7, 2, 9, nullptr), "(7 (7 7=0.25 7) 7)",
         "(7 (7 7=0.25 7) 7)", "(7 7=0.55 7)", "(7 7=0.495 7)"},
        {"width", makeShared<CAnimKnob4>(kPlace, &panel, 7, 2, 9, nullptr), "(7 7=0 7)",
         "(7 7=0 7)", "(7 7=0.55 7)", "(7 7=0.495 7)"},
        {"bar", makeShared<CBarAnimKnob>(kPlace, &panel, 7, 2, 9, nullptr, origin, swipe),
         "(7 (7 7=0.25 7) 7)", "(7 7=0.39 ~ 7) ~", "(7 7=0.55 7)", "(7 7=0.495 7)"},
        {"slider",
         makeShared<CFocusHorizintalKnob>(kPlace, &panel, 7, 2, 9, nullptr, origin, 0, swipe),
         "(7 (7 7=0.25 7) 7)", "(7 (7 7=0.25 7) 7)", "(7 7=0.51 7) ~", "(7 7=0.499 7) ~"},
        {"invisible", invisible, "(7 (7 7=0.25 7) 7)", "(7 7)", "(7 7=0.56 7)", "(7 7=0.44 7)"},
    };
    for (const Case& c : kCases) {
        panel.frame->addView(c.knob.get());
        c.knob->setDefaultValue(0.25f);
        const auto from = [&](const auto& gesture) {
            c.knob->setValue(0.5f);
            c.knob->invalid();
            gesture();
            return panel.told();
        };
        const auto click = [&](uint32_t word) { panel.down(60, 60, word), panel.up(60, 60, word); };
        EXPECT_EQ(from([&] { click(34); }), c.control) << c.name;
        EXPECT_EQ(from([&] { click(98); }), c.controlAlt) << c.name;
        EXPECT_EQ(from([&] { panel.wheel(60, 60, 1.0f); }), c.up) << c.name;
        EXPECT_EQ(from([&] { panel.wheel(60, 60, -1.0f, mouse::kShift); }), c.fineDown) << c.name;
        c.knob->setMouseEnabled(false);
        EXPECT_EQ(from([&] { click(34), panel.wheel(60, 60, 1.0f); }).find('7'), std::string::npos);
        panel.frame->removeView(c.knob.get(), false);
    }
}

TEST(Knobs, StepThroughTheirDefaultsFromTheSecond) {
    FakePanel panel;
    const auto knob = panel.add<CAnimKnob4>(kPlace, &panel, 7, 101, 4, nullptr);
    for (uint8_t place = 0; place < 3; ++place) {
        knob->setDefaultList(0.125f + 0.375f * float(place), place);
    }
    for (const float expected : {0.5f, 0.875f, 0.125f, 0.5f}) {
        panel.down(50, 50, 34);
        EXPECT_EQ(knob->getValue(), expected);
    }
    panel.told();
    panel.down(50, 50, mouse::kRight);
    EXPECT_EQ(panel.told(), "");
}

TEST(Knobs, ShowTheImageThatTheValueHasReached) {
    FakePanel panel;
    const FakeStrip strip(101, 50);
    const auto knob = panel.add<CNewAnimKnob>(kPlace, &panel, 7, 101, 50, strip.get());
    struct Case {
        float value;
        uint32_t image;
    };
    for (const Case& c : {Case{0.0f, 0}, {0.0099f, 0}, {0.0101f, 1}, {0.999f, 99}, {1.0f, 100}}) {
        knob->setValueSilently(c.value);
        EXPECT_EQ(panel.pixelAt(0, 0), c.image) << c.value;
        EXPECT_FALSE(knob->isDirty());
    }
    panel.move(50, 50, 0);
    EXPECT_EQ(panel.hoverTag, 7);
    panel.window->listener.mouseLeft();
    EXPECT_EQ(panel.hoverTag, -1);
    EXPECT_EQ(panel.told(), "");
}

}  // namespace tessel8
