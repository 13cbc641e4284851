#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

/// The ceiling's rounding, two of the quotient's parts, its own and that of the sum behind it.
constexpr double kCurve = 5.0 * kUnit;

struct Figure {
    float drive, in;
    double tap, feedback;  ///< levels behind a tap's saturator and behind the feedback's
};

TEST(Saturator, PassesUnderItsCeilingAndNeverAboveIt) {
    // Ceilings of 100, 1 and 0.1; the feedback's saturator stands behind the limit of 16.
    for (const Figure& f : {Figure{0.0f, 1.0f, 100.0 / 101.0, 100.0 / 101.0},
                            {0.5f, 1.0f, 0.5, 0.5},
                            {0.5f, 16.0f, 16.0 / 17.0, 16.0 / 17.0},
                            {0.5f, 64.0f, 64.0 / 65.0, 16.0 / 17.0},
                            {1.0f, 0.1f, 0.05, 0.05},
                            {1.0f, 1e6f, 1e5 / 1000000.1, 1.6 / 16.1}}) {
        SCOPED_TRACE(::testing::Message() << f.drive << ", " << f.in);
        for (const int tap : {0, 6}) {
            for (const float before : {0.0f, 1.0f}) {
                Bench rig({{Family::ActTap, 0.0f, 0},
                           {Family::ActTap, 1.0f, tap},
                           {Family::DriveT, f.drive, tap},
                           {Family::PreDrvT, before, tap},
                           {Family::ActDrvT, 1.0f, tap}});
                const Stereo out = rig.play(impulse(1, f.in, -f.in));
                EXPECT_NEAR(f.tap, double(out.left[0]), f.tap * kCurve);
                EXPECT_EQ(-out.left[0], out.right[0]);
                EXPECT_TRUE(f.drive < 1.0f || out.left[0] <= 0.1f);
            }
        }
        Bench rig({{Family::SelectFB, 0.125f},
                   {Family::GainFB, 1.0f},
                   {Family::ActiveFB, 1.0f},
                   {Family::DriveFB, f.drive},
                   {Family::ActDrvFB, 1.0f}},
                  100);
        const Stereo out = rig.play(impulse(201, f.in, -f.in));
        EXPECT_NEAR(f.feedback, double(out.left[200]), f.feedback * kCurve);
        EXPECT_EQ(-out.left[200], out.right[200]);
    }
}

TEST(Saturator, StandsBeforeOrBehindTheFilterOnlyWhileItIsOn) {
    for (const float on : {0.0f, 1.0f}) {
        Bench behind({{Family::ActFltT, 1.0f}, {Family::ResoFT, 0.9f}, {Family::ActDrvT, on}});
        const Stereo expected = behind.play(noise(5000, 3));
        Bench before({{Family::ActFltT, 1.0f},
                      {Family::ResoFT, 0.9f},
                      {Family::PreDrvT, 1.0f},
                      {Family::ActDrvT, on}});
        EXPECT_EQ(on == 0.0f, bool(sameSound(expected, before.play(noise(5000, 3)))));
    }
}

}  // namespace
}  // namespace tessel8::testing
