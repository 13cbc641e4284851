#pragma once

#include <span>

#include "presets/ProgramRecord.h"

namespace tessel8 {

// The serial form of programs, in which they travel in chunks, files and stored settings: a head
// of 41 bytes and typed records, which a reader that does not know their type can step over. Two
// older forms without records ("flat") are read and never written. Numbers are in the writer's
// byte order, which the identifier tells.

/// The effect's registered identifier, the first word of every image.
constexpr uint32_t kPluginId = 0x54534C38;  // "TSL8"

constexpr uint32_t kCurrentVersion = 0x02000000;

namespace image_tag {
constexpr uint8_t kBank = 0x38, kPreset = 0x22, kFlatBank = 0x37, kFlatPreset = 0x21;
}

constexpr size_t kImageHeadSize = 41;
constexpr size_t kRecordHeadSize = 12;
constexpr size_t kProgramHeadSize = 156;   ///< body of a record that names a program
constexpr size_t kParameterBodySize = 20;  ///< body of a record that holds one value
constexpr size_t kProgramImageSize =
    kRecordHeadSize + kProgramHeadSize + kParameterCount * (kRecordHeadSize + kParameterBodySize);
constexpr size_t kPresetImageSize = kImageHeadSize + kProgramImageSize;                // 7089
constexpr size_t kBankImageSize = kImageHeadSize + kProgramCount * kProgramImageSize;  // 986761

/// What became of data that somebody handed in.
enum class ImageResult {
    Applied,
    Dropped,  ///< whole, but with a record count below zero or a value that no program may hold
    Refused   ///< cut off, lying about its sizes, or not ours
};

/// True if the word is the identifier in this or the other byte order, which is written to `swap`.
bool findByteOrder(std::span<const uint8_t> word, bool& swap);

/// What data says that it holds, by its identifier and tag.
enum class ImageKind {
    Foreign,  ///< not ours, or shorter than identifier and tag
    Preset,
    Bank,
    Unknown  ///< ours, with a tag that this version does not know
};
ImageKind imageKind(std::span<const uint8_t> data);

// The readers work in place on a copy of what there was, which the caller throws away unless the
// answer is `Applied`. `initial` is what a program holds where the data says nothing. `data` begins
// with the image's head, or behind the five bytes of identifier and tag in the flat forms.

// A whole file or stored value, in the current or the flat form. The identifier tells the byte
// order; `reversed` takes the opposite one. Data of another kind is refused.

/// `current` is 0 after the flat form, which does not know it.
ImageResult readBankFile(std::span<const uint8_t> data, bool reversed, const ProgramRecord& initial,
                         std::span<ProgramRecord, kProgramCount> programs, int32_t& current);
ImageResult readPresetFile(std::span<const uint8_t> data, bool reversed,
                           const ProgramRecord& initial, ProgramRecord& program);

// The forms one by one.

ImageResult readBankImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                          std::span<ProgramRecord, kProgramCount> programs, int32_t& current);
ImageResult readPresetImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                            ProgramRecord& program);
ImageResult readFlatBank(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                         std::span<ProgramRecord, kProgramCount> programs);
ImageResult readFlatPreset(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                           ProgramRecord& program);

/// `image` takes `kBankImageSize` bytes.
void writeBankImage(std::span<const ProgramRecord, kProgramCount> programs, int32_t current,
                    uint8_t* image);
/// `image` takes `kPresetImageSize` bytes.
void writePresetImage(const ProgramRecord& program, uint8_t* image);

}  // namespace tessel8
