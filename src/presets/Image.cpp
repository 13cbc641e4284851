#include "presets/Image.h"

#include "presets/ByteReader.h"

namespace tessel8 {

namespace {

enum RecordType : uint32_t { kProgramHead = 0, kParameterValue = 1 };

constexpr size_t kTaggedSize = 5;  // identifier and tag
constexpr size_t kPayloadSizeOffset = 21;
constexpr size_t kReservedInHead = 16;
constexpr size_t kValueOffset = 12;  // in a parameter's body
constexpr size_t kSmallestParameterBody = kValueOffset + sizeof(float);

/// Negative values and NaN are no program's; -0 is 0.
bool isProper(float value) {
    return value >= 0.0f;
}

uint8_t tagOf(std::span<const uint8_t> data) {
    return data.size() >= kTaggedSize ? data[kTaggedSize - 1] : uint8_t(0);
}

/// The image as far as its head says; nothing where the data breaks off before.
std::span<const uint8_t> announcedPart(std::span<const uint8_t> data, bool swap) {
    ByteReader head(data, swap);
    head.skip(kPayloadSizeOffset);
    const size_t payload = head.word();
    head.skip(kReservedInHead);
    return !head.failed() && payload <= head.remaining() ? data.first(kImageHeadSize + payload)
                                                         : std::span<const uint8_t>();
}

struct Head {
    int32_t recordCount, current;
};

Head readHead(ByteReader& reader) {
    reader.skip(4 + 1 + 4 + 4);  // identifier, tag, version, parameter count: not consulted
    const int32_t recordCount = reader.integer();
    const int32_t current = reader.integer();
    reader.skip(4 + kReservedInHead);
    return {recordCount, current};
}

/// Takes one record into the program that `programOf` gives for its index, null for none.
template <typename ProgramOf>
ImageResult readRecord(ByteReader& reader, const ProgramRecord& initial, ProgramOf programOf) {
    const uint32_t type = reader.word();
    const size_t size = reader.word();
    ProgramRecord* const program = programOf(reader.integer());
    ByteReader body = reader.part(size);
    if (reader.failed() || (type == kProgramHead && size < kNameBytes) ||
        (type == kParameterValue && size < kSmallestParameterBody)) {
        return ImageResult::Refused;
    }
    if (!program) {
        return ImageResult::Applied;
    }
    if (type == kProgramHead) {
        *program = initial;
        body.copy(program->name.data(), kNameBytes);
    } else if (type == kParameterValue) {
        const int32_t index = body.integer();
        body.skip(kValueOffset - sizeof index);
        const float value = body.number();
        if (index >= 0 && index < kParameterCount) {
            if (!isProper(value)) {
                return ImageResult::Dropped;
            }
            program->values[size_t(index)] = value;
        }
    }
    return ImageResult::Applied;
}

template <typename ProgramOf>
ImageResult readRecords(ByteReader& reader, int32_t count, const ProgramRecord& initial,
                        ProgramOf programOf) {
    // A count that the rest cannot hold ends here and not after as many turns.
    if (reader.failed() || uint64_t(count) * kRecordHeadSize > reader.remaining()) {
        return ImageResult::Refused;
    }
    for (int32_t i = 0; i < count; ++i) {
        const ImageResult result = readRecord(reader, initial, programOf);
        if (result != ImageResult::Applied) {
            return result;
        }
    }
    return ImageResult::Applied;
}

ImageResult readFlatProgram(ByteReader& reader, size_t storedValues, const ProgramRecord& initial,
                            ProgramRecord& program) {
    program = initial;
    reader.copy(program.name.data(), kNameBytes);
    for (size_t k = 0; k < storedValues; ++k) {
        const float value = reader.number();
        if (k < kParameterCount) {
            if (value < 0.0f) {  // NaN passes here
                return ImageResult::Dropped;
            }
            program.values[k] = value;
        }
    }
    return ImageResult::Applied;
}

void writeHead(ByteWriter& writer, uint8_t tag, int32_t programs, int32_t current) {
    writer.word(kPluginId);
    writer.copy(&tag, sizeof tag);
    writer.word(kCurrentVersion);
    writer.word(kParameterCount);
    writer.word(uint32_t(programs * (1 + kParameterCount)));
    writer.word(uint32_t(current));
    writer.word(uint32_t(size_t(programs) * kProgramImageSize));
    writer.zeros(kReservedInHead);
}

void writeRecordHead(ByteWriter& writer, RecordType type, size_t size, int32_t program) {
    writer.word(type);
    writer.word(uint32_t(size));
    writer.word(uint32_t(program));
}

void writeProgram(ByteWriter& writer, int32_t program, const ProgramRecord& record) {
    writeRecordHead(writer, kProgramHead, kProgramHeadSize, program);
    writer.copy(record.name.data(), kNameBytes);
    writer.zeros(kProgramHeadSize - kNameBytes);
    for (int32_t index = 0; index < kParameterCount; ++index) {
        writeRecordHead(writer, kParameterValue, kParameterBodySize, program);
        writer.word(uint32_t(index));
        writer.zeros(kValueOffset - sizeof index);
        writer.number(record.values[size_t(index)]);
        writer.zeros(kParameterBodySize - kSmallestParameterBody);
    }
}

}  // namespace

bool findByteOrder(std::span<const uint8_t> word, bool& swap) {
    const uint32_t id = ByteReader(word, false).word();
    swap = id == __builtin_bswap32(kPluginId);
    return swap || id == kPluginId;
}

ImageKind imageKind(std::span<const uint8_t> data) {
    bool swap = false;
    if (data.size() < kTaggedSize || !findByteOrder(data, swap)) {
        return ImageKind::Foreign;
    }
    switch (tagOf(data)) {
        case image_tag::kPreset:
        case image_tag::kFlatPreset:
            return ImageKind::Preset;
        case image_tag::kBank:
        case image_tag::kFlatBank:
            return ImageKind::Bank;
        default:
            return ImageKind::Unknown;
    }
}

ImageResult readBankFile(std::span<const uint8_t> data, bool reversed, const ProgramRecord& initial,
                         std::span<ProgramRecord, kProgramCount> programs, int32_t& current) {
    bool swap = false;
    if (!findByteOrder(data, swap) || imageKind(data) != ImageKind::Bank) {
        return ImageResult::Refused;
    }
    swap = swap != reversed;
    current = 0;
    return tagOf(data) == image_tag::kBank
               ? readBankImage(announcedPart(data, swap), swap, initial, programs, current)
               : readFlatBank(data.subspan(kTaggedSize), swap, initial, programs);
}

ImageResult readPresetFile(std::span<const uint8_t> data, bool reversed,
                           const ProgramRecord& initial, ProgramRecord& program) {
    bool swap = false;
    if (!findByteOrder(data, swap) || imageKind(data) != ImageKind::Preset) {
        return ImageResult::Refused;
    }
    swap = swap != reversed;
    return tagOf(data) == image_tag::kPreset
               ? readPresetImage(announcedPart(data, swap), swap, initial, program)
               : readFlatPreset(data.subspan(kTaggedSize), swap, initial, program);
}

ImageResult readBankImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                          std::span<ProgramRecord, kProgramCount> programs, int32_t& current) {
    ByteReader reader(data, swap);
    const Head head = readHead(reader);
    if (reader.failed()) {
        return ImageResult::Refused;
    }
    if (head.recordCount < 0) {
        return ImageResult::Dropped;
    }
    current = head.current >= 0 && head.current < kProgramCount ? head.current : 0;
    return readRecords(reader, head.recordCount, initial, [&](int32_t index) -> ProgramRecord* {
        return index >= 0 && index < kProgramCount ? &programs[size_t(index)] : nullptr;
    });
}

