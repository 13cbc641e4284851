#pragma once

// A host whose threads do what hosts' threads do, at random and all at once. What no host does,
// it does not do either: a rate changes between blocks, and an effect is closed when nobody is
// inside it.

#include <array>
#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <mutex>
#include <random>
#include <shared_mutex>
#include <vector>

#include "support/PluginLibrary.h"

namespace tessel8::testing {

using Random = std::minstd_rand;
using Bytes = std::vector<char>;

constexpr int32_t kParameters = 215;

/// One effect of the loaded library, and the locks that its host keeps around it.
class StormInstance {
  public:
    explicit StormInstance(const PluginLibrary& library) : entry(library.entry()) { create(); }
    StormInstance(const StormInstance&) = delete;
    StormInstance& operator=(const StormInstance&) = delete;
    ~StormInstance() { destroy(); }

    intptr_t send(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                  float opt = 0.0f) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }

    /// A block of noise with MIDI before it, of any length, in place or not, as its audio thread
    /// gives it. Everything that comes out is a number.
    void block(Random& random) {
        constexpr int32_t kLengths[] = {0, 1, 3, 16, 64, 256, 1000, kMostFrames};
        const int32_t frames = kLengths[random() % std::size(kLengths)];
        const std::lock_guard lock(graph);
        midi(random);
        for (size_t i = 0; i < kMostFrames; ++i) {
            audio[0][i] = float(random()) / float(Random::max()) - 0.5f;
            audio[1][i] = -audio[0][i];
        }
        const size_t out = random() % 2 == 0 ? 0 : 2;
        float* inputs[] = {audio[0].data(), audio[1].data()};
        float* outputs[] = {audio[out].data(), audio[out + 1].data()};
        effect->processReplacing(effect, inputs, outputs, frames);
        for (size_t i = 0; i < size_t(frames); ++i) {
            ASSERT_TRUE(std::isfinite(outputs[0][i]) && std::isfinite(outputs[1][i]));
        }
        if (random() % 100 == 0) {  // as where the length of blocks changes
            mains(false);
            mains(true);
        }
    }

    void mains(bool on) { send(effMainsChanged, 0, on); }

    /// Off and on while a block may be running: what is heard of it is another matter, but nothing
    /// breaks. The thread sanitizer needs minutes for lines that a block and the clearing write at
    /// once, word by word; under it the block is waited for.
    void restart() {
#ifdef __SANITIZE_THREAD__
        const std::lock_guard lock(graph);
#endif
        mains(false);
        mains(true);
    }

    void changeRate(Random& random) {
        constexpr float kRates[] = {44100.0f, 48000.0f, 96000.0f, 192000.0f, 22050.0f};
        const std::lock_guard lock(graph);
        mains(false);
        send(effSetSampleRate, 0, 0, nullptr, kRates[random() % std::size(kRates)]);
        mains(true);
    }

    Bytes state() {
        void* data = nullptr;
        const auto size = size_t(send(effGetChunk, 0, 0, &data));
        const auto* bytes = static_cast<const char*>(data);
        return {bytes, bytes + size};
    }
    intptr_t restore(Bytes bytes) {
        return send(effSetChunk, 0, intptr_t(bytes.size()), bytes.data());
    }

    /// A new effect in place of the old one, whose editor may be open.
    void replace() {
        isLeaving = true;
        {
            const std::unique_lock lock(life);
            destroy();
            create();
        }
        isLeaving = false;
    }

    std::shared_mutex life;  ///< held shared by whoever calls, alone by who closes the effect
    std::atomic<bool> isLeaving{};  ///< nobody begins a call to it
    AEffect* effect = nullptr;
    bool isEditorOpen = false;        ///< under `life`, by the editor's thread
    std::atomic<int> openGestures{};  ///< begun and not ended

  private:
    static constexpr int32_t kMostFrames = 4097;

    static intptr_t VST_CALL callback(AEffect* effect, int32_t opcode, int32_t, intptr_t, void*,
                                      float) {
        if (opcode == audioMasterGetTime) {
            return songTime();
        }
        if (effect && effect->user) {
            auto& gestures = static_cast<StormInstance*>(effect->user)->openGestures;
            gestures += (opcode == audioMasterBeginEdit) - (opcode == audioMasterEndEdit);
        }
        return opcode == audioMasterVersion ? 2400 : 0;
    }
    /// A tempo that jumps, is none or is nowhere told.
    static intptr_t songTime() {
        constexpr double kTempos[] = {120.0, 1.0, 1e9, 0.0,
                                      std::numeric_limits<double>::quiet_NaN()};
        thread_local VstTimeInfo time{};
        thread_local uint32_t count = 0;
        ++count;
        time.tempo = kTempos[count / 50 % std::size(kTempos)];
        time.ppqPos = double(count % 5000) / 7.0;
        time.flags = kVstTempoValid | kVstPpqPosValid | kVstTransportPlaying;
        return count % 30 == 0 ? 0 : reinterpret_cast<intptr_t>(&time);
    }

    void midi(Random& random) {
        constexpr size_t kMost = 40;
        struct List {
            int32_t count;
            intptr_t reserved;
            std::array<VstMidiEvent*, kMost> events;
        } list{};
        std::array<VstMidiEvent, kMost> events{};
        list.count = int32_t(random() % kMost);
        for (size_t i = 0; i < size_t(list.count); ++i) {
            events[i].type = kVstMidiType;
            events[i].byteSize = sizeof(VstMidiEvent) - 8;
            events[i].midiData[0] = char(random() % 4 ? 0xB0 : random());
            events[i].midiData[1] = char(random());
            events[i].midiData[2] = char(random());
            list.events[i] = &events[i];
        }
        send(effProcessEvents, 0, 0, &list);
    }

    void create() {
        effect = entry(callback);
        effect->user = this;
        send(effSetSampleRate, 0, 0, nullptr, 48000.0f);
        send(effOpen);
        mains(true);
    }
    void destroy() {
        if (isEditorOpen) {
            send(effEditClose);
            isEditorOpen = false;
        }
        EXPECT_EQ(openGestures, 0);
        mains(false);
        send(effClose);
    }

    PluginLibrary::Entry entry;
    std::mutex graph;  ///< held during a block, and by who must not meet one
    std::array<std::vector<float>, 4> audio{
        std::vector<float>(kMostFrames), std::vector<float>(kMostFrames),
        std::vector<float>(kMostFrames), std::vector<float>(kMostFrames)};
};

}  // namespace tessel8::testing
