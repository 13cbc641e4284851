// The feedback section: modes, sends, the selected tap, feedback behind the taps.

#include <algorithm>

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

class FeedbackSection : public ParametersTest {
  protected:
    FeedbackSection() {
        set(at::TimeMode, 0.0f);
        for (int32_t tap = 0; tap < 8; ++tap) {
            set(at::DelayT + tap, 0.1f);
            set(at::ActTap + tap, 1.0f);
        }
    }
    /// The taps whose value of a family is on, as digits.
    std::string on(int32_t first) const {
        std::string taps;
        for (int32_t tap = 0; tap < 8; ++tap) {
            taps += applied(first + tap) != 0.0f ? std::to_string(tap + 1) : "";
        }
        return taps;
    }
};

constexpr auto kNone = FeedbackSource::None;
constexpr auto kPre = FeedbackSource::BeforeTap;
constexpr auto kPost = FeedbackSource::AfterTap;

}  // namespace

TEST_F(FeedbackSection, TheModeIsTheFirstWholeNumberNotBelowTheValue) {
    for (const auto& [v, mode] : {std::pair{-1.0f, 0.0f},
                                  {0.0f, 0.0f},
                                  {0.001f, 1.0f},
                                  {1.0f, 1.0f},
                                  {1.001f, 2.0f},
                                  {2.0f, 2.0f},
                                  {7.0f, 2.0f}}) {
        set(at::ModeFB, v);
        EXPECT_EQ(applied(at::ModeFB), mode) << "value " << v;
        EXPECT_EQ(engine.gateAtInput != 0, mode == 2.0f) << "value " << v;
        EXPECT_EQ(engine.fbInputSrc == FeedbackInput::Bus, mode == 1.0f) << "value " << v;
    }
}

TEST_F(FeedbackSection, TapsFeedTheirOwnLinesExceptInMultiTapWhereTheyFeedTheBus) {
    set(at::FBPostT + 1, 1.0f);
    for (const float mode : {0.0f, 1.0f, 2.0f}) {
        set(at::ModeFB, mode);
        const bool bus = mode == 1.0f;
        const auto& sources = bus ? engine.busFbSrc : engine.tapFbSrc;
        EXPECT_EQ(sources[0], kPre) << "mode " << mode;
        EXPECT_EQ(sources[1], kPost) << "mode " << mode;
        EXPECT_EQ(engine.tapFbSrc[0] == kNone, bus) << "mode " << mode;
        EXPECT_EQ(engine.tapFbSrc[1] == kNone, bus) << "mode " << mode;
        EXPECT_EQ(on(at::FBPostT), "2") << "mode " << mode;
    }
}

TEST_F(FeedbackSection, PostIsRefusedBelowAHundredMillisecondsAndReadsOnForOneBlock) {
    set(at::DelayT, 0.005f);
    set(at::FBPostT, 1.0f);
    EXPECT_EQ(applied(at::FBPostT), 0.0f);
    EXPECT_EQ(stored(at::FBPostT), 1.0f);
    block();
    EXPECT_EQ(stored(at::FBPostT), 0.0f);
    set(at::DelayT, 0.013f);
    set(at::FBPostT, 1.0f);
    EXPECT_EQ(applied(at::FBPostT), 1.0f);
    EXPECT_EQ(engine.tapFbSrc[0], kPost);
    set(at::DelayT, 0.012f);
    EXPECT_EQ(applied(at::FBPostT), 0.0f);
    EXPECT_EQ(engine.tapFbSrc[0], kPre);
}

TEST_F(FeedbackSection, ATapThatIsOffLeavesPostAndFindsBackOnlyWhatIsStillStored) {
    set(at::FBPostT + 2, 1.0f);
    set(at::ActTap + 2, 0.0f);
    EXPECT_EQ(applied(at::FBPostT + 2), 0.0f);
    EXPECT_EQ(engine.tapFbSrc[2], kPre);
    set(at::ActTap + 2, 1.0f);  // within the same block
    EXPECT_EQ(applied(at::FBPostT + 2), 1.0f);
    EXPECT_EQ(engine.tapFbSrc[2], kPost);
    set(at::ActTap + 2, 0.0f);
    block();
    set(at::ActTap + 2, 1.0f);
    EXPECT_EQ(applied(at::FBPostT + 2), 0.0f);
}

