// Reverb: sends, damping, type.

#include "parameters/ParametersFixture.h"

namespace tessel8 {

namespace {

class ReverbLaws : public ParametersTest {
  protected:
    void expectSend(int tap, float send) {
        EXPECT_EQ(engine.revSend[size_t(tap)], send) << "tap " << tap + 1;
        EXPECT_EQ(engine.revDirect[size_t(tap)], 1.0f - send) << "tap " << tap + 1;
    }
    void expectDecay(double decay, double a, double b, double damp) {
        EXPECT_NEAR(engine.reverb.decay, decay, 1e-6);
        EXPECT_NEAR(engine.reverb.decayA, a, 1e-6);
        EXPECT_NEAR(engine.reverb.decayB, b, 1e-6);
        EXPECT_NEAR(engine.reverb.dampCoef, damp, 1e-6);
    }
};

}  // namespace

TEST_F(ReverbLaws, ATapSendsOnlyWhileReverbAndTapAreOnAndTheReverbStandsOnTheTaps) {
    set(at::RevTap, 0.25f);
    set(at::RevTap + 7, 0.75f);
    set(at::ActRevT, 1.0f);
    set(at::ActRevT + 7, 0.1f);
    expectSend(0, 0.0f);  // the reverb is still off
    set(at::ActRev, 1.0f);
    expectSend(0, 0.25f);
    expectSend(7, 0.75f);
    expectSend(3, 0.0f);
    set(at::RevTap, 1.0f);
    expectSend(0, 1.0f);
    set(at::ModeRev, 0.2f);
    EXPECT_NE(engine.reverb.acrossOutput, 0);
    expectSend(0, 0.0f);
    expectSend(7, 0.0f);
    set(at::ActRevT + 3, 1.0f);
    expectSend(3, 0.0f);
    set(at::ModeRev, 0.0f);
    expectSend(3, 0.5f);
    set(at::ActRev, 0.0f);
    expectSend(7, 0.0f);
    EXPECT_EQ(engine.reverb.on, 0);
    set(at::AmtRev, 0.375f);
    EXPECT_EQ(engine.reverb.amount, 0.375f);
}

TEST_F(ReverbLaws, DampingSetsTheDecayOfBothTypes) {
    // h = 0.5^(0.01 * 100^(1 - d)): 0.5 at 0, 0.5^0.1 at a half, 0.5^0.01 at 1.
    const std::pair<float, double> kPoints[] = {
        {0.0f, 0.5}, {0.5f, 0.93303299}, {1.0f, 0.99309249}};
    for (const auto& [d, h] : kPoints) {
        set(at::TypeRev, 0.49f);
        set(at::DampRev, d);
        const double spring = h * 0.74833148;
        expectDecay(spring, 0.7 * spring, 0.3 * spring, 0.52 * double(d) + 0.2);
        set(at::TypeRev, 0.5f);  // after the damping, and again before it
        expectDecay(h, h, std::pow(h, 0.25), 0.4 * double(d) + 0.4);
        set(at::DampRev, d);
        expectDecay(h, h, std::pow(h, 0.25), 0.4 * double(d) + 0.4);
    }
}

TEST_F(ReverbLaws, ATypeIsBuiltForTheRateOrFor44100WhereThatIsAbsurd) {
    const struct {
        float given;
        double used;
    } kRates[] = {{48000.0f, 48000.0},
                  {192000.0f, 192000.0},
                  {22050.0f, 22050.0},
                  {22049.0f, 44100.0},
                  {192001.0f, 44100.0}};
    for (const auto& rate : kRates) {
        for (const float type : {0.0f, 1.0f}) {
            parameters.setSampleRate(rate.given);
            set(at::TypeRev, type);
            engine.beginBlock();
            const double w = (type == 0.0f ? 5026.4 : 12566.0) / rate.used;
            const double a = std::sin(w) / (type == 0.0f ? 0.2 : 0.12);
            const auto& band = engine.reverb.band;
            EXPECT_EQ(engine.reverb.plate != 0, type != 0.0f);
            EXPECT_NEAR(band.b0, a / (1.0 + a), 1e-6) << rate.given;
            EXPECT_NEAR(band.b2, -a / (1.0 + a), 1e-6) << rate.given;
            EXPECT_NEAR(band.a1, -2.0 * std::cos(w) / (1.0 + a), 1e-6) << rate.given;
            EXPECT_NEAR(band.a2, (1.0 - a) / (1.0 + a), 1e-6) << rate.given;
        }
    }
}

}  // namespace tessel8
