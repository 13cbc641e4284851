#include "presets/Chunk.h"

#include <algorithm>

#include "presets/ByteReader.h"

namespace tessel8 {

namespace {

constexpr uint32_t kVersion1 = 0x01000000;
constexpr size_t kVersion1Reserved = 16;

/// Programs back to back, as many values each as the size leaves room for. Values are not judged.
ImageResult readVersion1(std::span<const uint8_t> chunk, bool swap, const ProgramRecord& initial,
                         std::span<ProgramRecord, kProgramCount> programs, int32_t& current) {
    if (chunk.size() != kVersion1ChunkSize) {
        return ImageResult::Refused;
    }
    ByteReader reader(chunk, swap);
    reader.skip(kChunkHeadSize);
    const int32_t count = reader.integer();
    const int32_t chosen = reader.integer();
    reader.skip(kVersion1Reserved);
    if (count <= 0 || reader.remaining() / size_t(count) < kNameBytes) {
        return ImageResult::Refused;
    }
    const size_t stored = (reader.remaining() / size_t(count) - kNameBytes) / sizeof(float);
    const size_t used = std::min(stored, size_t(kParameterCount));
    for (int32_t i = 0; i < std::min(count, kProgramCount); ++i) {
        ProgramRecord& program = programs[size_t(i)];
        program = initial;
        reader.copy(program.name.data(), kNameBytes);
        for (size_t k = 0; k < used; ++k) {
            program.values[k] = reader.number();
        }
        reader.skip((stored - used) * sizeof(float));
    }
    current = chosen >= 0 && chosen < kProgramCount ? chosen : 0;
    return ImageResult::Applied;
}

}  // namespace

void writeChunk(std::span<const ProgramRecord, kProgramCount> programs, int32_t current,
                uint8_t* chunk) {
    ByteWriter head(chunk);
    head.word(kCurrentVersion);
    head.word(kPluginId);
    writeBankImage(programs, current, chunk + kChunkHeadSize);
}

ImageResult readChunk(std::span<const uint8_t> chunk, const ProgramRecord& initial,
                      std::span<ProgramRecord, kProgramCount> programs, int32_t& current) {
    bool swap = false;
    if (chunk.size() < kChunkHeadSize || !findByteOrder(chunk.subspan(4), swap)) {
        return ImageResult::Refused;
    }
    switch (ByteReader(chunk, swap).word()) {
        case kVersion1:
            return readVersion1(chunk, swap, initial, programs, current);
        case kCurrentVersion:
            return readBankImage(chunk.subspan(kChunkHeadSize), swap, initial, programs, current);
        default:
            return ImageResult::Refused;
    }
}

}  // namespace tessel8
