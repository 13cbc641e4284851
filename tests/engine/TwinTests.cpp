#include <random>
#include <sstream>

#include "Settings.h"
#include "support/TwinRig.h"

// The real loops against the scalar reference, bit by bit, over settings drawn at random. A
// failure prints the seed, the block and what was set.

namespace tessel8::testing {
namespace {

class Draw {
  public:
    explicit Draw(uint32_t seed) : random(seed) {}
    int32_t below(int32_t limit) { return int32_t(random() % uint32_t(limit)); }
    bool chance(double share) { return double(random()) < share * 4294967296.0; }
    float unit() { return float(random() >> 8) / 16777215.0f; }
    float toggle() { return chance(0.5) ? 1.0f : 0.0f; }
    /// Ends and middle come up more often than anything between.
    float value() { return chance(0.3) ? float(below(3)) * 0.5f : unit(); }

    int32_t delay(int32_t ringLen) {
        constexpr int32_t kShort[] = {0, 1, 2, 3, 17, 31, 32, 33, 63, 64, 65};
        const int32_t kind = below(4);
        return kind == 0     ? kShort[below(std::size(kShort))]
               : kind == 1   ? below(400)
               : kind == 2   ? 4410 + below(2000)  // long enough for feedback behind the processing
               : chance(0.2) ? ringLen - below(3)
                             : below(ringLen);  // the whole ring, too
    }

    Stereo sound(size_t frames) {
        const int32_t kind = below(4);
        if (kind >= 2) {
            return noise(frames, random(), kind == 2 ? 30.0f : 0.5f);  // 30 is far into the limits
        }
        Stereo s(frames);
        for (size_t i = 0; kind == 1 && i < frames; i += 1 + size_t(below(60))) {
            s.left[i] = unit();
            s.right[i] = -unit();
        }
        return s;
    }

  private:
    std::mt19937 random;
};

constexpr Family kTapValues[] = {Family::GainT, Family::WidthT, Family::PanTap, Family::AmtFBT};
constexpr Family kMasterValues[] = {Family::Input,  Family::Output, Family::Mix,     Family::GainFB,
                                    Family::PanFBL, Family::PanFBR, Family::SelectFB};
constexpr Family kTapSwitches[] = {Family::TAPtoFB, Family::FBPostT};
constexpr Family kTapProcessors[] = {Family::TypeFT,  Family::FreqFT,  Family::ResoFT,
                                     Family::GainFT,  Family::SourceF, Family::DepthFT,
                                     Family::PhaseFT, Family::DriveT,  Family::RevTap};
constexpr Family kTapProcessorSwitches[] = {Family::ActFltT, Family::PreDrvT, Family::ActDrvT,
                                            Family::ActRevT};
constexpr Family kMasterProcessors[] = {
    Family::TypeFFB, Family::FreqFFB, Family::ResoFFB,  Family::SourceFB, Family::DepthFB,
    Family::DriveFB, Family::FreqMod, Family::PhaseMod, Family::SourceEF, Family::SpeedEF,
    Family::WaveMod, Family::ModeRev, Family::TypeRev,  Family::DampRev,  Family::AmtRev};
constexpr Family kMasterProcessorSwitches[] = {Family::ActFltFB, Family::ActDrvFB, Family::ActRev,
                                               Family::ActMod};

struct FuzzRig : TwinRig {
    /// The seed chooses the instruction set as well, so that all of them are measured.
    explicit FuzzRig(uint32_t seed, float rate = kLowestRate)
        : TwinRig(setOf(seed), rate), draw(seed), seedOfRun(seed) {
        fillLines(seed);
    }

    static InstructionSet setOf(uint32_t seed) {
        const InstructionSet set = kInstructionSets[seed % kInstructionSets.size()];
        return isSupported(set) ? set : InstructionSet::Baseline;
    }

    void change(Family family, float value, int tap = 0) {
        set(family, value, tap);
        story << " " << parameterName(parameterIndex(family, tap)) << "=" << value;
    }

    void changeDelay(int tap) {
        change(Family::DelayT, delayValue(draw.delay(engine.ringLen)), tap);
    }

