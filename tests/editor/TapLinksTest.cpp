// How a change made by hand moves the linked taps.

#include "editor/TapLinks.h"

#include "editor/FakeEffect.h"

namespace tessel8 {
namespace {

struct TapLinks : testing::Test, FakeEffect {
    TapLinks() { set(184, {1, 1, 1}); }  // taps 1 to 3 are linked
    void set(int32_t first, const std::vector<float>& row) {
        for (size_t i = 0; i < row.size(); ++i) {
            take("", first + int32_t(i), row[i]);
        }
        calls.clear();
    }
    void expect(int32_t first, const std::vector<float>& row) {
        for (size_t i = 0; i < row.size(); ++i) {
            EXPECT_NEAR(values[first + int32_t(i)], row[i], 1e-6f) << first << " + " << i;
        }
    }
};

TEST_F(TapLinks, EveryFamilyHasItsRule) {
    for (int32_t index = 0; index < 240; ++index) {  // none, continuous, switch, delay, pan
        const bool pan = index == 203 || index == 204;
        const char rule = pan ? 'P' : "...DCSCCCSCCCCCCSSCSCS........"[index / 8];
        EXPECT_EQ(".CSDP"[int(linkRuleOf(index))], rule) << index;
    }
}

TEST_F(TapLinks, AClippedFollowerDoesNotReturnToItsDistance) {
    set(48, {0.5f, 0.9f, 0.0f, 0.4f});
    changeContinuous(*this, 48, 0.75f, 2);
    EXPECT_EQ(heard(), "auto 49 1; auto 50 0.25; auto 48 0.75; ");
    changeContinuous(*this, 48, 0.5f, 2);
    expect(48, {0.5f, 0.75f, 0.0f, 0.4f});
    heard();
    changeContinuous(*this, 51, 0.6f, 2);  // not linked
    changeSwitch(*this, 75, 0.5f, 2);
    changeSwitch(*this, 73, 1.0f, 2);
    EXPECT_EQ(heard(), "auto 51 0.6; auto 75 0.5; auto 73 1; auto 72 1; auto 74 1; ");
}

TEST_F(TapLinks, ModifierKeysChooseWhatFollowersDo) {
    for (uint32_t buttons = 0; buttons < 128; buttons += 2) {
        for (const int32_t first : {48, 120, 72}) {
            set(first + 1, {0.125f, 0.5f});
        }
        changeContinuous(*this, 49, 0.375f, buttons);
        changeContinuous(*this, 121, 0.375f, buttons);
        changeSwitch(*this, 73, 0.375f, buttons);
        const float moved = buttons == 18 ? 0.125f : 0.75f;
        expect(49, {0.375f, buttons >= 64 ? 0.5f : moved});
        expect(121, {0.375f, buttons == 66 ? 0.5f : moved});
        expect(73, {0.375f, buttons == 66 ? 0.5f : 0.375f});
    }
}

TEST_F(TapLinks, DraggedDelaysKeepTheirRhythm) {
    set(24, {0.1f, 0.2f, 0.0f});
    EXPECT_EQ(dragDelay(*this, 0, 0.8f, 0.0625f, 2), TapSet(7));
    EXPECT_EQ(heard(),
              "fade 24; set 24 0.05; auto 25 0.1; fade 25; auto 26 0.05; fade 26; auto 24 0.05; ");
    set(24, {0.0f, 0.9f, 0.25f});  // from 0 there is no ratio
    dragDelay(*this, 0, 0.5f, 1.0f, 2);
    expect(24, {0.5f, 0.9f, 0.25f});
    dragDelay(*this, 0, 1.0f, 1.0f, 2);
    expect(24, {1.0f, 1.0f, 0.5f});
    // On the grid and with the Shift key they shift.
    set(24, {0.3f, 0.2f, 0.9f});
    dragDelay(*this, 0, 0.5f, 1.0f, 18);
    expect(24, {0.5f, 0.4f, 1.0f});
    values[4] = 0.5f;
    grid = 0.125f;
    set(24, {0.3f, 0.4f, 0.1f});         // on the grid 0.25, 0.375, 0
    dragDelay(*this, 0, 0.2f, 1.0f, 2);  // to 0.125
    expect(24, {0.2f, 0.25f, 0.0f});
    heard();
    EXPECT_EQ(dragDelay(*this, 0, 0.9f, 1.0f, 82), TapSet(1));
    EXPECT_EQ(dragDelay(*this, 3, 0.9f, 1.0f, 2), TapSet(8));  // not linked
    EXPECT_EQ(heard(), "fade 24; set 24 0.9; auto 24 0.9; fade 27; set 27 0.9; auto 27 0.9; ");
}

TEST_F(TapLinks, StepKeysMoveTheGroupInSilence) {
    set(24, {0.25f, 0.5f, 0.0f});
    EXPECT_EQ(stepDelay(*this, 320, 2, 2), TapSet(7));  // to 0.5: twice as long
    EXPECT_EQ(heard(), "set 320 1; set 320 1; set 25 1; set 26 0.5; ");
    stepDelay(*this, 313, 1, 18);
    expect(24, {0.375f, 0.875f, 0.375f});
    stepDelay(*this, 313, 3, 82);
    EXPECT_EQ(stepDelay(*this, 313, 1, 66), TapSet(2));
    expect(24, {0.375f * 4 / 7, 0.375f, 0.375f * 4 / 7});
    set(24, {0.0f, 0.5f, 0.0f});
    stepDelay(*this, 320, 1, 2);
    expect(24, {0.125f, 0.5f, 0.125f});
}

TEST_F(TapLinks, FeedbackPansMoveTogether) {
    set(203, {0.75f, 0.25f});
    changeFeedbackPan(*this, 204, 0.5f);
    values[205] = 1.0f;
    changeFeedbackPan(*this, 204, 0.625f);
    EXPECT_EQ(heard(), "auto 204 0.5; auto 204 0.625; auto 203 0.875; ");
    changeFeedbackPan(*this, 203, 0.0f);
    expect(203, {0.0f, 0.0f});
}

}  // namespace
}  // namespace tessel8
