// The sound, fixed bit by bit: a hash of every setting, the same on every instruction set. To
// renew it after a change of sound that is meant, run sound_tests with TESSEL8_RENEW_GOLDEN=1 in
// the environment and read the difference of golden.txt before committing it.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>

#include "Render.h"

namespace tessel8::test {
namespace {

constexpr int32_t kFrames = 44100;
constexpr float kRate = 44100.0f;
constexpr int32_t kBlock = 256;

/// FNV-1a over the samples' bytes; a negative zero counts as zero.
uint64_t hashOf(const Audio& audio) {
    uint64_t hash = 14695981039346656037u;
    for (const auto* channel : {&audio.left, &audio.right}) {
        for (const float sample : *channel) {
            const float plain = sample + 0.0f;
            uint32_t bits = 0;
            std::memcpy(&bits, &plain, sizeof bits);
            for (int byte = 0; byte < 4; ++byte) {
                hash = (hash ^ (bits >> 8 * byte & 0xffu)) * 1099511628211u;
            }
        }
    }
    return hash;
}

std::map<std::string, std::string> readGolden() {
    std::map<std::string, std::string> golden;
    std::ifstream file(TESSEL8_GOLDEN);
    for (std::string hash, name; file >> hash && std::getline(file >> std::ws, name);) {
        golden[name] = hash;
    }
    return golden;
}

std::string hexOf(uint64_t value) {
    char text[20];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(value));
    return text;
}

bool isFinite(const Audio& audio) {
    const auto finite = [](float x) { return std::isfinite(x); };
    return std::all_of(audio.left.begin(), audio.left.end(), finite) &&
           std::all_of(audio.right.begin(), audio.right.end(), finite);
}

std::vector<Setting> allSettings() {
    std::vector<Setting> all = soundSettings();
    for (Setting& setting : factorySettings()) {
        all.push_back(std::move(setting));
    }
    return all;
}

TEST(GoldenSound, EverySettingSoundsAsItDid) {
    const Audio in = testMaterial(kFrames);
    if (std::getenv("TESSEL8_RENEW_GOLDEN")) {
        std::ofstream file(TESSEL8_GOLDEN);
        for (const Setting& setting : allSettings()) {
            const Audio out = render(setting, in, kRate, kBlock, InstructionSet::Baseline);
            file << hexOf(hashOf(out)) << "  " << setting.name << '\n';
        }
    }
    const auto golden = readGolden();
    for (const Setting& setting : allSettings()) {
        const auto row = golden.find(setting.name);
        ASSERT_NE(row, golden.end()) << "no hash for " << setting.name;
        const Audio out = render(setting, in, kRate, kBlock, InstructionSet::Baseline);
        EXPECT_EQ(hexOf(hashOf(out)), row->second) << setting.name;
        EXPECT_TRUE(isFinite(out)) << setting.name;
    }
    EXPECT_EQ(golden.size(), allSettings().size());
}

TEST(GoldenSound, NoTwoSettingsSoundAlike) {
    std::map<std::string, std::string> names;
    for (const auto& [name, hash] : readGolden()) {
        EXPECT_TRUE(names.emplace(hash, name).second) << name << " = " << names[hash];
    }
}

TEST(InstructionSets, AllGiveTheSameBits) {
    const Audio in = testMaterial(24000);
    for (const float rate : {44100.0f, 192000.0f}) {
        for (const Setting& setting : soundSettings()) {
            const Audio expected = render(setting, in, rate, 97, InstructionSet::Baseline);
            for (const InstructionSet set : kInstructionSets) {
                if (isSupported(set)) {
                    const Audio got = render(setting, in, rate, 97, set);
                    EXPECT_TRUE(got == expected)
                        << setting.name << " differs on " << nameOf(set) << " at " << rate;
                }
            }
        }
    }
}

TEST(InstructionSets, AllGiveTheSameBitsOfEveryProgram) {
    const Audio in = testMaterial(24000);
    for (const Setting& setting : factorySettings()) {
        const Audio expected = render(setting, in, 48000.0f, 256, InstructionSet::Baseline);
        for (const InstructionSet set : kInstructionSets) {
            if (isSupported(set)) {
                EXPECT_TRUE(render(setting, in, 48000.0f, 256, set) == expected)
                    << setting.name << " differs on " << nameOf(set);
            }
        }
    }
}

TEST(BlockSizes, DoNotChangeTheSound) {
    const Audio in = testMaterial(24000);
    for (const Setting& setting : soundSettings()) {
        // The reverb's offset of 1e-18 changes sign with the frame's place in its block.
        const bool hasReverb = setting.name.find("spring") != std::string::npos ||
                               setting.name.find("plate") != std::string::npos ||
                               setting.name == "everything";
        const Audio expected = render(setting, in, kRate, 24000, bestInstructionSet());
        for (const int32_t block : {1, 7, 64, 1000}) {
            const Audio got = render(setting, in, kRate, block, bestInstructionSet());
            if (!hasReverb) {
                EXPECT_TRUE(got == expected) << setting.name << " in blocks of " << block;
                continue;
            }
            for (size_t i = 0; i < got.left.size(); ++i) {
                ASSERT_NEAR(got.left[i], expected.left[i], 1e-15)
                    << setting.name << " in blocks of " << block << " at " << i;
            }
        }
    }
}

}  // namespace
}  // namespace tessel8::test