    /// One random change of anything but the feedback mode and, if told so, the taps' switches.
    void changeAnything(bool switches) {
        const int tap = draw.below(kTaps);
        const auto changeOne = [&](const auto& families, float value, int ofTap) {
            change(families[draw.below(int32_t(std::size(families)))], value, ofTap);
        };
        const int32_t what = draw.below(12);
        if (what == 0) {
            changeDelay(tap);
            if (draw.chance(0.7)) {
                endFades();
                story << " fades ended";
            }
        } else if (what == 1) {
            if (switches) {
                change(Family::ActTap, draw.toggle(), tap);
            }
        } else if (what < 4) {
            changeOne(kTapValues, draw.value(), tap);
        } else if (what < 6) {
            changeOne(kMasterValues, draw.value(), 0);
        } else if (what < 8) {
            changeOne(kTapSwitches, draw.toggle(), tap);
            if (draw.chance(0.2)) {
                change(Family::ActiveFB, draw.toggle());
            }
        } else if (what == 8) {
            changeOne(kTapProcessors, draw.value(), tap);
        } else if (what == 9) {
            changeOne(kTapProcessorSwitches, draw.toggle(), tap);
        } else if (what == 10) {
            changeOne(kMasterProcessors, draw.value(), 0);
        } else {
            changeOne(kMasterProcessorSwitches, draw.toggle(), 0);
        }
    }

    /// Settings to start from: a mode, switches of the taps, delays of every kind.
    void begin(float mode, bool highTaps) {
        change(Family::ModeFB, mode);
        for (int t = 0; t < kTaps; ++t) {
            const bool may = t < 4 || highTaps;
            change(Family::ActTap, may ? draw.toggle() : 0.0f, t);
            changeDelay(t);
            change(Family::AmtFBT, draw.value(), t);
        }
        if (highTaps) {
            change(Family::ActTap, 1.0f, 4 + draw.below(4));
        }
        for (int i = 0; i < 40; ++i) {
            changeAnything(false);
        }
        change(Family::Output, 0.5f);
        change(Family::ActiveFB, 1.0f);
        endFades();
        // Short fades, so that every part of one comes up within a few blocks.
        engine.fadeHoldLen = draw.below(500);
        engine.fadeStep = 1.0f / float(1 + draw.below(500));
        // Anywhere in the ring, often close before its end.
        const int32_t behind = draw.chance(0.5) ? 1 + draw.below(3000) : draw.below(engine.ringLen);
        engine.writePos = twin.writePos = engine.ringLen - 1 - behind;
    }

    /// Plays blocks of any size with changes between them.
    void run(int blocks, bool switches, bool modes) {
        for (int b = 0; b < blocks; ++b) {
            for (int i = draw.below(4); i > 0; --i) {
                changeAnything(switches);
            }
            if (modes && draw.chance(0.1)) {
                change(Family::ModeFB, float(draw.below(3)));
            }
            if (draw.chance(0.05)) {
                turnLfo((draw.unit() - 0.5f) * 6.28f);
            }
            const bool active = !draw.chance(0.02);
            const auto frames = size_t(draw.below(301));
            ASSERT_TRUE(playBlock(draw.sound(frames), active))
                << "in block " << b << " of " << frames << " frames, seed " << seedOfRun << "\n"
                << story.str();
            ASSERT_TRUE(sameState()) << "behind block " << b << ", seed " << seedOfRun << "\n"
                                     << story.str();
            story << "\n|" << frames << (active ? "|" : " passed through|");
        }
    }

