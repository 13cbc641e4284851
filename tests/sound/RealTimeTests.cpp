// A block must never wait: no allocation, no lock, no system call, whatever was changed before
// it. This program puts itself in front of the allocator and the locks and counts what a block
// uses; system calls are left to the kernel, which ends a child process at the first one.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "shell/Tessel8.h"

namespace {

thread_local bool inBlock = false;
thread_local int uses = 0;

void note() {
    uses += inBlock;
}

}  // namespace

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's own names
void* __libc_malloc(size_t size);
void __libc_free(void* memory);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(size_t size) {
    note();
    return __libc_malloc(size);
}
void free(void* memory) {
    note();
    __libc_free(memory);
}
void* calloc(size_t count, size_t size) {
    note();
    return __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
    note();
    return __libc_realloc(memory, size);
}
void* aligned_alloc(size_t alignment, size_t size) {
    note();
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, size_t alignment, size_t size) {
    note();
    *memory = __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}
int pthread_mutex_lock(pthread_mutex_t* mutex) {
    using Lock = int (*)(pthread_mutex_t*);
    static const auto next = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    note();
    return next(mutex);
}
int pthread_rwlock_wrlock(pthread_rwlock_t* lock) {
    using Lock = int (*)(pthread_rwlock_t*);
    static const auto next = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_rwlock_wrlock"));
    note();
    return next(lock);
}
}

namespace tessel8::test {
namespace {

intptr_t host(AEffect* /*effect*/, int32_t opcode, int32_t /*index*/, intptr_t /*value*/,
              void* /*ptr*/, float /*opt*/) {
    static VstTimeInfo time{};
    time.tempo = 97.0;
    time.ppqPos += 0.1;
    time.flags = kVstTempoValid | kVstPpqPosValid;
    switch (opcode) {
        case audioMasterVersion:
            return kVstVersion;
        case audioMasterGetTime:
            return reinterpret_cast<intptr_t>(&time);
        default:
            return 0;
    }
}

/// Blocks of odd sizes behind random changes of parameters; every kind of change comes up.
class Storm {
  public:
    Storm() : effect(std::make_unique<Tessel8>(host)), buffers(4 * kLargest) {
        effect->setSampleRate(48000.0f);
        effect->resume();
        std::uniform_real_distribution<float> noise(-1.0f, 1.0f);
        for (float& sample : buffers) {
            sample = noise(random);
        }
    }

    /// The changes count as part of the block if `changesToo`: many hosts make them there.
    void run(int blocks, bool changesToo) {
        std::uniform_real_distribution<float> value(0.0f, 1.0f);
        for (int block = 0; block < blocks; ++block) {
            inBlock = changesToo;
            for (int change = 0; change < 4; ++change) {
                const auto index = int32_t(random() % 379);
                effect->setParameter(index, random() % 4 ? value(random) : float(random() % 3));
            }
            if (random() % 16 == 0) {
                effect->requestPanic(true);
            }
            if (random() % 64 == 0) {  // some hosts do this on the audio thread
                effect->suspend();
                effect->resume();
            }
            sendController();
            effect->setParameter(0, random() % 32 ? 1.0f : 0.0f);
            float* const inputs[] = {buffers.data(), buffers.data() + kLargest};
            float* const outputs[] = {buffers.data() + 2 * kLargest, buffers.data() + 3 * kLargest};
            inBlock = true;
            effect->processReplacing(const_cast<float**>(inputs), const_cast<float**>(outputs),
                                     int32_t(random() % kLargest));
            inBlock = false;
        }
    }

  private:
    void sendController() {
        VstMidiEvent event{};
        event.type = kVstMidiType;
        event.midiData[0] = char(0xB0);
        event.midiData[1] = char(random() % 128);
        event.midiData[2] = char(random() % 128);
        VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event), nullptr}};
        effect->processEvents(&events);
    }

    static constexpr size_t kLargest = 700;
    std::minstd_rand random{11};
    std::unique_ptr<Tessel8> effect;
    std::vector<float> buffers;
};

TEST(RealTime, ABlockNeitherAllocatesNorLocks) {
    Storm storm;
    uses = 0;
    storm.run(4000, true);
    EXPECT_EQ(uses, 0);
}

TEST(RealTime, TheCountersSeeAnAllocationAndALock) {
    uses = 0;
    inBlock = true;
    void* volatile memory = std::malloc(10);
    std::free(memory);
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    pthread_mutex_lock(&mutex);
    inBlock = false;
    EXPECT_EQ(uses, 3);
}

/// From here on this process may only end itself; any other system call kills it.
bool forbidSystemCalls() {
    sock_filter rules[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_exit_group, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
    };
    const sock_fprog program{sizeof rules / sizeof rules[0], rules};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// How a child ended that ran `work` without system calls: 0, 3 for no filter, or a signal.
template <typename Work>
int endWithoutSystemCalls(Work work) {
    const pid_t child = fork();
    if (child == 0) {
        if (!forbidSystemCalls()) {
            _exit(3);
        }
        work();
        syscall(SYS_exit_group, 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

TEST(RealTime, ABlockMakesNoSystemCall) {
    Storm storm;
    const int end = endWithoutSystemCalls([&] { storm.run(4000, true); });
    if (end == 3) {
        GTEST_SKIP() << "this system has no system call filter";
    }
    EXPECT_EQ(end, 0);
    EXPECT_NE(endWithoutSystemCalls([] { getppid(); }), 0) << "the filter lets calls pass";
}

}  // namespace
}  // namespace tessel8::test
