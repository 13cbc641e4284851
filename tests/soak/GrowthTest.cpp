// Effects that come and go, as in a host that is open for days: memory, files and threads of the
// process stay where they were.

#include <malloc.h>

#include <array>
#include <filesystem>
#include <memory>
#include <vector>

#include "support/PluginLibrary.h"

namespace {

using tessel8::testing::PluginLibrary;

intptr_t VST_CALL hostCallback(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

/// What the process holds: bytes taken and not given back, open files, threads. Its resident
/// size would tell of the allocator's reserves instead.
struct Holding {
    size_t bytes = 0;
    std::ptrdiff_t files = 0, threads = 0;

    static std::ptrdiff_t entries(const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }
    static Holding now() {
        const auto memory = mallinfo2();
        return {memory.uordblks + memory.hblkhd, entries("/proc/self/fd"),
                entries("/proc/self/task")};
    }
};

/// The life of an effect that sounds, saves and restores.
void live(const PluginLibrary& library) {
    AEffect* const effect = library.entry()(hostCallback);
    const auto send = [&](int32_t opcode, intptr_t value = 0, void* ptr = nullptr, float opt = 0) {
        return effect->dispatcher(effect, opcode, 0, value, ptr, opt);
    };
    send(effSetSampleRate, 0, nullptr, 48000.0f);
    send(effOpen);
    send(effMainsChanged, 1);
    std::array<std::vector<float>, 2> audio{std::vector<float>(512), std::vector<float>(512)};
    float* channels[] = {audio[0].data(), audio[1].data()};
    effect->processReplacing(effect, channels, channels, 512);
    void* data = nullptr;
    const intptr_t size = send(effGetChunk, 0, &data);
    std::vector<char> chunk(static_cast<char*>(data), static_cast<char*>(data) + size);
    send(effSetChunk, size, chunk.data());
    send(effMainsChanged, 0);
    send(effClose);
}

}  // namespace

TEST(FiveHundredEffects, LeaveTheProcessAsItWas) {
    constexpr int kWarm = 20, kCount = 500;
    constexpr size_t kSpread = 64 << 10;
    auto library = std::make_unique<PluginLibrary>();
    Holding before;
    for (int i = 0; i < kWarm + kCount; ++i) {
        if (i == kWarm) {
            before = Holding::now();
        }
        live(*library);
        if (i % 10 == 0) {  // as a scanner does between two questions
            library.reset();
            library = std::make_unique<PluginLibrary>();
        }
    }
    const Holding after = Holding::now();
    EXPECT_LT(after.bytes, before.bytes + kSpread);
    EXPECT_EQ(after.files, before.files);
    EXPECT_EQ(after.threads, before.threads);
}
