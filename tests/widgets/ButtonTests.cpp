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

namespace {

constexpr CRect kPlace{0, 0, 40, 40};

/// Acts out a gesture in letters: presses as in the table, `i` and `o` move inside and outside,
/// `h` and `x` let the pointer come and go, `u` releases.
std::string after(FakePanel<>& panel, const char* gesture) {
    const std::map<char, MouseState> presses{
        {'d', {30, 20, 2}},  {'r', {30, 20, 8}},         {'R', {30, 20, 40}},
        {'c', {30, 20, 34}}, {'C', {30, 20, 50}},        {'l', {19, 20, 2}},
        {'m', {20, 20, 2}},  {'D', {30, 20, 0x400 | 2}}, {'K', {30, 20, 0x400 | 34}}};
    for (; *gesture; ++gesture) {
        if (const auto press = presses.find(*gesture); press != presses.end()) {
            panel.window->listener.mouseDown(press->second);
        } else if (*gesture == 'u') {
            panel.up(30, 20);
        } else if (*gesture == 'x') {
            panel.window->listener.mouseLeft();
        } else {
            panel.move(*gesture == 'o' ? 41 : 40, 40, *gesture == 'h' ? 0 : mouse::kLeft);
        }
    }
    return panel.told();
}

}  // namespace

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
         {{"d", "(1 1=1 1) ~", 3}, {"r", "", 3}, {"d", "(1 1=0 1) ~", 0}}},
        {makeShared<CNewOnOffButton>(kPlace, &panel, 2, strip, after0), {{"d", "~ (2 2=1 2)", 3}}},
        {makeShared<COnOffButtonRight>(kPlace, &panel, 3, strip, before1),
         {{"r", "(3 3=1 3) ~", 3}, {"d", "(3 3=0 3) ~", 0}}},
        {makeShared<CLoopButton>(kPlace, &panel, 4, strip, 6),
         {{"d", "(4 4=0.2 4) ~", 1},
          {"cc", "(4 4=0 4) ~ (4 4=1 4) ~", 5},
          {"C", "(4 4=0 4) ~", 0}}},
        {makeShared<CLoopButtonFB>(kPlace, &panel, 5, strip),
         {{"dd", "(5 5=1 5) ~ (5 5=2 5) ~", 4}, {"d", "(5 5=0 5) ~", 0}, {"c", "(5 5=2 5) ~", 4}}},
        {makeShared<CMovieBitmapButton>(kPlace, &panel, 6, 6, 20, strip), {{"d", "(6 6=0 6)", 0}}},
        {makeShared<CNewKickButton>(kPlace, &panel, 7, 20, strip),
         {{"d", "(7", 1}, {"o", "", 0}, {"iu", "7=1 7=0 7)", 0}, {"dou", "(7 7=0 7)", 0}}},
        {makeShared<CQuickKickButton>(kPlace, &panel, 8, 20, strip),
         {{"d", "(8 8=1", 1}, {"o", "", 0}, {"u", "8=0 8)", 0}}},
        {makeShared<CInvisableKickButton>(kPlace, &panel, 9), {{"d", "(9 9=0 9) ~", 0xabcdef}}},
        {makeShared<CVTKickButton>(kPlace, &panel, 10, 20, strip, CPoint{}, false),
         {{"h", "", 1}, {"d", "10=1", 2}, {"u", "", 1}, {"x", "", 0}, {"r", "", 0}}},
        {makeShared<CVTKickButton>(kPlace, &panel, 11, 20, strip, CPoint{}, true),
         {{"du", "", 0}, {"Du", "11=1", 0}, {"Ku", "11=0.5", 0}}},
        {makeShared<CVTOnOffButton>(kPlace, &panel, 12, strip),
         {{"h", "", 2}, {"d", "12=1", 4}, {"d", "12=0", 2}, {"x", "", 0}}},
        {makeShared<CSaveLoadButton>(kPlace, &panel, 13, 20, strip),
         {{"h", "", 1}, {"r", "13=0.5", 1}, {"R", "13=1", 1}, {"x", "", 0}, {"d", "13=1", 0}}},
        {makeShared<CVTRockerSwitch>(kPlace, &panel, 14, 20, strip),
         {{"h", "", 2}, {"l", "14=-1", 3}, {"u", "", 2}, {"m", "14=1", 4}, {"ux", "", 0}}},
        {makeShared<CNewVerticalSwitch>(kPlace, &panel, 15, 3, 20, 3, strip),
         {{"d", "(15 15=0.5", 1},
          {"i", "15=1", 2},
          {"u", "15)", 2},
          {"c", "(15 (15 15=0.5 15) 15)", 1}}},
        {makeShared<CNewHorizontalSwitch>(kPlace, &panel, 16, 5, 20, 5, strip),
         {{"d", "(16 16=0.75", 3}, {"u", "16)", 3}}},
    };
    for (const auto& [control, rows] : kCases) {
        panel.frame->addView(control.get());
        control->invalid();
        for (const Row& row : rows) {
            const std::string name = std::to_string(control->getTag()).append(row.gesture);
            EXPECT_EQ(after(panel, row.gesture), row.told) << name;
            EXPECT_EQ(panel.pixelAt(0, 0), row.image) << name;
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
    const auto idleAfter = [&](uint32_t milliseconds) {
        panel.clock.tick += milliseconds;
        panel.frame->idle();
        return panel.told();
    };
    panel.wheel(1, 1, 1.0f);
    EXPECT_EQ(idleAfter(150), "(9 9=-1");
    panel.wheel(1, 1, 2.0f);
    EXPECT_EQ(idleAfter(199), "");
    EXPECT_EQ(idleAfter(1), "9=0 9)");
    panel.wheel(1, 1, -1.0f);
    EXPECT_EQ(idleAfter(200), "(9 9=1 9=0 9)");
    EXPECT_EQ(idleAfter(500), "");
    panel.wheel(1, 1, -1.0f);
    panel.frame->removeView(rocker.get(), false);
    EXPECT_EQ(idleAfter(500), "(9 9=1") << "off the frame";
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
        bool isRaw;
    };
    for (const Case& c : {Case{"12:34.5", "12345       ", "01020000000", false},
                          {".a;:b", "ab          ", "10000000000", false},
                          {"abcdefghijklmnop", "abcdefghijkl", "00000000000", false},
                          {"abcdefghijk;l.m", "abcdefghijkl", "00000000003", false},
                          {"", "            ", "00000000000", false},
                          {"T:A;P G.", "TAPG        ", "13020000000", true},
                          {"\xc3\xa4", "            ", "00000000000", false}}) {
        c.isRaw ? big->setRawText(c.text) : big->setText(c.text);
        EXPECT_TRUE(big->isDirty()) << c.text;
        EXPECT_EQ(cells(12, 18, 0, 0, 0), c.characters) << c.text;
        EXPECT_EQ(cells(11, 18, 12, 15, '0'), c.marks) << c.text;
        c.isRaw ? big->setRawText(c.text) : big->setText(c.text);
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