TEST_F(FeedbackSection, AFeedbackAmountCountsOnlyWhereTheTapIsSent) {
    set(at::AmtFBT + 3, 0.75f);
    EXPECT_EQ(engine.tapFbAmount[3], 0.0f);
    set(at::TAPtoFB + 3, 0.2f);
    EXPECT_EQ(engine.tapFbAmount[3], 0.75f);
    set(at::AmtFBT + 3, 0.5f);
    EXPECT_EQ(engine.tapFbAmount[3], 0.5f);
    set(at::TAPtoFB + 3, 0.0f);
    EXPECT_EQ(engine.tapFbAmount[3], 0.0f);
}

TEST_F(FeedbackSection, MultiTapSendsTheTapSetLastAndNoOther) {
    set(at::ModeFB, 1.0f);
    set(at::AmtFBT, 0.5f);
    set(at::TAPtoFB, 1.0f);
    set(at::TAPtoFB + 2, 1.0f);
    EXPECT_EQ(on(at::TAPtoFB), "3");
    EXPECT_EQ(engine.tapFbAmount[0], 0.0f);
    set(at::TAPtoFB + 5, 0.0f);  // switching one off leaves the other
    EXPECT_EQ(on(at::TAPtoFB), "3");
}

TEST_F(FeedbackSection, TheOtherModesSendAnyNumberOfTaps) {
    for (const float mode : {0.0f, 2.0f}) {
        set(at::ModeFB, mode);
        set(at::TAPtoFB + 1, 1.0f);
        set(at::TAPtoFB + 6, 1.0f);
        EXPECT_EQ(on(at::TAPtoFB), "27") << "mode " << mode;
    }
}

TEST_F(FeedbackSection, GoingToMultiTapKeepsTheFirstSendOnly) {
    set(at::AmtFBT + 4, 0.5f);
    set(at::TAPtoFB + 1, 1.0f);
    set(at::TAPtoFB + 4, 1.0f);
    set(at::ModeFB, 1.0f);
    EXPECT_EQ(on(at::TAPtoFB), "2");
    EXPECT_EQ(engine.tapFbAmount[4], 0.0f);
}

TEST_F(FeedbackSection, AModeChangeTakesTheTapsThatAreOffOutOfPost) {
    set(at::FBPostT + 1, 1.0f);
    set(at::FBPostT + 2, 1.0f);
    set(at::DelayT + 2, 0.001f);
    for (const float mode : {1.0f, 2.0f, 0.0f}) {
        set(at::ModeFB, mode);
        EXPECT_EQ(on(at::FBPostT), "2") << "mode " << mode;
    }
}

TEST_F(FeedbackSection, AModeChangeTellsTheEditorWhatItTurnsOff) {
    set(at::FBPostT + 1, 1.0f);
    set(at::TAPtoFB + 1, 1.0f);
    for (const float mode : {1.0f, 2.0f}) {
        outside.told.clear();
        set(at::ModeFB, mode);
        const auto isTold = [this](const std::string& line) {
            return std::find(outside.told.begin(), outside.told.end(), line) != outside.told.end();
        };
        for (int32_t tap = 0; tap < 8; ++tap) {
            EXPECT_EQ(isTold(editor(at::FBPostT + tap, 0)), tap != 1) << "tap " << tap + 1;
            EXPECT_EQ(isTold(editor(at::TAPtoFB + tap, 0)), tap != 1 && mode == 1.0f);
        }
        EXPECT_TRUE(isTold(editor(at::SelectFB, mode == 1.0f ? 0.0f : 1.0f)));
        EXPECT_EQ(isTold(editor(at::ActiveFB, 0)), mode == 2.0f);
        EXPECT_EQ(outside.told[outside.told.size() - 2], editor(at::ModeFB, mode));
    }
}

