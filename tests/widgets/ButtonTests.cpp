// When buttons and switches tell their listener, with what value, and what they show; and the two
// text lines.

#include <map>

#include "toolkit/FakePanel.h"
#include "widgets/CBigText_2.h"
#include "widgets/CLoopButton.h"
#include "widgets/CNewKickButton.h"
#include "widgets/CNewOnOffButton.h"
#include "widgets/CSmallText_2.h"
#include "widgets/CVTRockerSwitch.h"
#include "widgets/PresetButtons.h"
#include "widgets/StripWidgets.h"

namespace tessel8 {

constexpr CRect kPlace{0, 0, 40, 40};

TEST(Buttons, TellAndShowWhatTheyShould) {
    FakePanel panel;
    const FakeStrip sixBy20(6, 20);
    CBitmap* const strip = sixBy20.get();
    struct Row {
        const char *gesture, *told;
        uint32_t image;  ///< shown then
    };
    const auto after0 = OnOffStyle::TellAfterIdle, before1 = OnOffStyle::TellBeforeIdle;
    const std::pair<Shared<CControl>, std::vector<Row>> kCases[] = {
        {makeShared<CNewOnOffButton>(kPlace, &panel, 1, strip, before1),
         {{"d", "(1 1=1 1) ~", 3}, {"d8", "", 3}, {"d", "(1 1=0 1) ~", 0}}},
        {makeShared<CNewOnOffButton>(kPlace, &panel, 1, strip, after0), {{"d", "~ (1 1=1 1)", 3}}},
        {makeShared<COnOffButtonRight>(kPlace, &panel, 1, strip, before1),
         {{"d8", "(1 1=1 1) ~", 3}, {"d", "(1 1=0 1) ~", 0}}},
        {makeShared<CLoopButton>(kPlace, &panel, 1, strip, 6),
         {{"d", "(1 1=0.2 1) ~", 1},
          {"d34 d34", "(1 1=0 1) ~ (1 1=1 1) ~", 5},
          {"d50", "(1 1=0 1) ~", 0}}},
        {makeShared<CLoopButtonFB>(kPlace, &panel, 1, strip),
         {{"d d", "(1 1=1 1) ~ (1 1=2 1) ~", 4},
          {"d", "(1 1=0 1) ~", 0},
          {"d34", "(1 1=2 1) ~", 4}}},
        {makeShared<CMovieBitmapButton>(kPlace, &panel, 1, 6, 20, strip), {{"d", "(1 1=0 1)", 0}}},
        {makeShared<CNewKickButton>(kPlace, &panel, 1, 20, strip),
         {{"d", "(1", 1},
          {"m2@41,40", "", 0},
          {"m2@40,40 u", "1=1 1=0 1)", 0},
          {"d m2@41,40 u", "(1 1=0 1)", 0}}},
        {makeShared<CQuickKickButton>(kPlace, &panel, 1, 20, strip),
         {{"d", "(1 1=1", 1}, {"m2@41,40", "", 0}, {"u", "1=0 1)", 0}}},
        {makeShared<CInvisableKickButton>(kPlace, &panel, 1), {{"d", "(1 1=0 1) ~", 0xabcdef}}},
        {makeShared<CVTKickButton>(kPlace, &panel, 1, 20, strip, CPoint{}, false),
         {{"m0", "", 1}, {"d", "1=1", 2}, {"u", "", 1}, {"l", "", 0}, {"d8", "", 0}}},
        {makeShared<CVTKickButton>(kPlace, &panel, 1, 20, strip, CPoint{}, true),
         {{"d u", "", 0}, {"d1026 u", "1=1", 0}, {"d1058 u", "1=0.5", 0}}},
        {makeShared<CVTOnOffButton>(kPlace, &panel, 1, strip),
         {{"m0", "", 2}, {"d", "1=1", 4}, {"d", "1=0", 2}, {"l", "", 0}}},
        {makeShared<CSaveLoadButton>(kPlace, &panel, 1, 20, strip),
         {{"m0", "", 1}, {"d8", "1=0.5", 1}, {"d40", "1=1", 1}, {"l", "", 0}, {"d", "1=1", 0}}},
        {makeShared<CVTRockerSwitch>(kPlace, &panel, 1, 20, strip),
         {{"m0", "", 2},
          {"d2@19,20", "1=-1", 3},
          {"u", "", 2},
          {"d2@20,20", "1=1", 4},
          {"u l", "", 0}}},
        {makeShared<CNewVerticalSwitch>(kPlace, &panel, 1, 3, 20, 3, strip),
         {{"d", "(1 1=0.5", 1},
          {"m2@40,40", "1=1", 2},
          {"u", "1)", 2},
          {"d34", "(1 (1 1=0.5 1) 1)", 1}}},
        {makeShared<CNewHorizontalSwitch>(kPlace, &panel, 1, 5, 20, 5, strip),
         {{"d", "(1 1=0.75", 3}, {"u", "1)", 3}}},
    };
    for (const auto& [control, rows] : kCases) {
        panel.frame->addView(control.get());
        control->invalid();
        const CControl& view = *control;
        for (const Row& row : rows) {
            EXPECT_EQ(panel.act(row.gesture), row.told) << typeid(view).name() << row.gesture;
            EXPECT_EQ(panel.pixelAt(0, 0), row.image) << typeid(view).name() << row.gesture;
        }
        panel.frame->removeView(control.get(), false);
    }
}

TEST(Buttons, LoopsTakeTheNearestState) {
    FakePanel panel;
    const FakeStrip strip(6, 20);
    const auto loop = panel.add<CLoopButton>(kPlace, &panel, 1, strip.get(), 6);
    for (const auto& [value, image] : std::map<float, uint32_t>{
             {-1.0f, 0}, {0.09f, 0}, {0.11f, 1}, {0.89f, 4}, {0.91f, 5}, {2.0f, 5}}) {
        loop->setStateFromValue(value);
        EXPECT_EQ(panel.pixelAt(0, 0), image) << value;
    }
}

TEST(Rocker, SpringsBackTwoHundredMillisecondsAfterTheLastTurn) {
    FakePanel panel;
    const auto rocker = panel.add<CVTRockerSwitch>(kPlace, &panel, 9, 20, nullptr);
    const auto turn = [&](const char* script, uint32_t milliseconds) {
        const std::string atOnce = panel.act(script);
        panel.clock.tick = panel.clock.tick + milliseconds;
        panel.frame->idle();
        return atOnce + "|" + panel.act("");
    };
    EXPECT_EQ(turn("+0", 150), "(9 9=-1|");
    EXPECT_EQ(turn("+0", 199), "|");
    EXPECT_EQ(turn("", 1), "|9=0 9)");
    EXPECT_EQ(turn("-0", 200), "(9 9=1|9=0 9)");
    panel.act("-0");
    panel.frame->removeView(rocker.get(), false);
    EXPECT_EQ(turn("", 500), "|") << "off the frame";
}

TEST(TextLines, PackMarksBehindTheirCharacters) {
    FakePanel panel({0, 0, 209, 23});
    const FakeStrip ground(1, 16, 212), glyphs(128, 16), marks(4, 16), smallGlyphs(128, 7);
    const auto big = panel.add<CBigText_2>(CRect{0, 0, 209, 16}, &panel, 1, ground.get(),
                                           glyphs.get(), marks.get());
    const auto small = panel.add<CSmallText_2>(CRect{0, 16, 209, 23}, &panel, 2, smallGlyphs.get());
    const auto cells = [&](int32_t count, int32_t pitch, int32_t x, int32_t y, char offset) {
        std::string shown;
        for (int32_t i = 0; i < count; ++i) {
            shown += char(panel.pixelAt(pitch * i + x, y) + uint32_t(offset));
        }
        return shown;
    };
    struct Case {
        const char *text, *characters, *marks;  ///< marks by their row in the sheet
        void (CBigText_2::*set)(std::string_view);
    };
    const auto plain = &CBigText_2::setText, raw = &CBigText_2::setRawText;
    for (const Case& c : {Case{"12:34.5", "12345       ", "01020000000", plain},
                          {".a;:b", "ab          ", "10000000000", plain},
                          {"abcdefghijk;lmn.op", "abcdefghijkl", "00000000003", plain},
                          {"", "            ", "00000000000", plain},
                          {"T:A;P G.", "TAPG        ", "13020000000", raw},
                          {"\xc3\xa4", "            ", "00000000000", plain}}) {
        (big.get()->*c.set)(c.text);
        EXPECT_TRUE(big->isDirty()) << c.text;
        EXPECT_EQ(cells(12, 18, 0, 0, 0), c.characters) << c.text;
        EXPECT_EQ(cells(11, 18, 12, 15, '0'), c.marks) << c.text;
        (big.get()->*c.set)(c.text);
        EXPECT_FALSE(big->isDirty()) << "unchanged: " << c.text;
    }
    const std::string full = "abcdefghijklmnopqrstuvwxyz123456789";
    for (const std::string& text : {full, full.substr(0, 34), full + "0", std::string("x")}) {
        small->setText(text);
        EXPECT_EQ(cells(35, 6, 0, 16, 0), (text + std::string(35, ' ')).substr(0, 35));
        small->setText(text);
        EXPECT_EQ(small->isDirty(), text.size() < 35) << text;
    }
}

}  // namespace tessel8