ImageResult readPresetImage(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                            ProgramRecord& program) {
    ByteReader reader(data, swap);
    const Head head = readHead(reader);
    if (reader.failed()) {
        return ImageResult::Refused;
    }
    if (head.recordCount < 0) {
        return ImageResult::Dropped;
    }
    // The program that a record names does not matter: a preset goes where it is loaded.
    program = initial;
    return readRecords(reader, head.recordCount, initial, [&](int32_t) { return &program; });
}

ImageResult readFlatBank(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                         std::span<ProgramRecord, kProgramCount> programs) {
    const size_t block = data.size() / kProgramCount;
    if (block < kNameBytes) {
        return ImageResult::Refused;
    }
    const size_t storedValues = (block - kNameBytes) / sizeof(float);
    ByteReader reader(data, swap);
    for (ProgramRecord& program : programs) {
        const ImageResult result = readFlatProgram(reader, storedValues, initial, program);
        if (result != ImageResult::Applied) {
            return result;
        }
    }
    return ImageResult::Applied;
}

ImageResult readFlatPreset(std::span<const uint8_t> data, bool swap, const ProgramRecord& initial,
                           ProgramRecord& program) {
    if (data.size() < kNameBytes) {
        return ImageResult::Refused;
    }
    ByteReader reader(data, swap);
    return readFlatProgram(reader, (data.size() - kNameBytes) / sizeof(float), initial, program);
}

void writeBankImage(std::span<const ProgramRecord, kProgramCount> programs, int32_t current,
                    uint8_t* image) {
    ByteWriter writer(image);
    writeHead(writer, image_tag::kBank, kProgramCount, current);
    for (int32_t i = 0; i < kProgramCount; ++i) {
        writeProgram(writer, i, programs[size_t(i)]);
    }
}

void writePresetImage(const ProgramRecord& program, uint8_t* image) {
    ByteWriter writer(image);
    writeHead(writer, image_tag::kPreset, 1, 0);
    writeProgram(writer, 0, program);
}

}  // namespace tessel8
