// The store of programs as a host keeps it: chunks, byte by byte, whole, cut off and lying.

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

#include "shell/FakeHost.h"
#include "support/ImageWriter.h"

namespace tessel8 {

namespace {

/// Head of a chunk of version 2 and of its image.
struct Writer : ImageWriter {
    explicit Writer(bool big = false) { bigEndian = big; }
    ImageWriter& head(uint32_t records, uint32_t current) {
        word(0x02000000).word(0x54534C38);
        return image('8', records, current, 0);
    }
};

Bytes chunkOf(HostedEffect& hosted, int32_t isPreset = 0) {
    void* data = nullptr;
    const auto size = size_t(hosted.send(effGetChunk, isPreset, 0, &data));
    const auto* const bytes = static_cast<const uint8_t*>(data);
    return {bytes, bytes + size};
}

intptr_t load(HostedEffect& hosted, Bytes chunk) {
    chunk.shrink_to_fit();  // what lies behind the end belongs to somebody else
    return hosted.send(effSetChunk, 0, intptr_t(chunk.size()), chunk.data());
}

std::string nameOf(HostedEffect& hosted, int32_t index) {
    char text[32] = "";
    hosted.send(effGetProgramNameIndexed, index, 0, text);
    return text;
}

}  // namespace

TEST(Chunk, OfAFreshInstanceHasTheTableBytes) {
    HostedEffect hosted;
    const Bytes chunk = chunkOf(hosted);
    ASSERT_EQ(chunk.size(), 986769u);
    EXPECT_EQ(chunk, chunkOf(hosted, 1)) << "a program chunk is the whole store too";
    Writer head;
    head.word(0x02000000).word(0x54534C38).word(0x54534C38).bytes.push_back(0x38);
    head.word(0x02000000).word(215).word(30240).word(0).word(986720).zeros(16);
    head.program(0, "*init").value(0, 0, 1.0f).value(0, 1, 0.5f);
    EXPECT_TRUE(std::equal(head.bytes.begin(), head.bytes.end(), chunk.begin()));
    EXPECT_EQ(Bytes(chunk.begin(), chunk.begin() + 8), (Bytes{0, 0, 0, 2, 0x38, 0x4C, 0x53, 0x54}));
    Writer last;
    last.value(139, 214, 0.0f);
    EXPECT_TRUE(std::equal(last.bytes.begin(), last.bytes.end(), chunk.end() - 32));
}

TEST(Chunk, BringsStoreAndChoiceIntoAnotherInstanceOnly) {
    HostedEffect from, to, third;
    const Bytes fresh = chunkOf(third);
    ASSERT_EQ(load(from, Writer{}.head(1, 44).value(44, 3, 0.25f).bytes), 0);
    from.set(2, 0.125f);
    char name[] = "Mine";
    from.send(effSetProgramName, 0, 0, name);
    const Bytes chunk = chunkOf(from);
    ASSERT_EQ(load(to, chunk), 0);
    EXPECT_EQ(chunkOf(to), chunk);
    EXPECT_EQ(nameOf(to, 44), "Mine");
    EXPECT_EQ(to.get(2), 0.125f);
    EXPECT_EQ(to.get(3), 0.25f);
    EXPECT_EQ(chunkOf(third), fresh);
}

TEST(Chunk, SelectsItsProgramOnceAndSaysSo) {
    HostedEffect hosted;
    const Bytes chunk = chunkOf(hosted);
    host.calls.clear();
    ASSERT_EQ(load(hosted, chunk), 0);
    const std::vector<FakeHost::Call> expected = {{audioMasterUpdateDisplay, 0, 0, 0.0f},
                                                  {audioMasterBeginEdit, 0, 0, 0.0f},
                                                  {audioMasterEndEdit, 0, 0, 0.0f}};
    EXPECT_TRUE(host.calls == expected);
}

TEST(Chunk, FromABigEndianMachineGivesTheSameStore) {
    HostedEffect little, big;
    const auto both = [&](auto write) {
        EXPECT_EQ(load(little, write(Writer{false}).bytes), 0);
        EXPECT_EQ(load(big, write(Writer{true}).bytes), 0);
        EXPECT_EQ(chunkOf(little), chunkOf(big));
    };
    both([](Writer w) { return w.head(2, 7).program(7, "Ends").value(7, 24, 0.3f); });
    EXPECT_EQ(nameOf(big, 7), "Ends");
    EXPECT_EQ(big.get(24), 0.3f);
    both([](Writer w) {
        w.word(0x01000000).word(0x54534C38).word(140).word(139).zeros(16);
        for (uint32_t p = 0; p < 140; ++p) {
            w.name("Old " + std::to_string(p));
            for (uint32_t k = 0; k < 215; ++k) {
                w.number(k == 9 ? -0.5f : float(k) / 256.0f);  // the old form judges nothing
            }
        }
        return w;
    });
    EXPECT_EQ(nameOf(big, 139), "Old 139");
    EXPECT_EQ(big.get(3), 3.0f / 256.0f);
    EXPECT_EQ(big.get(9), -0.5f);
}

TEST(Chunk, PartialImagesResetTheProgramsTheyNameAndNoOther) {
    HostedEffect hosted;
    // 24 characters without a zero stay whole; unknown types and foreign indices are stepped over.
    Writer w;
    w.head(8, 140).program(5, "A name of 24 characters!").value(5, 3, 1.5f).value(5, 7, 18.0f);
    w.value(6, 3, -0.0f).word(77).word(3).word(0).name("xyz", 3);
    w.value(140, 3, -1.0f).value(5, 215, -1.0f).value(uint32_t(-1), 3, 0.9f);
    ASSERT_EQ(load(hosted, w.bytes), 0);
    EXPECT_EQ(nameOf(hosted, 5), "A name of 24 characters!");
    EXPECT_EQ(nameOf(hosted, 6), "*init Long Delay");
    const Bytes chunk = chunkOf(hosted);
    const auto valueAt = [&](size_t program, size_t index) {
        float v;
        std::memcpy(&v, &chunk[8 + 41 + program * 7048 + 168 + index * 32 + 24], sizeof v);
        return v;
    };
    EXPECT_EQ(valueAt(5, 3), 1.5f);
    EXPECT_EQ(valueAt(5, 2), 0.5f) << "what the image lacks is the neutral value";
    EXPECT_EQ(valueAt(6, 0), 11.0f) << "a program without a head keeps its values";
    EXPECT_EQ(valueAt(6, 3), 0.0f);
    EXPECT_EQ(chunk[8 + 17], 0) << "140 is no program: 0 is chosen";
}

TEST(Chunk, ThatIsCutOffOrLiesOrHoldsABadValueChangesNothing) {
    HostedEffect hosted;
    ASSERT_EQ(load(hosted, Writer{}.head(1, 9).value(9, 3, 0.75f).bytes), 0);
    const Bytes before = chunkOf(hosted);
    const auto expectUnchanged = [&](const Bytes& chunk, intptr_t answer, const char* what) {
        EXPECT_EQ(load(hosted, chunk), answer) << what;
        EXPECT_TRUE(chunkOf(hosted) == before) << what;
        EXPECT_EQ(hosted.get(3), 0.75f) << what;
    };
    const auto good = [] { return Writer{}.head(2, 0).program(0, "New").value(0, 3, 0.1f); };
    const Bytes whole = good().bytes;
    for (size_t size = 0; size < whole.size(); ++size) {
        expectUnchanged(Bytes(whole.begin(), whole.begin() + int(size)), -1, "cut off");
    }
    const auto patched = [&](size_t at, uint32_t value) {
        Bytes chunk = whole;
        std::memcpy(&chunk[at], &value, sizeof value);
        return chunk;
    };
    expectUnchanged(patched(4, 0x12345678), -1, "identifier");
    expectUnchanged(patched(0, 0x03000000), -1, "version");
    expectUnchanged(patched(8 + 13, 0x80000000), 0, "negative record count");
    expectUnchanged(patched(8 + 13, 3), -1, "one record more than there is");
    expectUnchanged(patched(8 + 13, 0x7FFFFFFF), -1, "many more");
    expectUnchanged(patched(8 + 41 + 4, 23), -1, "a head that cannot hold a name");
    expectUnchanged(patched(8 + 41 + 168 + 4, 15), -1, "a body that cannot hold a value");
    expectUnchanged(patched(8 + 41 + 168 + 4, 0xFFFFFFFF), -1, "a body beyond the end");
    for (const float bad : {-1e-30f, -1.0f, std::numeric_limits<float>::quiet_NaN()}) {
        expectUnchanged(Writer{}.head(2, 0).program(0, "Bad").value(0, 3, bad).bytes, 0, "value");
    }
    for (const uint32_t count : {0u, 0xFFFFFFFFu, 100000u}) {
        Bytes old = Writer{}.word(0x01000000).word(0x54534C38).word(count).bytes;
        old.resize(123792);
        expectUnchanged(old, -1, "old form, number of programs");
    }
    Bytes old = Writer{}.word(0x01000000).word(0x54534C38).word(140).bytes;
    for (const size_t size : {31u, 123791u, 123793u}) {
        old.resize(size);
        expectUnchanged(old, -1, "old form, size");
    }
    EXPECT_EQ(hosted.send(effSetChunk, 0, 100, nullptr), -1);
    EXPECT_EQ(hosted.send(effSetChunk, 0, -1, old.data()), -1);
    EXPECT_EQ(hosted.send(effGetChunk, 0, 0, nullptr), 0);
}

// Some hosts restore the chunk and then all parameters, in an order of their own and from rounded
// text. That must not undo what the chunk set. One law does not allow it: a rounded LFO frequency
// is one that the user set, and ends the LFO's note mode and with it the sync.
TEST(Chunk, IsNotUndoneByRoundedParametersInAnyOrder) {
    std::mt19937 random(3);
    std::vector<int32_t> order(215);
    std::iota(order.begin(), order.end(), 0);
    for (int32_t program = 0; program < 140; ++program) {
        HostedEffect alone, both;
        for (HostedEffect* hosted : {&alone, &both}) {
            hosted->rate(48000.0f);
            hosted->mains(true);
            ASSERT_EQ(load(*hosted, Writer{}.head(0, uint32_t(program)).bytes), 0);
            hosted->noise();
        }
        std::vector<float> rounded(215);
        for (int32_t i = 0; i < 215; ++i) {
            char text[32];
            std::snprintf(text, sizeof text, "%.6g", double(both.get(i)));
            rounded[size_t(i)] = std::strtof(text, nullptr);
        }
        std::shuffle(order.begin(), order.end(), random);
        for (const int32_t i : order) {
            both.set(i, rounded[size_t(i)]);
        }
        both.noise();
        constexpr int32_t kNoteMode = 8, kSync = 15, kDelaySteps = 391, kLastReading = 414;
        const bool losesNoteMode = alone.get(kNoteMode) != 0.0f;
        for (int32_t i = 0; i <= kLastReading; i = i == 214 ? kDelaySteps : i + 1) {
            if (!losesNoteMode || (i != kNoteMode && i != kSync)) {
                EXPECT_NEAR(both.get(i), alone.get(i), 2e-6f * std::fmax(1.0f, alone.get(i)))
                    << "program " << program << ", index " << i;
            }
        }
    }
}

TEST(Chunk, WithInfiniteAndHugeValuesLoadsAndStaysHarmless) {
    for (const float huge : {std::numeric_limits<float>::infinity(), 3e38f, 1e9f}) {
        HostedEffect hosted;
        hosted.rate(44100.0f);
        hosted.mains(true);
        Writer w;
        w.head(215, 0);
        for (uint32_t k = 0; k < 215; ++k) {
            w.value(0, k, huge);
        }
        ASSERT_EQ(load(hosted, w.bytes), 0);
        char text[64];
        for (int32_t k = 0; k < 215; ++k) {
            std::memset(text, 0, sizeof text);
            hosted.send(effGetParamDisplay, k, 0, text);
            EXPECT_LT(std::strlen(text), 32u) << k;
        }
        for (int block = 0; block < 50; ++block) {
            hosted.noise();
            for (const float sample : hosted.outL) {
                ASSERT_TRUE(std::isfinite(sample)) << huge;
            }
        }
    }
}

}  // namespace tessel8
