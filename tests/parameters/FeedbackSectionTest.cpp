// The feedback section: modes, sends, the selected tap, feedback behind the taps.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

struct FeedbackSection : ParametersTest {
    FeedbackSection() {
        set(at::TimeMode, 0.0f);
        for (int32_t tap = 0; tap < 8; ++tap) {
            set(at::DelayT + tap, 0.1f, at::ActTap + tap, 1.0f);
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

constexpr auto kPre = FeedbackSource::BeforeTap, kPost = FeedbackSource::AfterTap;

}  // namespace

TEST_F(FeedbackSection, TheModeIsTheFirstWholeNumberNotBelowTheValueAndRoutesTheTaps) {
    set(at::FBPostT + 1, 1.0f);
    for (const auto& [v, mode] :
         {std::pair{-1.0f, 0.0f}, {0.001f, 1.0f}, {1.0f, 1.0f}, {1.001f, 2.0f}, {7.0f, 2.0f}}) {
        SCOPED_TRACE(v);
        set(at::ModeFB, v);
        EXPECT_EQ(applied(at::ModeFB), mode);
        const bool bus = mode == 1.0f;
        EXPECT_EQ(engine.gateAtInput != 0, mode == 2.0f);
        EXPECT_EQ(engine.fbInputSrc == FeedbackInput::Bus, bus);
        const auto& sources = bus ? engine.busFbSrc : engine.tapFbSrc;
        EXPECT_EQ(sources[0], kPre);
        EXPECT_EQ(sources[1], kPost);
        EXPECT_EQ(engine.tapFbSrc[0] == FeedbackSource::None, bus);
        EXPECT_EQ(on(at::FBPostT), "2");
    }
}

TEST_F(FeedbackSection, PostIsRefusedBelowAHundredMillisecondsAndReadsOnForOneBlock) {
    set(at::DelayT, 0.005f, at::FBPostT, 1.0f);
    EXPECT_EQ(applied(at::FBPostT), 0.0f);
    EXPECT_EQ(stored(at::FBPostT), 1.0f);
    block();
    EXPECT_EQ(stored(at::FBPostT), 0.0f);
    set(at::DelayT, 0.012625f, at::FBPostT, 1.0f);  // 101 ms
    EXPECT_EQ(engine.tapFbSrc[0], kPost);
    set(at::StepDown, 1.0f, at::StepUp, 1.0f);
    EXPECT_EQ(applied(at::FBPostT), 1.0f);
    set(at::StepDown, 1.0f, at::StepDown, 1.0f);  // 99 ms
    EXPECT_EQ(applied(at::FBPostT), 0.0f);
    EXPECT_EQ(engine.tapFbSrc[0], kPre);
}

TEST_F(FeedbackSection, AnAmountCountsWhereTheTapIsSentAndMultiTapSendsOneTapOnly) {
    set(at::AmtFBT + 4, 0.75f);
    EXPECT_EQ(engine.tapFbAmount[4], 0.0f);
    for (const float mode : {2.0f, 0.0f}) {
        set(at::ModeFB, mode, at::TAPtoFB + 1, 1.0f, at::TAPtoFB + 4, 0.2f);
        EXPECT_EQ(on(at::TAPtoFB), "25") << "mode " << mode;
        EXPECT_EQ(engine.tapFbAmount[4], 0.75f);
    }
    // Keeps the first, and tells what it turns off.
    EXPECT_NE(toldBy(at::ModeFB, 1.0f).find(" 197=0 "), std::string::npos);
    EXPECT_EQ(on(at::TAPtoFB), "2");
    EXPECT_EQ(engine.tapFbAmount[4], 0.0f);
    set(at::TAPtoFB + 4, 1.0f);  // the last one set takes over
    EXPECT_EQ(on(at::TAPtoFB), "5");
    set(at::TAPtoFB + 5, 0.0f);  // switching one off leaves the other
    EXPECT_EQ(on(at::TAPtoFB), "5");
}

TEST_F(FeedbackSection, TheSelectionIsAtLeastTheFirstTapAndComesBackAfterMultiTap) {
    for (const auto& [v, tap] :
         {std::pair{-3.0f, 0}, {0.05f, 0}, {0.3f, 1}, {18.0f, 7}, {0.625f, 4}}) {
        set(at::SelectFB, v);
        EXPECT_EQ(applied(at::SelectFB), std::max(v, 0.125f));
        EXPECT_EQ(engine.selectedTap, tap) << "value " << v;
    }
    for (const float mode : {2.0f, 0.0f}) {
        set(at::ModeFB, 1.0f);
        EXPECT_EQ(applied(at::SelectFB), 0.0f);
        set(at::SelectFB, 0.875f);  // refused, and not remembered
        EXPECT_EQ(applied(at::SelectFB), 0.0f);
        set(at::ModeFB, mode);
        EXPECT_EQ(applied(at::SelectFB), 0.625f);
        EXPECT_EQ(engine.selectedTap, 4);
    }
}

TEST_F(FeedbackSection, WhatIsOffFindsBackOnlyWhatIsStillAllowed) {
    set(at::FBPostT + 2, 1.0f, at::ActTap + 2, 0.0f);
    set(at::ActTap + 2, 1.0f);  // within the same block
    EXPECT_EQ(engine.tapFbSrc[2], kPost);
    set(at::ActTap + 2, 0.0f);
    block();
    set(at::ActTap + 2, 1.0f);
    EXPECT_EQ(applied(at::FBPostT + 2), 0.0f);
    set(at::ActiveFB, 1.0f, at::ModeFB, 2.0f);
    EXPECT_EQ(applied(at::ActiveFB), 0.0f);
    set(at::ActiveFB, 1.0f);
    EXPECT_EQ(applied(at::ActiveFB), 0.0f);
    set(at::ModeFB, 1.0f);
    EXPECT_EQ(engine.masterFbOn, 0);
    set(at::ActiveFB, 1.0f);
    EXPECT_NE(engine.masterFbOn, 0);
}

}  // namespace tessel8
