#include "Store.h"

#include <algorithm>

#include "FileBytes.h"
#include "UserError.h"
#include "presets/Chunk.h"

namespace tessel8::host {

namespace {

/// A bank of our own has 1 MB; others may have written longer records.
constexpr size_t kMostFileBytes = size_t(16) << 20;

/// A file of programs: the identifier, a tag for the kind of image, and the image.
struct ProgramFile {
    explicit ProgramFile(const std::filesystem::path& file)
        : name(file.string()), bytes(readFile(file, kMostFileBytes)) {
        if (bytes.size() < kTagged || !findByteOrder(bytes, swap)) {
            throw UserError(name + " is not a file of this effect's programs");
        }
        tag = bytes[kTagged - 1];
    }

    /// What the older forms without records begin with.
    std::span<const uint8_t> behindTag() const { return std::span(bytes).subspan(kTagged); }

    /// Throws unless the reader of the image was content and the programs can be taken.
    void check(ImageResult result, std::span<const ProgramRecord> programs) const {
        if (result == ImageResult::Refused) {
            throw UserError(name + " is damaged: it breaks off or its sizes do not fit together");
        }
        // The older forms may bring what is not a number, and the effect would take none of it.
        const bool proper =
            std::all_of(programs.begin(), programs.end(), [](const ProgramRecord& program) {
                return std::all_of(program.values.begin(), program.values.end(),
                                   [](float value) { return value >= 0; });
            });
        if (result == ImageResult::Dropped || !proper) {
            throw UserError(name + " is damaged: it holds values that no program may have");
        }
    }

    std::string name;
    std::vector<uint8_t> bytes;
    uint8_t tag = 0;
    bool swap = false;  // written in the other byte order

  private:
    static constexpr size_t kTagged = 5;
};

}  // namespace

Store::Store(const Plugin& plugin) {
    void* bytes = nullptr;
    const intptr_t size = plugin.dispatch(effGetChunk, 0, 0, &bytes);
    if (bytes == nullptr || size <= 0 ||
        readChunk({static_cast<const uint8_t*>(bytes), size_t(size)}, neutralProgram(), programs(),
                  current_) != ImageResult::Applied) {
        throw UserError("the plug-in gives no store of programs that could be changed");
    }
}

void Store::loadBank(const std::filesystem::path& name) {
    const ProgramFile file(name);
    switch (file.tag) {
        case image_tag::kBank:
            file.check(readBankImage(file.bytes, file.swap, neutralProgram(), programs(), current_),
                       programs_);
            return;
        case image_tag::kFlatBank:
            file.check(readFlatBank(file.behindTag(), file.swap, neutralProgram(), programs()),
                       programs_);
            return;
        default:
            throw UserError(file.name + " holds no bank of programs");
    }
}

void Store::loadPreset(const std::filesystem::path& name) {
    const ProgramFile file(name);
    ProgramRecord& program = programs_[size_t(current_)];
    switch (file.tag) {
        case image_tag::kPreset:
            file.check(readPresetImage(file.bytes, file.swap, neutralProgram(), program),
                       {&program, 1});
            return;
        case image_tag::kFlatPreset:
            file.check(readFlatPreset(file.behindTag(), file.swap, neutralProgram(), program),
                       {&program, 1});
            return;
        default:
            throw UserError(file.name + " holds no single program");
    }
}

void Store::send(const Plugin& plugin) const {
    std::vector<uint8_t> chunk(kChunkSize);
    writeChunk(std::span<const ProgramRecord, kProgramCount>(programs_), current_, chunk.data());
    if (plugin.dispatch(effSetChunk, 0, intptr_t(chunk.size()), chunk.data()) < 0) {
        throw UserError("the plug-in does not take its store of programs");
    }
}

}  // namespace tessel8::host
