// Memory: what a missing piece of it does to creation and to a change of rate, and that nothing
// else asks for any. This program's memory functions count, and fail when told to.

#include <atomic>
#include <cstdlib>
#include <new>

#include "shell/FakeHost.h"

namespace {

std::atomic<long> made{0};       // allocations so far
std::atomic<long> live{0};       // of these, not yet freed
std::atomic<long> untilFail{0};  // the allocation that fails, counted from now; 0 for none

void* take(std::size_t size, std::size_t alignment) noexcept {
    if (untilFail > 0 && --untilFail == 0) {
        return nullptr;
    }
    const std::size_t whole = (size + alignment) / alignment * alignment;
    void* const memory = std::aligned_alloc(alignment, whole);
    ++made;
    live += memory != nullptr;
    return memory;
}

void* takeOrThrow(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
    void* const memory = take(size, alignment);
    return memory ? memory : throw std::bad_alloc();
}

void give(void* memory) noexcept {
    live -= memory != nullptr;
    std::free(memory);
}

constexpr std::size_t kPlain = alignof(std::max_align_t);

}  // namespace

// clang-format off
void* operator new(std::size_t n) { return takeOrThrow(n); }
void* operator new[](std::size_t n) { return takeOrThrow(n); }
void* operator new(std::size_t n, std::align_val_t a) { return takeOrThrow(n, std::size_t(a)); }
void* operator new[](std::size_t n, std::align_val_t a) { return takeOrThrow(n, std::size_t(a)); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return take(n, kPlain); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return take(n, kPlain); }
void* operator new(std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept { return take(n, std::size_t(a)); }
void* operator new[](std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept { return take(n, std::size_t(a)); }
void operator delete(void* p) noexcept { give(p); }
void operator delete[](void* p) noexcept { give(p); }
void operator delete(void* p, std::size_t) noexcept { give(p); }
void operator delete[](void* p, std::size_t) noexcept { give(p); }
void operator delete(void* p, std::align_val_t) noexcept { give(p); }
void operator delete[](void* p, std::align_val_t) noexcept { give(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { give(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { give(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { give(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { give(p); }
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { give(p); }
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept { give(p); }
// clang-format on

namespace tessel8 {

namespace {

constexpr long kMoreThanEnough = 1000;

/// Lets the n-th allocation of `action` fail; false if there are fewer.
template <typename Action>
bool failNth(long n, Action action) {
    untilFail = n;
    action();
    return untilFail.exchange(0) == 0;
}

}  // namespace

TEST(Allocation, CreationThatLacksMemoryGivesNoEffectOrOneWithoutChunks) {
    resetHost();
    long n = 1;
    for (bool failed = true; failed && n < kMoreThanEnough; ++n) {
        const long before = live;
        AEffect* effect = nullptr;
        failed = failNth(n, [&] { effect = VSTPluginMain(hostCallback); });
        EXPECT_TRUE(effect || failed) << "allocation " << n;
        if (effect) {
            EXPECT_GT(live, before);
            void* data = nullptr;
            EXPECT_EQ(effect->dispatcher(effect, effGetChunk, 0, 0, &data, 0.0f),
                      failed ? 0 : 986769);
            EXPECT_EQ(effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0f), 1);
        }
        EXPECT_EQ(live, before) << "allocation " << n;
    }
    EXPECT_GT(n, 2);
    EXPECT_LT(n, kMoreThanEnough);
}

TEST(Allocation, ARateThatLacksMemoryLeavesTheEffectTransparentUntilTheNextOne) {
    for (const bool hasOldMemory : {false, true}) {
        HostedEffect hosted;
        long n = 1;
        for (bool failed = true; failed && n < kMoreThanEnough; ++n) {
            if (hasOldMemory) {
                hosted.rate(48000.0f);
                hosted.mains(true);
                EXPECT_EQ(hosted.status(), 0);
                EXPECT_FALSE(hosted.isTransparent()) << "allocation " << n;
            }
            failed = failNth(n, [&] { hosted.rate(44100.0f); });
            if (!failed) {
                break;
            }
            SCOPED_TRACE(n);
            EXPECT_EQ(hosted.status(), 1);
            EXPECT_TRUE(hosted.isTransparent());
            hosted.mains(false);
            EXPECT_TRUE(hosted.isTransparent());
            hosted.mains(true);
            EXPECT_EQ(hosted.status(), 1);
            hosted.object().requestPanic(true);
            EXPECT_TRUE(hosted.isTransparent());
            EXPECT_TRUE(hosted.isTransparent());
        }
        EXPECT_GT(n, 1);
        EXPECT_LT(n, kMoreThanEnough);
        hosted.mains(true);
        EXPECT_EQ(hosted.status(), 0);
        EXPECT_FALSE(hosted.isTransparent());
    }
}

TEST(Allocation, NothingButCreationAndRateAsksForMemory) {
    HostedEffect hosted;
    host.knowsTime = true;
    host.time.tempo = 100.0;
    host.time.flags = kVstTempoValid | kVstPpqPosValid;
    hosted.rate(44100.0f);
    hosted.mains(true);
    const long before = made;
    for (int32_t index = -2; index < 430; ++index) {
        for (const float v : {0.0f, 0.3f, 1.0f}) {
            char text[64] = "";
            hosted.set(index, v);
            hosted.noise();
            hosted.get(index);
            hosted.send(effGetParamDisplay, index, 0, text);
        }
    }
    hosted.set(192, 2.0f);
    hosted.noise();
    hosted.mains(false);
    hosted.noise();
    hosted.mains(true);
    EXPECT_EQ(made, before);
}

}  // namespace tessel8
