#pragma once

#include "presets/Image.h"

namespace tessel8 {

// What a host keeps in its project: eight bytes of version and identifier, then a bank image. An
// older version, without records, is still read.

constexpr size_t kChunkHeadSize = 8;
constexpr size_t kChunkSize = kChunkHeadSize + kBankImageSize;  // 986769
/// The one size of a chunk of version 1: 32 bytes of head, 140 programs of name and values.
constexpr size_t kVersion1ChunkSize =
    32 + kProgramCount * (kNameBytes + kParameterCount * sizeof(float));  // 123792

/// `chunk` takes `kChunkSize` bytes.
void writeChunk(std::span<const ProgramRecord, kProgramCount> programs, int32_t current,
                uint8_t* chunk);

/// Reads a chunk of either version and byte order; see the readers of images.
ImageResult readChunk(std::span<const uint8_t> chunk, const ProgramRecord& initial,
                      std::span<ProgramRecord, kProgramCount> programs, int32_t& current);

}  // namespace tessel8
