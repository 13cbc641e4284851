// Drag laws, wheels and default gestures, in numbers worked out by hand.

#include "toolkit/FakePanel.h"
#include "widgets/CBarHorizintalKnob.h"
#include "widgets/CInvisableKnob.h"
#include "widgets/RoundKnobs.h"
#include "widgets/SwipeKnobs.h"

namespace tessel8 {

namespace {

constexpr CRect kPlace{0, 0, 100, 100};

/// Acts a script from the value 0.5; each of its words ends with the value expected then.
void expectDrag(FakePanel& panel, CControl& knob, const char* script) {
    knob.setValue(0.5f);
    std::istringstream words(script);
    for (std::string word; words >> word;) {
        panel.act(word);
        EXPECT_NEAR(knob.getValue(), std::stof(word.substr(word.find('=') + 1)), 1e-6f) << word;
    }
    panel.act("u");
}

}  // namespace

TEST(Drag, RoundKnobsGoByTheWayOrByTheAngle) {
    FakePanel panel;
    const auto knob = panel.add<CNewAnimKnob>(kPlace, &panel, 7, 101, 4, nullptr);
    expectDrag(panel, *knob,
               "d2@50,50=0.5 m2@60,40=0.6 m18@60,30=0.65 m18@60,10=0.66 m2@60,10=0.66 "
               "m2@60,9=0.6605 m2@60,300=0 m2@999,0=1");
    expectDrag(panel, *knob,
               "d66@50,0=0.5 m66@0,50=0.16666667 m66@100,50=0.8333333 m66@49,100=0 m66@51,100=1 "
               "m66@0,99=0.0021434");
}

TEST(Drag, InvisibleKnobsAccelerate) {
    FakePanel panel;
    const auto knob = panel.add<CInvisableKnob>(kPlace, &panel, 7);
    expectDrag(panel, *knob,
               "d2@50,50=0.5 m2@50,46=0.509 m2@50,45=0.51 m2@50,49=0.5005 m2@54,49=0.5035");
    expectDrag(panel, *knob, "d18@50,50=0.5 m18@50,46=0.50225");
    expectDrag(panel, *knob, "d2@50,50=0.5 m2@50,46=0.509 m18@50,45=0.51 m18@50,44=0.5102");
}

TEST(Drag, BarsAndSlidersTakeThePlacePointedAt) {
    FakePanel panel;
    const auto bar = panel.add<CBarHorizintalKnob>(CRect{11, 0, 61, 9}, &panel, 1, 37, 12, nullptr);
    expectDrag(panel, *bar, "d2@35,5=0.5 m2@60,5=1 m2@10,5=0");
    expectDrag(panel, *bar, "d2@35,5=0.5 m18@45,5=0.52 m18@55,5=0.54 m2@55,5=0.54 m2@56,5=0.92");
    const auto slider = panel.add<CFocusHorizintalKnob>(CRect{11, 20, 85, 29}, &panel, 2, 201, 36,
                                                        nullptr, CPoint{}, 12, kPlace);
    expectDrag(panel, *slider, "d2@47,25=0.5 m18@72,25=1 m2@12,25=0");
}

TEST(Drag, ASwipePassesFromBarToBar) {
    FakePanel panel;
    const CRect row{10, 10, 30, 60};
    Shared<CBarAnimKnob> bar;
    for (int32_t i = 0; i < 2; ++i) {
        const CRect place{10.0 + 10 * i, 10, 20.0 + 10 * i, 60};
        bar = panel.add<CBarAnimKnob>(place, &panel, i, 41, 81, nullptr, CPoint{}, row);
    }
    EXPECT_EQ(panel.act("d2@12,34"), "(0 0=0.5 ~") << "half of 50 pixels below row 9";
    EXPECT_EQ(panel.act("m2@20,19"), "0) ~ (1 1=0.8 ~") << "a shared edge is the later bar's";
    EXPECT_EQ(panel.hoverTag, 1);
    EXPECT_EQ(panel.act("m2@25,61"), "~") << "outside of the row";
    EXPECT_EQ(panel.act("m2@25,60 u"), "1=0 ~ 1) ~");
    panel.frame->removeView(bar.get(), false);
    EXPECT_EQ(panel.act("d2@12,58 m2@25,19 m2@12,19 u"), "(0 0=0.02 ~ 0)") << "ends over a gap";
    EXPECT_EQ(bar->getValue(), 0.0f);
}

TEST(Knobs, DefaultGesturesAndWheelsTellTheirListener) {
    FakePanel panel;
    const CPoint origin;
    const auto width = makeShared<CAnimKnob4>(kPlace, &panel, 7, 2, 9, nullptr);
    width->setDefaultList(0.125f, 0), width->setDefaultList(0.875f, 1);
    const auto area = makeShared<CInvisableKnob>(kPlace, &panel, 7);
    area->setWheelScale(0.6f);
    const std::string once = "(7 (7 7=0.25 7) 7)";
    struct Case {
        Shared<CControl> knob;
        std::string control, controlAlt;  ///< clicks with these keys
        const char *up, *fineDown;        ///< the wheel, the latter with Shift
    };
    for (const Case& c : {
             Case{makeShared<CNewAnimKnob>(kPlace, &panel, 7, 2, 9, nullptr), once, once,
                  "(7 7=0.55 7)", "(7 7=0.495 7)"},
             {width, "(7 7=0.875 7)", "(7 7=0.125 7)", "(7 7=0.55 7)", "(7 7=0.495 7)"},
             {makeShared<CBarAnimKnob>(kPlace, &panel, 7, 2, 9, nullptr, origin, kPlace), once,
              "(7 7=0.79 ~ 7) ~", "(7 7=0.55 7)", "(7 7=0.495 7)"},
             {makeShared<CFocusHorizintalKnob>(kPlace, &panel, 7, 2, 9, nullptr, origin, 0, kPlace),
              once, once, "(7 7=0.51 7) ~", "(7 7=0.499 7) ~"},
             {area, once, "(7 7)", "(7 7=0.56 7)", "(7 7=0.44 7)"},
         }) {
        panel.frame->addView(c.knob.get());
        c.knob->setDefaultValue(0.25f);
        const auto from = [&](const char* script) {
            c.knob->setValue(0.5f);
            c.knob->invalid();
            return panel.act(script);
        };
        EXPECT_EQ(from("d34 u"), c.control);
        EXPECT_EQ(from("d98 u"), c.controlAlt);
        EXPECT_EQ(from("+0"), c.up);
        EXPECT_EQ(from("-16"), c.fineDown);
        panel.frame->removeView(c.knob.get(), false);
    }
}

TEST(Knobs, ShowTheImageThatTheValueHasReached) {
    FakePanel panel;
    const FakeStrip strip(101, 50);
    const auto knob = panel.add<CNewAnimKnob>(kPlace, &panel, 7, 101, 50, strip.get());
    const std::pair<float, uint32_t> kImages[] = {
        {0.0f, 0}, {0.0099f, 0}, {0.0101f, 1}, {0.999f, 99}, {1.0f, 100}};
    for (const auto& [value, image] : kImages) {
        knob->setValueSilently(value);
        EXPECT_EQ(panel.pixelAt(0, 0), image) << value;
        EXPECT_FALSE(knob->isDirty());
    }
    EXPECT_EQ(panel.act("m0"), "");
    EXPECT_EQ(panel.hoverTag, 7);
    panel.act("l");
    EXPECT_EQ(panel.hoverTag, -1);
}

}  // namespace tessel8
