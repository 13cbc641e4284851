// The panel as a whole: what each control does and says, and what moves by itself.

#include "editor/EditorFixture.h"

#include <thread>

#include "parameters/ControlTags.h"

namespace tessel8 {

namespace {

struct Point {
    int32_t x, y;
};

Point middleOf(const PanelPlace& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

std::string wordOf(const char* before, int32_t number, const char* behind) {
    std::ostringstream word;
    word << before << number << behind;
    return word.str();
}

/// Whether the host records what the control does, and which parameter: -1 for none.
int32_t automates(const PanelRow& row, int32_t tag) {
    switch (row.kind) {
        case ControlKind::Movie:
        case ControlKind::RangeButton:
        case ControlKind::ColumnHead:
        case ControlKind::BigText:
        case ControlKind::SmallText:
        case ControlKind::TapView:
            return -1;
        case ControlKind::KickButton:
            return tag == 9 || tag == 10 ? tag : -1;
        case ControlKind::QuickKickButton:
            return tag < 312 ? parameterOfTag(tag) : -1;
        default:
            return tag == 332 || tag == 336 ? -1 : parameterOfTag(tag);
    }
}

bool isTouchable(ControlKind kind) {
    return kind != ControlKind::Movie && kind != ControlKind::BigText &&
           kind != ControlKind::SmallText && kind != ControlKind::TapView;
}

}  // namespace

TEST_F(EditorTest, EveryControlAnnouncesItsGestureAndMovesItsParameterAlone) {
    for (const PanelRow& row : panelRows()) {
        if (!isTouchable(row.kind)) {
            continue;
        }
        for (int32_t i = 0; i < row.count; ++i) {
            const int32_t tag = row.tag + i;
            const auto [x, y] = middleOf(row.placeOf(i));
            if (row.kind == ControlKind::Bar || row.kind == ControlKind::WidthBar) {
                editor.swapEditBars(editParameterOf(parameterOfTag(tag)), 0.0f);
            }
            effect.told();
            press(x, y);
            drag(x + 3, y - 5);
            const PanelPlace place = row.placeOf(i);
            drag(place.left + 2, place.bottom - 2);
            release(place.left + 2, place.bottom - 2);
            const std::string told = effect.told();
            const std::string begin = wordOf("(", tag, " ");
            const std::string end = wordOf(" ", tag, ")");
            EXPECT_EQ(told.substr(0, begin.size()), begin) << told;
            EXPECT_EQ(told.substr(told.size() - end.size()), end) << told;
            const int32_t index = automates(row, tag);
            EXPECT_EQ(told.find('=') != std::string::npos, index >= 0) << told;
            if (index >= 0) {
                EXPECT_NE(told.find(wordOf(" ", index, "=")), std::string::npos) << told;
            }
            if (tag == 336) {
                click(x, y);  // back to panel mode
            }
        }
    }
    EXPECT_EQ(effect.panics, 1);
}

TEST_F(EditorTest, EveryControlHasItsPictureInTheRightSize) {
    for (const auto& rows : {panelRows(), presetStripRows()}) {
        for (const PanelRow& row : rows) {
            for (int32_t i = 0; row.strip != 0 && i < row.count; ++i) {
                const CBitmap picture(row.strip + i * row.stripStep);
                const bool isText =
                    row.kind == ControlKind::BigText || row.kind == ControlKind::SmallText;
                if (!isText && row.strip != kBackgroundPicture) {
                    EXPECT_EQ(picture.getWidth(), row.place.right - row.place.left) << row.strip;
                    EXPECT_EQ(picture.getHeight(), row.images * (row.place.bottom - row.place.top))
                        << row.strip;
                }
            }
        }
    }
}

TEST_F(EditorTest, FollowsTheHostWithoutAnEcho) {
    effect.told();
    for (int round = 0; round < 50; ++round) {
        const float v = float(round) / 64.0f;
        for (const int32_t index : {1, 24, 48, 72, 176, 192, 201}) {
            effect.parameters.apply(index, index == 192 ? float(round % 3) : v);
        }
        editor.idle();
        EXPECT_EQ(value(48), v);
        EXPECT_EQ(value(218), v) << "the bar of the gain";
        EXPECT_EQ(value(176, 145), v == 0.0f ? 0.0f : 1.0f) << "the small switch";
        EXPECT_EQ(value(192), float(round % 3));
        EXPECT_FLOAT_EQ(value(24), effect.appliedValue(399)) << "the slider, whole memory";
    }
    EXPECT_EQ(effect.told(), "");
}

TEST_F(EditorTest, LearnTakesAGestureUntilTheMouseGoesUp) {
    effect.parameters.apply(332, 1.0f);
    editor.idle();
    EXPECT_EQ(value(332), 1.0f);
    const float gain = effect.appliedValue(48);
    const auto [x, y] = Point{142, 211};  // gain of tap 1
    press(x, y);
    for (int32_t step = 1; step < 40; ++step) {
        drag(x, y - step);
    }
    release(x, y - 39);
    EXPECT_EQ(effect.learnt, std::vector<int32_t>{48});
    EXPECT_EQ(effect.appliedValue(48), gain);
    EXPECT_EQ(value(48), gain);
    press(x, y);
    drag(x, y - 20);
    release(x, y - 20);
    EXPECT_NEAR(effect.appliedValue(48), gain + 20.0f / 200.0f, 1e-6f);
    effect.parameters.apply(332, 1.0f);
    click(235, 135);  // graph mode
    EXPECT_EQ(editor.getGraphMode(), 0.0f);
    EXPECT_EQ(value(336), 0.0f);
}

TEST_F(EditorTest, GraphModeSwapsWhatStandsInTheDisplayAndSurvivesClosing) {
    EXPECT_TRUE(isOnPanel(419) && isOnPanel(218) && isOnPanel(423) && isOnPanel(176, 145));
    EXPECT_FALSE(isOnPanel(234) || isOnPanel(426, 159));
    click(235, 135);
    EXPECT_FALSE(isOnPanel(419) || isOnPanel(218) || isOnPanel(423) || isOnPanel(176, 145));
    EXPECT_TRUE(isOnPanel(426, 159) && isOnPanel(7, 162));
    click(530, 140);  // the next edit parameter changes no view
    EXPECT_FALSE(isOnPanel(234));
    editor.close();
    effect.parameters.apply(48, 0.25f);
    editor.open(nullptr);
    EXPECT_TRUE(isOnPanel(426, 159));
    EXPECT_EQ(value(48), 0.25f);
    click(235, 135);
    EXPECT_TRUE(isOnPanel(419) && isOnPanel(234));
    EXPECT_FALSE(isOnPanel(218) || isOnPanel(426, 159));
    for (int round = 0; round < 1000; ++round) {
        click(235, 135);
        click(530, 140);
    }
    EXPECT_EQ(editor.getGraphMode(), 0.0f);
}

TEST_F(EditorTest, MetersFallInASecondAndLampsStayFive) {
    effect.peaks[2] = std::exp(-2.0f);  // 1 - 2/5 of the scale
    effect.peaks[3] = 1.0f;
    wait(20);
    EXPECT_NEAR(value(423), 0.6f, 1e-5f);
    EXPECT_EQ(value(424), 1.0f);
    EXPECT_EQ(value(328, 178, 0), 0.0f) << "full scale is no clip";
    wait(200);
    EXPECT_NEAR(value(423), 0.4f, 1e-4f);
    EXPECT_NEAR(value(424), 0.8f, 1e-4f);
    effect.peaks[3] = 1.001f;
    wait(20);
    EXPECT_EQ(value(328, 178, 0), 1.0f);
    wait(5000);
    EXPECT_EQ(value(328, 178, 0), 1.0f);
    wait(40);
    EXPECT_EQ(value(328, 178, 0), 0.0f);
    EXPECT_EQ(value(424), 0.0f);
    click(423, 70);  // compare
    effect.peaks[1] = std::exp(-1.0f);
    effect.peaks[2] = std::exp(-3.0f);
    wait(20);
    EXPECT_NEAR(value(423), 0.8f, 1e-5f) << "the louder input";
    EXPECT_NEAR(value(424), 0.4f, 1e-5f) << "the louder output";
}

TEST_F(EditorTest, HeldKeysRepeatByTheClock) {
    const auto stepsAfter = [this](int32_t milliseconds, int32_t index) {
        effect.told();
        wait(milliseconds);
        const std::string told = effect.told();
        int steps = 0;
        for (size_t at = 0; (at = told.find(wordOf("", index, "="), at)) != std::string::npos;
             ++at) {
            ++steps;
        }
        return steps;
    };
    press(428, 140);  // tempo up: 0.1 BPM, again after half a second, then every 50 ms
    EXPECT_NEAR(effect.appliedValue(382), 120.1f, 1e-3f);
    EXPECT_EQ(stepsAfter(500, 5), 0);
    EXPECT_EQ(stepsAfter(20, 5), 1);
    EXPECT_EQ(stepsAfter(600, 5), 10) << "more than 50 ms: every third pass";
    const float slow = effect.appliedValue(382);
    wait(2000 - 1120);
    EXPECT_EQ(stepsAfter(200, 5), 10) << "every pass after two seconds";
    EXPECT_GT(effect.appliedValue(382), slow);
    wait(1800);
    const float wide = effect.appliedValue(382);
    wait(20);
    EXPECT_NEAR(effect.appliedValue(382), wide + 0.4f, 1e-3f);
    release(428, 140);
    EXPECT_EQ(stepsAfter(1000, 5), 0);

    press(368, 140);  // note up
    EXPECT_EQ(effect.appliedValue(6), 0.625f);
    EXPECT_EQ(stepsAfter(1500, 6), 0);
    EXPECT_EQ(stepsAfter(20, 6), 1);
    EXPECT_EQ(stepsAfter(220, 6), 1);
    editor.close();  // ends what is held
    editor.open(nullptr);
    EXPECT_EQ(stepsAfter(3000, 6), 0);

    effect.parameters.apply(4, 0.0f);
    press(478, 211);  // tap 1 one step up: a millisecond
    EXPECT_EQ(effect.appliedValue(383), 1.0f);
    wait(1000);
    EXPECT_EQ(effect.appliedValue(383), 1.0f);
    wait(20);
    EXPECT_EQ(effect.appliedValue(383), 2.0f);
    wait(60);
    EXPECT_EQ(effect.appliedValue(383), 12.0f);
    release(478, 211);
    EXPECT_GT(effect.fades, 10);
}

TEST_F(EditorTest, TheTapPadSetsDelaysOrTheTempo) {
    const auto tap = [this] { click(794, 50); };
    effect.parameters.apply(4, 0.0f);
    tap();
    for (int32_t n = 1; n <= 10; ++n) {
        clock.tick = clock.tick + 250;
        tap();
    }
    for (int32_t n = 1; n <= 8; ++n) {
        EXPECT_NEAR(effect.appliedValue(23 + n), float(n) * 0.25f / 8.0f, 1e-6f) << n;
    }
    wait(20);  // more than eight delays: the run has ended
    effect.parameters.apply(23, 1.0f);
    effect.parameters.apply(4, 0.5f);
    tap();
    EXPECT_EQ(effect.appliedValue(382), 120.0f);
    for (int n = 0; n < 3; ++n) {
        clock.tick = clock.tick + 400;
        tap();
    }
    EXPECT_NEAR(effect.appliedValue(382), 150.0f, 1e-3f);
    clock.tick = clock.tick + 100000;
    tap();
    EXPECT_NEAR(effect.appliedValue(382), 150.0f, 1e-3f) << "too slow to count";
    wait(2040);
    // Presses that come by MIDI count from the time at which they came.
    const uint32_t start = clock.tick;
    for (uint32_t n = 0; n < 3; ++n) {
        clock.tick = start + n * 600;
        editor.setParameter(216, 1.0f);
        editor.setParameter(216, 0.0f);
    }
    editor.idle();
    EXPECT_NEAR(effect.appliedValue(382), 100.0f, 1e-3f);
}

TEST_F(EditorTest, TheDisplayFollowsThePointerButNotRightAfterMidi) {
    const auto bigStrip = [this] { return isOnPanel(419); };
    ASSERT_TRUE(bigStrip());
    mouseTo(70, 140);
    EXPECT_EQ(editor.hoverTag, 1);
    mouseTo(5, 300);
    EXPECT_EQ(editor.hoverTag, -1);
    press(70, 140);
    mouseTo(500, 300);
    drag(500, 300);
    EXPECT_EQ(editor.hoverTag, 1) << "a drag keeps what it began on";
    release(500, 300);
    EXPECT_EQ(editor.editedParameter(), 215);
    press(70, 140);
    EXPECT_EQ(editor.editedParameter(), 1);
    release(70, 140);
    editor.setParameter(425, 1.0f);
    editor.idle();
    EXPECT_EQ(value(425), 0.0f) << "no event was stamped: the lamp is out at once";
    effect.parameters.stampMidi(clock.tick);
    editor.setParameter(425, 1.0f);
    editor.idle();
    EXPECT_EQ(value(425), 1.0f);
    wait(120);
    EXPECT_EQ(value(425), 0.0f);
}

TEST_F(EditorTest, ThatIsClosedInTheMiddleOfADragEndsItForTheHost) {
    effect.told();
    press(70, 140);
    EXPECT_EQ(effect.told(), "(1");
    editor.close();
    EXPECT_EQ(effect.told(), "1)");
    editor.open(nullptr);
    editor.close();
    EXPECT_EQ(effect.told(), "");
}

TEST_F(EditorTest, SoloLeavesOneTapAndComesBack) {
    const auto taps = [this] {
        std::string on;
        for (int32_t tap = 0; tap < 8; ++tap) {
            on += effect.appliedValue(176 + tap) != 0.0f ? char('1' + tap) : '-';
        }
        return on;
    };
    for (const int32_t tap : {1, 4}) {
        effect.parameters.apply(176 + tap, 1.0f);
    }
    editor.idle();
    const Point second{41, 246}, third{41, 282};
    click(third.x, third.y, mouse::kRight);  // off: nothing happens
    EXPECT_EQ(taps(), "12--5---");
    click(second.x, second.y, mouse::kRight);
    EXPECT_EQ(taps(), "-2------");
    click(second.x, second.y, mouse::kRight);
    EXPECT_EQ(taps(), "12--5---");
    click(second.x, second.y, mouse::kRight);
    click(third.x, third.y);
    EXPECT_EQ(taps(), "-23-----");
    click(second.x, second.y, mouse::kRight);
    EXPECT_EQ(taps(), "-2------") << "a new solo";
}

// The effect speaks to the editor from the host's threads while the panel opens, works and closes.
TEST_F(EditorTest, HearsTheEffectOnAnyThread) {
    std::atomic<bool> done{false};
    std::thread host([&] {
        for (uint32_t n = 0; !done; ++n) {
            editor.setParameter(int32_t(n % 440) - 4, float(n % 7) / 6.0f);
            editor.showTempo(0.5f);
            editor.showLfoFrequency(0.5f);
            editor.markMidiChange();
            editor.editedParameter();
        }
    });
    for (int round = 0; round < 60; ++round) {
        editor.open(nullptr);
        click(142, 211);
        wait(40);
        editor.close();
    }
    done = true;
    host.join();
    editor.open(nullptr);
    EXPECT_TRUE(editor.isOpen());
}

}  // namespace tessel8
