#include "processors/Bench.h"

namespace tessel8::testing {
namespace {

TEST(Saturator, PassesUnderItsCeilingAndNeverAboveIt) {
    // Ceilings of 100, 1 and 0.1; the feedback's saturator stands behind the limit of 16.
    const struct {
        float drive, in;
        double tap, feedback;
    } kFigures[] = {{0.0f, 1.0f, 100.0 / 101.0, 100.0 / 101.0},
                    {0.5f, 1.0f, 0.5, 0.5},
                    {0.5f, 64.0f, 64.0 / 65.0, 16.0 / 17.0},
                    {0.5f, 16.0f, 16.0 / 17.0, 16.0 / 17.0},
                    {1.0f, 0.1f, 0.05, 0.05},
                    {1.0f, 1e6f, 1e5 / 1000000.1, 1.6 / 16.1}};
    for (const auto& f : kFigures) {
        const double bound = 5.0 * kUnit;  // ceiling, product, sum, quotient, the input's decimals
        const auto check = [&](double expected, const Stereo& out, size_t at) {
            EXPECT_NEAR(expected, double(out.left[at]), expected * bound) << f.drive << " " << f.in;
            EXPECT_EQ(-out.left[at], out.right[at]);
            EXPECT_TRUE(f.drive < 1.0f || out.left[at] <= 0.1f);
        };
        for (const float before : {0.0f, 1.0f}) {
            Bench rig(0, kLowestRate, ActTap, 0.0f);
            rig.with(6, ActTap, 1.0f, DriveT, f.drive, PreDrvT, before, ActDrvT, 1.0f);
            check(f.tap, rig.play(impulse(1, f.in, -f.in)), 0);
        }
        Bench rig(100, kLowestRate, SelectFB, 0.125f, GainFB, 1.0f, ActiveFB, 1.0f, DriveFB,
                  f.drive, ActDrvFB, 1.0f);
        check(f.feedback, rig.play(impulse(201, f.in, -f.in)), 200);
    }
}

}  // namespace
}  // namespace tessel8::testing
