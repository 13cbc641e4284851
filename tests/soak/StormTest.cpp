// Three effects in one host, and on each of them audio, state, editor and the user's hands at
// once, for TESSEL8_STORM_SECONDS (4) from TESSEL8_STORM_SEED (1).

#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>

#include "soak/StormHost.h"
#include "support/XClient.h"

namespace tessel8::testing {

namespace {

constexpr size_t kInstances = 3;

uint32_t fromEnvironment(const char* name, uint32_t otherwise) {
    const char* text = std::getenv(name);
    return text ? uint32_t(std::strtoul(text, nullptr, 10)) : otherwise;
}

class Storm : public ::testing::Test {
  protected:
    void SetUp() override {
        for (size_t i = 0; i < kInstances; ++i) {
            instances[i] = std::make_unique<StormInstance>(library);
            parents[i] = user.makeParent(870, 565);
            user.map(parents[i]);
            copies.push_back(instances[i]->state());
        }
    }

    /// Starts a thread that does something to one of several effects again and again; pauses in
    /// microseconds.
    void start(const std::function<void(size_t, Random&)>& act, size_t firstOf, size_t count,
               uint32_t longestPause = 500) {
        const size_t number = passes.size();
        passes.push_back(std::make_unique<std::atomic<uint64_t>>(0));
        threads.emplace_back([=, this, &pass = *passes.back()] {
            for (Random random(seed + uint32_t(number)); !done; ++pass) {
                const size_t which = firstOf + random() % count;
                if (!instances[which]->isLeaving) {
                    const std::shared_lock lock(instances[which]->life);
                    act(which, random);
                }
                std::this_thread::sleep_for(std::chrono::microseconds(random() % longestPause));
            }
        });
    }

    /// What a host's main thread does: values, texts, state, names, rates.
    void command(size_t which, Random& random) {
        StormInstance& one = *instances[which];
        const auto index = int32_t(random() % (kParameters + 2)) - 1;
        std::array<char, 256> text{};
        switch (random() % 32) {
            case 0:
                one.changeRate(random);
                break;
            case 1:
                one.restart();
                break;
            case 2:
                copies[random() % copies.size()] = one.state();
                break;
            case 3:
                one.restore(copies[random() % copies.size()]);
                break;
            case 4: {
                Bytes broken = copies[random() % copies.size()];
                broken[random() % broken.size()] ^= char(1 << random() % 8);
                broken.resize(random() % 4 ? broken.size() : random() % broken.size());
                one.restore(broken);
                break;
            }
            case 5:
                text[random() % 30] = 'x';
                one.send(effSetProgramName, 0, 0, text.data());
                one.send(effGetProgramName, 0, 0, text.data());
                break;
            case 6:
                for (const int32_t asked :
                     {effGetParamName, effGetParamLabel, effGetParamDisplay}) {
                    one.send(asked, index, 0, text.data());
                }
                break;
            case 7:
                one.send(effSetBlockSize, 0, intptr_t(random() % 10000));
                one.send(effGetProgramNameIndexed, 0, index, text.data());
                break;
            default:
                one.effect->setParameter(one.effect, index, float(random() % 101) / 100.0f);
                one.effect->getParameter(one.effect, index);
        }
    }

    /// The thread on which some hosts keep the editors.
    void editor(size_t which, Random& random) {
        StormInstance& one = *instances[which];
        ERect* rect = nullptr;
        switch (random() % 60) {
            case 0:
                one.isEditorOpen = !one.isEditorOpen;
                one.send(one.isEditorOpen ? effEditOpen : effEditClose, 0, 0,
                         reinterpret_cast<void*>(uintptr_t(parents[which])));
                break;
            case 1:
                one.send(effEditGetRect, 0, 0, &rect);
                break;
            case 2:
                one.send(effEditKeyDown, int32_t(random() % 128), intptr_t(random() % 60));
                one.send(effEditKeyUp, int32_t(random() % 128), intptr_t(random() % 60));
                break;
            default:
                one.send(effEditIdle);
        }
    }

    /// The user's hands on what lies on top: the taps and the reverb, nothing that opens a file.
    void hands(Random& random) {
        const bool isTap = random() % 4 != 0;
        const auto x = int(isTap ? 25 + random() % 830 : 680 + random() % 150);
        const auto y = int(isTap ? 195 + random() % 330 : 20 + random() % 140);
        const auto button = uint8_t(random() % 8 ? 1 : 3 + random() % 3);
        user.moveTo(x, y);
        user.press(button);
        user.moveTo(x + int(random() % 100) - 50, y + int(random() % 100) - 50);
        user.release(button);
        if (random() % 8 == 0) {
            user.type(random() % 2 ? "5 0 Return" : "Escape");
        }
    }

    /// Whether every thread has come on within the last seconds; a lock that nobody gives back
    /// would hold the test for ever.
    void watch(uint32_t seconds) {
        constexpr uint32_t kPatience = 60;
        std::vector<uint64_t> seen(passes.size());
        std::vector<uint32_t> still(passes.size());
        for (uint32_t second = 0; second < seconds && !HasFatalFailure(); ++second) {
            std::this_thread::sleep_for(std::chrono::seconds(1));
            for (size_t i = 0; i < seen.size(); ++i) {
                still[i] = *passes[i] == seen[i] ? still[i] + 1 : 0;
                seen[i] = *passes[i];
                if (still[i] == kPatience) {
                    std::fprintf(stderr, "thread %zu stands still\n", i);
                    std::abort();
                }
            }
        }
        done = true;
        for (std::thread& thread : threads) {
            thread.join();
        }
        std::printf("passes of audio (each), commands, editor, hands:");
        for (const auto& pass : passes) {
            std::printf(" %llu", static_cast<unsigned long long>(*pass));
        }
        std::printf("\n");
    }

    const uint32_t seed = fromEnvironment("TESSEL8_STORM_SEED", 1);
    XClient user;
    PluginLibrary library;
    std::array<std::unique_ptr<StormInstance>, kInstances> instances;
    std::array<xcb_window_t, kInstances> parents{};
    std::vector<Bytes> copies;  ///< of the main thread
    std::atomic<bool> done{false};
    std::vector<std::unique_ptr<std::atomic<uint64_t>>> passes;
    std::vector<std::thread> threads;
};

}  // namespace

TEST_F(Storm, LeavesEffectsThatSoundAndKeepTheirState) {
    for (size_t i = 0; i < kInstances; ++i) {
        start([this](size_t which, Random& random) { instances[which]->block(random); }, i, 1);
    }
    start([this](size_t which, Random& random) { command(which, random); }, 0, kInstances);
    start([this](size_t which, Random& random) { editor(which, random); }, 0, kInstances);
    start([this](size_t, Random& random) { hands(random); }, 0, kInstances, 20000);
    std::thread renewal([this] {
        for (Random random(seed); !done; std::this_thread::sleep_for(std::chrono::seconds(1))) {
            instances[random() % kInstances]->replace();
        }
    });
    watch(fromEnvironment("TESSEL8_STORM_SECONDS", 4));
    renewal.join();

    for (auto& one : instances) {
        const Bytes left = one->state();
        EXPECT_EQ(one->restore(left), 0);
        EXPECT_EQ(one->state(), left);
        Random random(seed);
        for (int i = 0; i < 100; ++i) {
            one->block(random);
        }
    }
}

}  // namespace tessel8::testing
