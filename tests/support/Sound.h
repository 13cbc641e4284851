#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessel8::testing {

/// Two channels of the same length.
struct Stereo {
    std::vector<float> left, right;

    explicit Stereo(size_t frames = 0) : left(frames, 0.0f), right(frames, 0.0f) {}
    size_t size() const { return left.size(); }
};

inline Stereo silence(size_t frames) {
    return Stereo(frames);
}

/// A single sample at `at`.
inline Stereo impulse(size_t frames, float left = 1.0f, float right = 1.0f, size_t at = 0) {
    Stereo s(frames);
    s.left[at] = left;
    s.right[at] = right;
    return s;
}

inline Stereo constant(size_t frames, float left, float right) {
    Stereo s(frames);
    s.left.assign(frames, left);
    s.right.assign(frames, right);
    return s;
}

/// White noise within +-`level`. `seed` makes it the same on every machine.
inline Stereo noise(size_t frames, uint32_t seed, float level = 1.0f) {
    uint64_t state = seed;
    const auto next = [&] {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return (float(state >> 40) / 8388608.0f - 1.0f) * level;
    };
    Stereo s(frames);
    for (size_t i = 0; i < frames; ++i) {
        s.left[i] = next();
        s.right[i] = next();
    }
    return s;
}

/// Every sample has the expected value; 0 and -0 are the same, and nothing equals a NaN.
inline ::testing::AssertionResult sameSamples(const std::vector<float>& expected,
                                              const std::vector<float>& got) {
    if (expected.size() != got.size()) {
        return ::testing::AssertionFailure()
               << "expected " << expected.size() << " samples, got " << got.size();
    }
    for (size_t i = 0; i < expected.size(); ++i) {
        if (!(expected[i] == got[i])) {
            return ::testing::AssertionFailure() << "first difference at " << i << ": expected "
                                                 << expected[i] << ", got " << got[i];
        }
    }
    return ::testing::AssertionSuccess();
}

inline ::testing::AssertionResult sameSound(const Stereo& expected, const Stereo& got) {
    auto left = sameSamples(expected.left, got.left);
    return left ? sameSamples(expected.right, got.right) << " (right)" : left << " (left)";
}

/// A sample that a test expects, at a level in double precision.
struct Echo {
    size_t frame;
    double level;
};

/// One channel is exactly zero but for the echoes, each within `tolerance` of its own level.
inline ::testing::AssertionResult onlyEchoes(const std::vector<Echo>& echoes,
                                             const std::vector<float>& got, double tolerance) {
    std::vector<double> expected(got.size(), 0.0);
    for (const Echo& echo : echoes) {
        if (echo.frame < got.size()) {
            expected[echo.frame] += echo.level;
        }
    }
    for (size_t i = 0; i < got.size(); ++i) {
        const double error = std::fabs(double(got[i]) - expected[i]);
        if (!(error <= tolerance * std::fabs(expected[i]))) {
            return ::testing::AssertionFailure() << "first difference at " << i << ": expected "
                                                 << expected[i] << ", got " << got[i];
        }
    }
    return ::testing::AssertionSuccess();
}

}  // namespace tessel8::testing
