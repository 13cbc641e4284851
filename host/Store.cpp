#include "Store.h"

#include "ProgramFile.h"
#include "UserError.h"
#include "presets/Chunk.h"

namespace tessel8::host {

Store::Store(const Plugin& plugin) {
    void* bytes = nullptr;
    const intptr_t size = plugin.dispatch(effGetChunk, 0, 0, &bytes);
    if (bytes == nullptr || size <= 0 ||
        readChunk({static_cast<const uint8_t*>(bytes), size_t(size)}, neutralProgram(), programs(),
                  current_) != ImageResult::Applied) {
        throw UserError("the plug-in gives no store of programs that could be changed");
    }
}

void Store::loadBank(const std::filesystem::path& file) {
    ProgramFile(file).readBank(programs(), current_);
}

void Store::loadPreset(const std::filesystem::path& file) {
    ProgramFile(file).readPreset(programs_[size_t(current_)]);
}

void Store::send(const Plugin& plugin) const {
    std::vector<uint8_t> chunk(kChunkSize);
    writeChunk(std::span<const ProgramRecord, kProgramCount>(programs_), current_, chunk.data());
    if (plugin.dispatch(effSetChunk, 0, intptr_t(chunk.size()), chunk.data()) < 0) {
        throw UserError("the plug-in does not take its store of programs");
    }
}

}  // namespace tessel8::host