TEST_F(FeedbackSection, TheSelectionIsAtLeastTheFirstTapAndIsNotSnapped) {
    const struct {
        float v, kept;
        int tap;
    } kPoints[] = {{0.0f, 0.125f, 1}, {0.05f, 0.125f, 1}, {0.125f, 0.125f, 1},
                   {0.3f, 0.3f, 2},   {0.5f, 0.5f, 4},    {0.99f, 0.99f, 7},
                   {1.0f, 1.0f, 8},   {-3.0f, 0.125f, 1}, {18.0f, 18.0f, 8}};
    for (const auto& p : kPoints) {
        set(at::SelectFB, p.v);
        EXPECT_EQ(applied(at::SelectFB), p.kept) << "value " << p.v;
        EXPECT_EQ(engine.selectedTap + 1, p.tap) << "value " << p.v;
    }
}

TEST_F(FeedbackSection, MultiTapHasNoSelectionAndTheOtherModesBringTheLastOneBack) {
    set(at::SelectFB, 0.625f);
    set(at::ModeFB, 1.0f);
    EXPECT_EQ(applied(at::SelectFB), 0.0f);
    EXPECT_EQ(engine.selectedTap, 0);
    set(at::SelectFB, 0.875f);  // refused, and not remembered
    EXPECT_EQ(applied(at::SelectFB), 0.0f);
    set(at::ModeFB, 2.0f);
    EXPECT_EQ(applied(at::SelectFB), 0.625f);
    set(at::ModeFB, 1.0f);
    set(at::ModeFB, 0.0f);
    EXPECT_EQ(applied(at::SelectFB), 0.625f);
    EXPECT_EQ(engine.selectedTap, 4);
}

TEST(FeedbackSelection, StartsRememberedAtTheLastTap) {
    Engine engine;
    Parameters parameters(engine);
    parameters.apply(at::ModeFB, 0.0f);
    EXPECT_EQ(parameters.applied(at::SelectFB), 1.0f);
    EXPECT_EQ(engine.selectedTap, 7);
}

TEST_F(FeedbackSection, MultiFbTurnsTheMasterFeedbackOffForGood) {
    set(at::ActiveFB, 1.0f);
    EXPECT_NE(engine.masterFbOn, 0);
    set(at::ModeFB, 2.0f);
    EXPECT_EQ(applied(at::ActiveFB), 0.0f);
    EXPECT_EQ(engine.masterFbOn, 0);
    set(at::ActiveFB, 1.0f);
    EXPECT_EQ(applied(at::ActiveFB), 0.0f);
    EXPECT_EQ(engine.masterFbOn, 0);
    set(at::ModeFB, 1.0f);
    EXPECT_EQ(applied(at::ActiveFB), 0.0f);
    set(at::ActiveFB, 1.0f);
    EXPECT_EQ(applied(at::ActiveFB), 1.0f);
}

TEST_F(FeedbackSection, EachPanWritesItsOwnTwoLanesOfTheMatrix) {
    set(at::PanFBL, 0.125f);
    set(at::PanFBR, 0.25f);
    const float kWanted[] = {0.875f, 0.75f, 0.125f, 0.25f};
    for (size_t lane = 0; lane < 4; ++lane) {
        EXPECT_EQ(engine.fbPanMatrix[lane], kWanted[lane]) << "lane " << lane;
    }
    set(at::GainFB, 0.625f);
    set(at::ActDrvFB, 0.1f);
    set(at::LinkPanFB, 0.4f);
    EXPECT_EQ(engine.fbGain[0], 0.625f);
    EXPECT_EQ(engine.fbGain[3], 0.625f);
    EXPECT_NE(engine.fbSaturatorOn, 0);
    EXPECT_EQ(applied(at::LinkPanFB), 0.4f);
}

}  // namespace tessel8