    Draw draw;
    uint32_t seedOfRun;
    std::ostringstream story;
};

struct Fuzz {
    const char* name;
    float mode;
    bool highTaps;
};

class Twin : public ::testing::TestWithParam<Fuzz> {};
INSTANTIATE_TEST_SUITE_P(Loops, Twin,
                         ::testing::Values(Fuzz{"FourTapsMultiEcho", kMultiEcho, false},
                                           Fuzz{"FourTapsMultiTap", kMultiTap, false},
                                           Fuzz{"EightTapsMultiEcho", kMultiEcho, true},
                                           Fuzz{"EightTapsMultiTap", kMultiTap, true},
                                           Fuzz{"GatedInput", kMultiFb, true}),
                         nameOf);

constexpr uint32_t kRuns = 30;

float measure(uint32_t seed, float mode, bool highTaps, int blocks, bool switches, bool modes,
              float rate = kLowestRate) {
    FuzzRig rig(seed, rate);
    rig.begin(mode, highTaps);
    rig.run(blocks, switches, modes);
    EXPECT_TRUE(rig.sameLines()) << "seed " << seed;
    return rig.loudest;
}

TEST_P(Twin, GivesTheSameBitsForRandomSettingsAndWhileTapsAreSwitched) {
    float loudest = 0.0f;
    for (uint32_t seed = 1; seed <= kRuns && !HasFatalFailure(); ++seed) {
        const auto& [name, mode, highTaps] = GetParam();
        loudest = std::max(loudest, measure(seed, mode, highTaps, 30, false, false));
        measure(1000 + seed, mode, highTaps, 60, true, false);
    }
    EXPECT_GT(loudest, 1.0f);
}

TEST(TwinOfAllLoops, GivesTheSameBitsWhileTheModeChangesAndAtHigherRates) {
    for (uint32_t seed = 2001; seed <= 2000 + kRuns && !::testing::Test::HasFatalFailure();
         ++seed) {
        measure(seed, float(seed % 3), seed % 2 == 0, 100, true, true);
    }
    for (const float rate : {48000.0f, 96000.0f, 192000.0f}) {
        measure(uint32_t(rate), kMultiEcho, true, 60, true, true, rate);
    }
}

void playAll(FuzzRig& rig, const std::vector<size_t>& sizes) {
    rig.change(Family::GainFB, 0.9f);
    rig.change(Family::ActiveFB, 1.0f);
    rig.endFades();
    for (const size_t frames : sizes) {
        ASSERT_TRUE(rig.playBlock(noise(frames, uint32_t(frames)))) << rig.story.str();
    }
    EXPECT_GT(rig.loudest, 0.1f);
    EXPECT_TRUE(rig.sameLines()) << rig.story.str();
}

TEST(TwinOfAllLoops, GivesTheSameBitsForEveryTapOnTheBus) {
    for (int tap = 0; tap < kTaps; ++tap) {
        for (const bool on : {false, true}) {
            FuzzRig rig(uint32_t(3000 + 2 * tap + int(on)));
            for (int t = 0; t < kTaps; ++t) {
                rig.change(Family::ActTap, t == 0 || (on && t == tap) ? 1.0f : 0.0f, t);
                rig.changeDelay(t);
            }
            rig.change(Family::DelayT, rig.delayValue(4410 + tap), tap);
            rig.change(Family::ModeFB, kMultiTap);
            rig.change(Family::AmtFBT, 0.9f, tap);
            rig.change(Family::TAPtoFB, 1.0f, tap);
            rig.change(Family::FBPostT, 1.0f, tap);
            playAll(rig, {300, 1, 299, 64, 0, 33, 5000});
        }
    }
}

TEST(TwinOfAllLoops, GivesTheSameBitsForEveryShortDelayInAllTaps) {
    for (const float mode : {kMultiEcho, kMultiTap, kMultiFb}) {
        for (const int32_t delay : {0, 1, 3, 17, 31, 32, 33}) {
            FuzzRig rig(uint32_t(4000 + delay));
            rig.change(Family::ModeFB, mode);
            for (int t = 0; t < kTaps; ++t) {
                rig.change(Family::ActTap, 1.0f, t);
                rig.change(Family::DelayT, rig.delayValue(delay), t);
                rig.change(Family::AmtFBT, 0.1f * float(t + 1), t);
                rig.change(Family::TAPtoFB, 1.0f, t);
            }
            playAll(rig, {1000, 1, 32, 33, 31, 500});
        }
    }
}

TEST(TwinOfAllLoops, GivesTheSameBitsAfterTheProcessorsWereCleared) {
    FuzzRig rig(5000);
    rig.begin(kMultiEcho, true);
    rig.run(20, true, false);
    rig.engine.clear();
    rig.twin.clear();
    rig.run(20, true, false);
    rig.engine.clearRings();
    rig.twin.clearRings();
    rig.run(20, true, true);
    EXPECT_TRUE(rig.sameLines());
}

// A tap that nobody hears still has a read, a feedback and a filter that runs. Each shows when
// something turns to the tap.

TEST(TwinOfAllLoops, GivesTheSameBitsWhenTheFollowerOrASwitchTurnsToATapThatIsOff) {
    for (const int tap : {2, 6}) {
        FuzzRig rig(6000);
        rig.delay(tap, 500);
        rig.endFades();
        rig.set(Family::ActTap, 1.0f, 7);
        rig.set(Family::ActFltT, 1.0f, tap);
        rig.set(Family::FreqFT, 0.2f, tap);
        ASSERT_TRUE(rig.playBlock(noise(3000, 1)));
        rig.set(Family::SourceEF, float(tap + 1) / 9.0f);
        rig.set(Family::ActMod, 1.0f);
        ASSERT_TRUE(rig.playBlock(noise(300, 2)));
        EXPECT_TRUE(rig.sameState()) << "tap " << tap + 1;
        rig.set(Family::ActTap, 1.0f, tap);
        EXPECT_TRUE(rig.playBlock(noise(300, 2))) << "tap " << tap + 1;
    }
}

}  // namespace
}  // namespace tessel8::testing
