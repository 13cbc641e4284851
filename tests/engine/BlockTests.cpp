#include "Settings.h"

namespace tessel8::testing {
namespace {

/// Everything that the loop of this case has moves and feeds back.
void makeBusy(Rig& rig, const LoopCase& loop) {
    constexpr int32_t kDelays[] = {5, 40, 4500, 333, 1, 6000, 77, 0};
    for (int t = 0; t < kTaps; ++t) {
        rig.set(Family::ActTap, t < 4 || loop.tap != 0 ? 1.0f : 0.0f, t);
        rig.delay(t, kDelays[t]);
        rig.set(Family::PanTap, float(t) / 7.0f, t);
        rig.set(Family::WidthT, 0.2f + float(t) / 10.0f, t);
    }
    rig.set(Family::ModeFB, loop.mode);
    for (int t = 0; t < kTaps; ++t) {
        rig.set(Family::AmtFBT, 0.3f + float(t) / 20.0f, t);
        rig.set(Family::TAPtoFB, 1.0f, t);
    }
    rig.set(Family::FBPostT, 1.0f, 2);
    rig.set(Family::SelectFB, 0.25f);
    rig.set(Family::GainFB, 0.4f);
    rig.set(Family::ActiveFB, 1.0f);
    rig.engine.endFades();
}

class Blocks : public ::testing::TestWithParam<LoopCase> {};
INSTANTIATE_TEST_SUITE_P(Loops, Blocks, ::testing::ValuesIn(kLoops), nameOf);

TEST_P(Blocks, OfAnySizeGiveTheSameSound) {
    const Stereo in = noise(20000, 42, 0.5f);
    const auto played = [&](const std::vector<int32_t>& sizes) {
        Rig rig;
        makeBusy(rig, GetParam());
        return rig.play(in, sizes);
    };
    const Stereo whole = played({20000});
    EXPECT_TRUE(std::any_of(whole.left.begin(), whole.left.end(),
                            [](float x) { return std::fabs(x) > 0.1f; }));
    EXPECT_TRUE(sameSound(whole, played({1})));
    EXPECT_TRUE(sameSound(whole, played({31, 0, 33, 7, 300})));
    EXPECT_TRUE(sameSound(whole, played({64})));
    EXPECT_TRUE(sameSound(whole, played({2, 5, 0, 0, 1021})));
}

TEST_P(Blocks, MayBeProcessedInPlace) {
    const Stereo in = noise(5000, 43, 0.5f);
    Rig apart;
    makeBusy(apart, GetParam());
    const Stereo expected = apart.play(in, {5000});
    Rig inPlace;
    makeBusy(inPlace, GetParam());
    Stereo sound = in;
    float* const both[] = {sound.left.data(), sound.right.data()};
    inPlace.block(both, both, 5000);
    EXPECT_TRUE(sameSound(expected, sound));
}

TEST_P(Blocks, OfNoFramesTouchNoSample) {
    Rig rig;
    makeBusy(rig, GetParam());
    rig.play(noise(1000, 44));
    const int32_t position = rig.engine.writePos;
    rig.block(nullptr, nullptr, 0);
    EXPECT_EQ(position, rig.engine.writePos);
}

TEST_P(Blocks, PlaySineAndSilenceWithoutANumberThatIsNone) {
    Rig rig;
    makeBusy(rig, GetParam());
    Stereo in = sine(10000, 100.3);
    in.append(silence(30000));
    const Stereo out = rig.play(in, {256});
    for (size_t i = 0; i < out.size(); ++i) {
        ASSERT_TRUE(std::fabs(out.left[i]) <= 16.0f && std::fabs(out.right[i]) <= 16.0f) << i;
    }
}

}  // namespace
}  // namespace tessel8::testing
