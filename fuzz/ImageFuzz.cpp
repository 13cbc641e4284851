// Chunks, images and files from anywhere: nothing reads beyond what it was given, nothing
// takes over a part of what it refuses, and what it takes over it can write and read again.

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "presets/Chunk.h"
#include "presets/MidiSettingsFile.h"
#include "shell/Tessel8.h"

namespace tessel8 {

namespace {

void require(bool truth) {
    if (!truth) {
        std::abort();
    }
}

bool isUsable(ImageResult result) {
    return result == ImageResult::Applied;
}

using Store = std::vector<ProgramRecord>;

std::span<ProgramRecord, kProgramCount> whole(Store& store) {
    return std::span<ProgramRecord, kProgramCount>(store);
}

bool same(const ProgramRecord& a, const ProgramRecord& b) {
    // Bits, not values: those of a NaN count as well, and a record has no gaps.
    return std::memcmp(&a, &b, sizeof a) == 0;  // NOLINT
}

bool isProper(const ProgramRecord& program, bool mayBeNan) {
    for (const float value : program.values) {
        if (!(value >= 0.0f) && !(mayBeNan && value != value)) {
            return false;
        }
    }
    return true;
}

void chunk(std::span<const uint8_t> data) {
    static Tessel8 effect(nullptr);
    void* before = nullptr;
    const auto size = size_t(effect.getChunk(&before, false));
    static std::vector<uint8_t> copy;
    copy.assign(static_cast<uint8_t*>(before), static_cast<uint8_t*>(before) + size);

    std::vector<uint8_t> exact(data.begin(), data.end());  // a read beyond it is seen
    const int32_t answer = effect.setChunk(exact.data(), int32_t(exact.size()), false);
    require(answer == 0 || answer == -1);
    require(effect.getCurrentProgramIndex() >= 0 &&
            effect.getCurrentProgramIndex() < kProgramCount);
    void* after = nullptr;
    effect.getChunk(&after, false);
    if (answer == -1) {
        require(std::memcmp(after, copy.data(), size) == 0);
    }
}

void bankImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial) {
    Store store(kProgramCount, initial), again(kProgramCount, initial);
    int32_t current = -1;
    if (!isUsable(readBankImage(data, swap, initial, whole(store), current))) {
        return;
    }
    require(current >= 0 && current < kProgramCount);
    std::vector<uint8_t> image(kBankImageSize);
    writeBankImage(whole(store), current, image.data());
    int32_t currentAgain = -1;
    require(isUsable(readBankImage(image, false, initial, whole(again), currentAgain)));
    require(currentAgain == current);
    for (size_t i = 0; i < store.size(); ++i) {
        require(same(store[i], again[i]) && isProper(store[i], false));
    }
}

void presetImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial) {
    ProgramRecord program = initial, again = initial;
    if (isUsable(readPresetImage(data, swap, initial, program))) {
        std::vector<uint8_t> image(kPresetImageSize);
        writePresetImage(program, image.data());
        require(isUsable(readPresetImage(image, false, initial, again)));
        require(same(program, again) && isProper(program, false));
    }
}

void flatForms(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial) {
    ProgramRecord program = initial;
    if (isUsable(readFlatPreset(data, swap, initial, program))) {
        require(isProper(program, true));
    }
    Store store(kProgramCount, initial);
    if (isUsable(readFlatBank(data, swap, initial, whole(store)))) {
        for (const ProgramRecord& record : store) {
            require(isProper(record, true));
        }
    }
}

/// A file of the user's, in whatever form: it is taken whole or not at all.
void presetFile(std::span<const uint8_t> data, bool reversed, const ProgramRecord& initial) {
    ProgramRecord program = initial;
    const bool isUsed = isUsable(readPresetFile(data, reversed, initial, program));
    require(!isUsed || (imageKind(data) == ImageKind::Preset && isProper(program, true)));
}

void bankFile(std::span<const uint8_t> data, bool reversed, const ProgramRecord& initial) {
    Store store(kProgramCount, initial);
    int32_t current = 0;
    if (isUsable(readBankFile(data, reversed, initial, whole(store), current))) {
        require(imageKind(data) == ImageKind::Bank && current >= 0 && current < kProgramCount);
        for (const ProgramRecord& record : store) {
            require(isProper(record, true));
        }
    }
}

/// MIDI settings that are taken come back as they are written again.
void midiFile(std::span<const uint8_t> data) {
    ControllerMap map, before, again;
    if (readMidiSettings(data, map) == MidiSettingsResult::Applied) {
        require(readMidiSettings(writeMidiSettings(map), again) == MidiSettingsResult::Applied);
    } else {
        again = before;
    }
    for (int32_t i = 0; i < kMidiControllers; ++i) {
        require(again.entry(i) == map.entry(i));
    }
}

}  // namespace

}  // namespace tessel8

/// The first byte says how the rest is read: a reader in its low half, the byte order above.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    using namespace tessel8;
    if (size == 0) {
        return 0;
    }
    static const ProgramRecord initial = neutralProgram();
    const bool swap = bytes[0] & 0x10;
    // A copy of its own, so that a sanitizer sees the end.
    std::vector<uint8_t> data(bytes + 1, bytes + size);
    switch (bytes[0] & 0x0F) {
        case 1:
            bankImage(data, swap, initial);
            break;
        case 2:
            presetImage(data, swap, initial);
            break;
        case 3:
            flatForms(data, swap, initial);
            break;
        case 4:  // the one size that the old chunk has
            data.resize(kVersion1ChunkSize, 0x3C);
            [[fallthrough]];
        case 5:
            presetFile(data, swap, initial);
            break;
        case 6:
            bankFile(data, swap, initial);
            break;
        case 7:
            midiFile(data);
            break;
        default:
            chunk(data);
    }
    return 0;
}
