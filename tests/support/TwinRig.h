#pragma once

// The engine and its scalar twin, told the same and played the same.

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

#include "reference/ScalarEngine.h"
#include "support/Rig.h"

namespace tessel8::testing {

struct TwinRig : Rig {
    reference::ScalarEngine twin;

    explicit TwinRig(InstructionSet isa, float rate = kLowestRate) : Rig(rate, isa), twin(engine) {
        for (int tap = 0; tap < kTaps; ++tap) {
            twin.snapTapFilterGain(tap);
        }
        later([this] { twin.respreadLfo(); });
        later([this] { twin.buildReverb(); });
    }

    /// Applies a value and asks the twin for what the engine will carry out with its next block.
    void set(Family family, float value, int tap = 0) {
        const int32_t typeBefore = tapType(tap);
        Rig::set(family, value, tap);
        if (family == Family::DelayT) {
            fades[size_t(tap)] = true;
        } else if (family == Family::ActFltT ||
                   (family == Family::TypeFT && tapType(tap) != typeBefore)) {
            later([=, this] { twin.clearTapFilter(tap); });
        } else if (family == Family::TypeFFB) {
            later([this] { twin.clearFeedback(); });
        } else if (family == Family::ActFltFB) {
            later([this] { twin.clearFbBiquad(); });
        } else if (family == Family::PhaseMod) {
            later([this] { twin.respreadLfo(); });
        } else if (family == Family::TypeRev) {
            later([this] { twin.buildReverb(); });
        }
        if (family == Family::TypeFT) {
            // To the target of this moment: a later gain change glides from here.
            twin.snapTapFilterGain(tap);
        }
    }

    void delay(int tap, int32_t samples) { set(Family::DelayT, delayValue(samples), tap); }

    /// All taps at full level; fades that were asked for and not yet begun are forgotten.
    void endFades() {
        engine.endFades();
        twin.endFades();
        fades = {};
    }

    /// Turns the LFO of both, as the song position does.
    void turnLfo(float radians) {
        engine.lfo.setPhase(radians);
        twin.setLfoPhase(radians);
    }

    /// Fills all lines of both with the same noise, as if it had been playing for ever.
    void fillLines(uint32_t seed) {
        const auto frames = size_t(engine.ringLen);
        for (size_t group = 0; group < 2; ++group) {
            for (int lane = 0; lane < DelayRing::kLines; ++lane) {
                const Stereo s = noise(frames, ++seed);
                std::copy_n(s.left.begin(), frames, engine.ringL[group].line(lane));
                std::copy_n(s.right.begin(), frames, engine.ringR[group].line(lane));
            }
        }
        twin.copyLines();
    }

    /// Plays one block through both, the engine in place, and compares output and meters.
    ::testing::AssertionResult playBlock(const Stereo& input, bool active = true) {
        Stereo expected(input.size());
        Stereo got = input;
        const auto frames = int32_t(input.size());
        const float* const in[] = {input.left.data(), input.right.data()};
        float* const out[] = {got.left.data(), got.right.data()};
        float* const twinOut[] = {expected.left.data(), expected.right.data()};
        if (active) {
            block(out, out, frames);
            const DenormalGuard guard;
            carryOut();
            twin.beginBlock();
            twin.process(in, twinOut, frames);
        } else {
            engine.passThrough(out, out, frames);
            twin.passThrough(in, twinOut, frames);
        }
        for (size_t i = 0; i < input.size(); ++i) {
            loudest = std::max({loudest, std::fabs(got.left[i]), std::fabs(got.right[i])});
        }
        if (auto result = sameSound(expected, got); !result) {
            return result;
        }
        std::vector<float> levels;
        for (const auto& meter : engine.meters) {
            levels.push_back(meter.load());
        }
        const std::vector<float> expectedLevels(twin.meters.begin(), twin.meters.end());
        return sameSamples(expectedLevels, levels) << " (meters)";
    }

    /// Compares everything that stands in the lines.
    ::testing::AssertionResult sameLines() const {
        for (int t = 0; t < kTaps; ++t) {
            const auto group = size_t(t / DelayRing::kLines);
            const auto same = [&](const std::vector<float>& expected, const DelayRing& ring) {
                const float* const line = ring.line(t % DelayRing::kLines);
                return sameSamples(expected, {line, line + engine.ringLen}) << " (tap " << t << ")";
            };
            auto left = same(twin.lineL[size_t(t)], engine.ringL[group]);
            if (auto r = left ? same(twin.lineR[size_t(t)], engine.ringR[group]) : left; !r) {
                return r;
            }
        }
        return ::testing::AssertionSuccess();
    }

    /// Compares the running state that a later block starts from.
    ::testing::AssertionResult sameState() const {
        std::vector<float> expected, got;
        const auto pair = [&](float ofTwin, float ofEngine) {
            expected.push_back(ofTwin);
            got.push_back(ofEngine);
        };
        for (size_t t = 0; t < kTaps; ++t) {
            pair(twin.taps[t].fade, engine.tapFade[t]);
            pair(twin.taps[t].gain, engine.tapGainSmooth[t]);
            pair(twin.taps[t].panL, engine.panGainSmoothL[t]);
            pair(twin.taps[t].panR, engine.panGainSmoothR[t]);
            pair(twin.taps[t].freq, engine.tapFreqSmooth[t]);
            pair(twin.taps[t].fltGain, engine.tapFltGainSmooth[t]);
            pair(twin.taps[t].fltRoot, engine.tapFltRootSmooth[t]);
        }
        for (size_t lane = 0; lane < 3; ++lane) {
            pair(twin.mixSmooth[lane], engine.mixSmooth[lane]);
        }
        pair(float(twin.writePos), float(engine.writePos));
        pair(float(twin.fadeHoldCount), float(engine.fadeHoldCount));
        pair(twin.follower.mean, engine.follower.mean);
        pair(twin.follower.dev, engine.follower.dev);
        pair(twin.follower.fast, engine.follower.fast);
        pair(twin.lfo.phase, engine.lfo.phase);
        pair(twin.lfo.phasePos, engine.lfo.phasePos);
        pair(twin.lfo.phaseNeg, engine.lfo.phaseNeg);
        return sameSamples(expected, got) << " (state: seven values a tap, then the rest)";
    }

    /// Largest output so far: a comparison of silence would prove nothing.
    float loudest = 0.0f;

  private:
    void carryOut() {
        for (int tap = 0; tap < kTaps; ++tap) {
            if (fades[size_t(tap)]) {
                twin.restartFade(tap);
            }
        }
        for (const auto& request : requests) {
            request();
        }
        fades = {};
        requests.clear();
    }
    void later(std::function<void()> request) { requests.push_back(std::move(request)); }
    /// Step of the tap's filter type, eight of them.
    int32_t tapType(int tap) const {
        return int32_t(std::lround(parameters.applied(parameterIndex(Family::TypeFT, tap)) * 7.0f));
    }

    std::array<bool, kTaps> fades{};
    std::vector<std::function<void()>> requests;
};

}  // namespace tessel8::testing
